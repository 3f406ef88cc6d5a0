#include "command/removed_on_signal.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace qsdps {

namespace {

/// Those that end a program and that it may still do something about.
constexpr int EndingSignals[] = {SIGHUP,  SIGINT,  SIGQUIT, SIGTERM, SIGABRT,   SIGALRM,
                                 SIGUSR1, SIGUSR2, SIGXCPU, SIGXFSZ, SIGVTALRM, SIGPROF};

std::array<char, 4096> removedPath{}; ///< empty: none; the system takes no longer paths

/// The signal has its usual effect again by now, once this returns.
void removeAndDie(int signal)
{
    if (removedPath[0] != '\0') {
        unlink(removedPath.data());
    }
    std::raise(signal);
}

/// Puts signals off for as long as it lives.
class SignalsPutOff {
public:
    SignalsPutOff()
    {
        sigset_t all;
        sigfillset(&all);
        sigprocmask(SIG_SETMASK, &all, &_before);
    }
    ~SignalsPutOff() { sigprocmask(SIG_SETMASK, &_before, nullptr); }
    SignalsPutOff(const SignalsPutOff&) = delete;
    SignalsPutOff& operator=(const SignalsPutOff&) = delete;

private:
    sigset_t _before;
};

void handleSignals()
{
    struct sigaction handling {};
    handling.sa_handler = removeAndDie;
    handling.sa_flags = static_cast<int>(SA_RESETHAND);
    sigfillset(&handling.sa_mask);
    for (const int signal : EndingSignals) {
        struct sigaction before {};
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_DFL) {
            sigaction(signal, &handling, nullptr);
        }
    }
}

} // namespace

int createRemovedOnSignal(std::string& path)
{
    // None comes between the file and the note of its name.
    const SignalsPutOff putOff;
    if (path.size() >= removedPath.size()) {
        errno = ENAMETOOLONG;
        return -1;
    }
    const int descriptor = mkostemp(path.data(), O_CLOEXEC);
    if (descriptor >= 0) {
        std::memcpy(removedPath.data(), path.c_str(), path.size() + 1);
        handleSignals();
    }
    return descriptor;
}

void keepOnSignal()
{
    removedPath[0] = '\0';
}

} // namespace qsdps
