"""signals.py TOOL: sends signals to runs that have a temporary file open, in the current folder."""
import os
import resource
import signal
import subprocess
import sys
import time

PICTURE = b"P6 400 400 255\n" + bytes(3 * 400 * 400)
BEGINNING = len(PICTURE) // 2  # more than is read at once
ENDING = ["HUP", "INT", "QUIT", "TERM", "ABRT", "ALRM", "USR1", "USR2", "XCPU", "XFSZ", "VTALRM", "PROF"]


def fail(message):
    sys.exit(f"FAILED: {message}")


def start(tool, ignored):
    """A run that has read the beginning of its picture, waits for the rest and has its temporary file."""

    def prepare():
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        for number in ignored:
            signal.signal(number, signal.SIG_IGN)

    run = subprocess.Popen([tool, "-", "-o", "x.ps"], stdin=subprocess.PIPE, stderr=subprocess.PIPE, preexec_fn=prepare)
    run.stdin.write(PICTURE[:BEGINNING])
    run.stdin.flush()
    end = time.monotonic() + 30
    while not os.listdir("."):
        if time.monotonic() > end:
            fail("no temporary file")
        time.sleep(0.01)
    return run


def main(tool):
    for name in ENDING:
        number = signal.Signals["SIG" + name]
        run = start(tool, [])
        run.send_signal(number)
        if run.wait(30) != -number:
            fail(f"SIG{name}: ended with {run.returncode}")
        if os.listdir("."):
            fail(f"SIG{name} left {os.listdir('.')}")
    ignored = [signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM, signal.SIGUSR1]
    run = start(tool, ignored)
    for number in ignored:
        run.send_signal(number)
    time.sleep(0.1)
    _, messages = run.communicate(PICTURE[BEGINNING:], 30)
    if run.returncode != 0 or messages or os.listdir(".") != ["x.ps"]:
        fail(f"ignored signals: {run.returncode}, {messages}, {os.listdir('.')}")


main(sys.argv[1])
