#include "command/standard_files.h"

#include <fcntl.h>
#include <iostream>
#include <unistd.h>

namespace qsdps {

bool openStandardFiles()
{
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(number, F_GETFD) != -1) {
            continue;
        }
        // The lowest free number is given, and all below this one are taken.
        const int wrongWay = number == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (open("/dev/null", wrongWay) != number && open("/", O_RDONLY) != number) {
            return false;
        }
    }
    return true;
}

bool finishStandardOutput(const std::string& program)
{
    std::cout.flush();
    if (std::cout.good()) {
        return true;
    }
    std::cerr << program << ": standard output: cannot be written\n";
    return false;
}

} // namespace qsdps
