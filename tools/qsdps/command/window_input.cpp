#include "command/window_input.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

extern char** environ;

namespace qsdps {

namespace {

constexpr const char* ReaderName = "qsdps-window";

/// The program to start: the one beside this, where the system tells where this is.
std::string readerProgram()
{
    std::error_code problem;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", problem);
    const std::filesystem::path beside = self.parent_path() / ReaderName;
    return !problem && std::filesystem::exists(beside, problem) ? beside.string() : ReaderName;
}

/// Starts the program with its standard output going to `writeEnd`; returns an error of the system, 0: none.
int start(const std::string& window, bool quiet, int writeEnd, pid_t& program)
{
    const std::string path = readerProgram();
    // posix_spawn promises not to change its arguments.
    char* const arguments[] = {const_cast<char*>(ReaderName), const_cast<char*>(quiet ? "-q" : "--"),
                               const_cast<char*>(window.c_str()), nullptr};
    posix_spawn_file_actions_t actions;
    int failed = posix_spawn_file_actions_init(&actions);
    if (failed != 0) {
        return failed;
    }
    failed = posix_spawn_file_actions_adddup2(&actions, writeEnd, STDOUT_FILENO);
    if (failed == 0) {
        failed = posix_spawnp(&program, path.c_str(), &actions, nullptr, arguments, environ);
    }
    posix_spawn_file_actions_destroy(&actions);
    return failed;
}

} // namespace

Result<std::unique_ptr<Input>> openWindow(const std::string& window, bool quiet)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return Error{std::strerror(errno)};
    }
    pid_t program = 0;
    const int failed = start(window, quiet, ends[1], program);
    close(ends[1]);
    std::FILE* const file = failed == 0 ? fdopen(ends[0], "rb") : nullptr;
    if (file == nullptr) {
        const Error error{failed == ENOENT
                              ? "the program qsdps-window, which reads windows of the X Window System, is not installed"
                              : std::strerror(failed == 0 ? errno : failed)};
        close(ends[0]);
        // A program that nobody listens to ends by itself.
        while (failed == 0 && waitpid(program, nullptr, 0) == -1 && errno == EINTR) {
        }
        return error;
    }
    Result<std::unique_ptr<Input>> input = Input::ofProgram(file, program);
    if (!input) {
        return Error{"cannot be read"};
    }
    return input;
}

} // namespace qsdps
