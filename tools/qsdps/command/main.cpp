// qsdps: drawings into PostScript.
#include "command/convert.h"
#include "command/options.h"
#include "command/standard_files.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    if (!qsdps::openStandardFiles()) {
        return 1;
    }
    try {
        int exitCode = 0;
        const std::optional<qsdps::Options> options = qsdps::parseOptions(argc, argv, exitCode);
        if (!options) {
            return qsdps::finishStandardOutput("qsdps") ? exitCode : 1;
        }
        return qsdps::convert(*options);
    } catch (const std::exception& error) {
        std::cerr << "qsdps: " << error.what() << '\n';
        return 1;
    }
}
