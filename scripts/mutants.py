#!/usr/bin/env python3
"""Puts small faults into the device, one at a time, and counts those that no test notices.

mutants.py [-n COUNT] [--seed N] [--most N] [FILE...]

A fault is a changed number, comparison, operator or text, a pair of values swapped, a condition turned round, or a
statement left out. COUNT of the places where one can be put are picked, all kinds as often as one another; the same
seed picks the same places of the same sources. Everything happens in a copy of the tree, which is kept for the next
run. The programs test-ps, test-print and test-faults run on each fault, each as one process. A fault that does not
compile does not count; one that makes a test fail, crash or take too long is noticed.

Survivors are printed as they are found. The exit status is 0 when there are at most as many as --most says, 1 when
there are more, 2 when the tests fail without any fault.
"""

import argparse
import hashlib
import os
import pathlib
import random
import re
import resource
import shutil
import subprocess
import sys
import tempfile
import time

PROGRAMS = ["test-ps", "test-print", "test-faults"]
TOP = pathlib.Path(__file__).resolve().parent.parent
MEMORY = 4 << 30


class Site:
    """A place of a file and what to put there."""

    def __init__(self, kind, path, start, end, replacement):
        self.kind, self.path, self.start, self.end, self.replacement = kind, path, start, end, replacement

    def applied(self, text):
        return text[: self.start] + self.replacement + text[self.end :]

    def told(self, text):
        """The lines of the fault, before and after."""
        first = text.rfind("\n", 0, self.start) + 1
        last = text.find("\n", self.end)
        before = text[first:last].strip()
        after = (text[first : self.start] + self.replacement + text[self.end : last]).strip()
        line = text.count("\n", 0, self.start) + 1
        return f"{self.path}:{line} ({self.kind})\n    - {before}\n    + {after}"


STRING = r'"(?:[^"\\\n]|\\.)*"'
OPERAND = r"[^<>\";?:,]+?(?:\([^()]*\)[^<>\";?:,]*?)*"
OTHER_OPERATOR = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
    "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "+", "/": "*", "|": "&", "&": "|", "+=": "-=",
}  # fmt: skip


def blanked(text):
    """The text with comments, directives and texts of as many blanks, in which code can be looked for."""

    def blanks(match):
        return re.sub(r"[^\n]", " ", match.group())

    return re.sub(r"//[^\n]*|/\*.*?\*/|^[ \t]*#[^\n]*|" + STRING + r"|'(?:[^'\\\n]|\\.)+'", blanks, text, flags=re.S | re.M)


def changed_letter(text, dice):
    """The source text of a literal with one of its characters changed or left out."""
    places = [m.span() for m in re.finditer(r"\\x[0-9A-Fa-f]+|\\[0-7]{1,3}|\\.|.", text)]
    start, end = dice.choice(places)
    letter = text[start:end]
    if letter.isalnum():
        other = chr(ord(letter) + 1) if letter not in "9zZ" else "a"
    else:
        other = ""
    return text[:start] + other + text[end:]


def sites_of(path, text, dice):
    """Every place of a file where a fault can be put."""
    code = blanked(text)
    sites = []

    def add(kind, start, end, replacement):
        if text[start:end] != replacement:
            sites.append(Site(kind, path, start, end, replacement))

    for match in re.finditer(r"(?<![\w.])\d+(?![\w.])", code):
        add("number", *match.span(), str(int(match.group()) + 1))
    for match in re.finditer(r"(?<![\w.])\d+\.\d+(?=[LF]?\b)", code):
        add("number", *match.span(), str(float(match.group()) + 1))
    for match in re.finditer(r"\b(?:true|false)\b", code):
        add("number", *match.span(), "false" if match.group() == "true" else "true")
    for match in re.finditer(r"(?<= )(?:[<>]=?|[=!]=)(?= )", code):
        add("comparison", *match.span(), OTHER_OPERATOR[match.group()])
    for match in re.finditer(r"(?<= )(?:&&|\|\||\+=|[-+*/&|])(?= )", code):
        add("operator", *match.span(), OTHER_OPERATOR[match.group()])
    for match in re.finditer(r"\bif \((?!constexpr)(.+)\) \{$", code, flags=re.M):
        start, end = match.span(1)
        add("condition", start, end, "!(" + text[start:end] + ")")
    for match in re.finditer(r"(?<=[(, ])([\w.:>\-]+(?:\(\))?), ([\w.:>\-]+(?:\(\))?)(?=[,)])", code):
        start, end = match.span()
        line = code[code.rfind("\n", 0, start) + 1 : start]
        # Where the order says nothing, a swap is no fault.
        if not re.search(r"\b(?:min|max|hypot|strcmp|strcasecmp)(?:<[^<>]*>)?\($|^\s*double [\w, ]*$", line):
            add("swap", start, end, text[match.start(2) : end] + ", " + text[start : match.end(1)])
    for match in re.finditer(rf"<< ({OPERAND}) << QsdSpc\(\)\s+<< ({OPERAND})(?=\s+<<|;)", code):
        (s1, e1), (s2, e2) = match.span(1), match.span(2)
        add("swap", s1, e2, text[s2:e2] + text[e1:s2] + text[s1:e1])
    for match in re.finditer(r"(?<=[;{}])(?:[ \t]*\n)+[ \t]+([^\s;{}][^;{}]*;)[ \t]*$", code, flags=re.M):
        # What declares something cannot be left out, and what is no statement need not.
        if re.match(r"(?:return|using|typedef|static_assert|constexpr|const|auto|public|private|case|default)\b", match.group(1)):
            continue
        if re.match(r"[\w:.>\-\[\]*()]+(?:\(|\+\+| = | \+= | <<)|\+\+|--|break|continue|delete", match.group(1)):
            add("statement", *match.span(1), ";")
    for match in re.finditer(r"^[ \t]+(?:return|continue);$", code, flags=re.M):
        add("statement", *match.span(), ";")
    comments = re.compile(r"//[^\n]*|^[ \t]*#[^\n]*|(" + STRING + ")", flags=re.M)
    for match in comments.finditer(text):
        if match.group(1) and len(match.group(1)) > 2:
            start, end = match.span(1)
            add("text", start + 1, end - 1, changed_letter(text[start + 1 : end - 1], dice))
    return sites


def in_turns(sites, dice):
    """The sites in an order of chance in which all kinds take turns."""
    kinds = {}
    for site in sites:
        kinds.setdefault(site.kind, []).append(site)
    for of_kind in kinds.values():
        dice.shuffle(of_kind)
    while kinds:
        for kind in sorted(kinds):
            yield kinds[kind].pop()
            if not kinds[kind]:
                del kinds[kind]


def copy_tree(copy):
    """Brings the copy up to date; files that are the same keep their time, so that little is built anew."""
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=TOP, stdout=subprocess.PIPE, text=True,
                           check=True).stdout.splitlines()  # fmt: skip
    wanted = {name for name in names if (TOP / name).is_file()}
    for name in wanted:
        source, target = TOP / name, copy / name
        if not target.is_file() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(source, target)
    for target in copy.rglob("*"):
        if target.is_file() and str(target.relative_to(copy)) not in wanted:
            target.unlink()


class Tests:
    """The programs in the build folder of the copy."""

    def __init__(self, folder, jobs):
        self.copy, self.build, self.scratch = folder / "tree", folder / "build", folder / "scratch"
        self.jobs = jobs
        self.seconds = {}
        self.first = {}
        for part in (self.copy, self.scratch):
            part.mkdir(parents=True, exist_ok=True)

    def configure(self):
        """Only what the unit tests need, compiled as fast as can be."""
        subprocess.run(
            ["cmake", "-G", "Ninja", "-S", str(self.copy), "-B", str(self.build), "-DCMAKE_BUILD_TYPE=Debug",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -w", "-DDRAVONSET_TOOLS=OFF", "-DDRAVONSET_BENCH=OFF", "-DDRAVONSET_X11=OFF",
             "-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST"],
            stdout=subprocess.DEVNULL, check=True)  # fmt: skip

    def built(self, programs, output=subprocess.DEVNULL, cached=False):
        """Whether they compile. What a fault makes of a file is not worth keeping in a cache."""
        environment = dict(os.environ) if cached else dict(os.environ, CCACHE_DISABLE="1")
        return subprocess.run(["ninja", "-C", str(self.build), "-j", str(self.jobs), *programs], env=environment,
                              stdout=output, stderr=output).returncode == 0  # fmt: skip

    def passes(self, program, limit):
        """Whether the program finds nothing, in `limit` seconds, with little memory and disk."""

        def restrict():
            os.setsid()
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 30, 1 << 30))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

        path = next(self.build.glob(f"tests/**/{program}"))
        shutil.rmtree(self.scratch)
        self.scratch.mkdir()
        environment = dict(os.environ, TEST_TMPDIR=str(self.scratch), TMPDIR=str(self.scratch),
                           LOCPATH=str(self.build / "locales"), SOURCE_DATE_EPOCH="1700000000")  # fmt: skip
        with subprocess.Popen([str(path), "--gtest_brief=1", "--gtest_fail_fast"], cwd=self.scratch, env=environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              preexec_fn=restrict) as process:  # fmt: skip
            try:
                return process.wait(limit) == 0
            except subprocess.TimeoutExpired:
                return False
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, 9)

    def check_without_faults(self):
        """Ends the script when a test fails as it is; notes how long each program takes."""
        if not self.built(PROGRAMS, output=None, cached=True):
            sys.exit(2)
        for program in PROGRAMS:
            start = time.monotonic()
            if not self.passes(program, 600):
                print(f"mutants.py: {program} fails without any fault", file=sys.stderr)
                sys.exit(2)
            self.seconds[program] = time.monotonic() - start

    def notice(self, site):
        """The program that notices a fault in the copy, "" when none does, None when the fault does not compile."""
        # What noticed the last fault of a file is likely to notice the next.
        programs = sorted(PROGRAMS, key=lambda program: program != self.first.get(site.path))
        for program in programs:
            if not self.built([program]):
                return None
            if not self.passes(program, 20 + 10 * self.seconds[program]):
                self.first[site.path] = program
                return program
        return ""

    def result(self, site):
        target = self.copy / site.path
        text = target.read_text(encoding="utf-8")
        target.write_text(site.applied(text), encoding="utf-8")
        try:
            return self.notice(site)
        finally:
            target.write_text(text, encoding="utf-8")


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-n", "--count", type=int, default=100, help="how many faults that compile are tried")
    parser.add_argument("--seed", type=int, default=1, help="picks the places")
    parser.add_argument("--most", type=int, default=4, help="how many may survive")
    parser.add_argument("--only", help="numbers of faults, joined by commas, to try again")
    parser.add_argument("-j", "--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--folder", type=pathlib.Path, help="where the copy of the tree is kept")
    parser.add_argument("files", nargs="*", help="sources, from the top of the tree; all of ps/ when there are none")
    return parser.parse_args()


def main():
    options = arguments()
    os.nice(10)
    name = "dravonset-mutants-" + hashlib.sha256(str(TOP).encode()).hexdigest()[:8]
    tests = Tests((options.folder or pathlib.Path(tempfile.gettempdir()) / name).resolve(), options.jobs)
    copy_tree(tests.copy)
    tests.configure()
    tests.check_without_faults()

    dice = random.Random(options.seed)
    files = options.files or sorted(str(path.relative_to(TOP)) for path in (TOP / "ps").rglob("*.cpp"))
    texts = {path: (tests.copy / path).read_text(encoding="utf-8") for path in files}
    sites = [site for path, text in texts.items() for site in sites_of(path, text, dice)]
    only = {int(number) for number in options.only.split(",")} if options.only else None

    tried, survivors = 0, 0
    for number, site in enumerate(in_turns(sites, dice)):
        if tried == (len(only) if only else options.count):
            break
        if only and number not in only:
            continue
        noticed = tests.result(site)
        if noticed is None:
            continue
        tried += 1
        if not noticed:
            survivors += 1
            print(f"survivor {number}: {site.told(texts[site.path])}", flush=True)
    print(f"{survivors} of {tried} faults survived ({len(sites)} places, seed {options.seed})")
    sys.exit(1 if survivors > options.most else 0)


if __name__ == "__main__":
    main()
