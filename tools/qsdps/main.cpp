// qsdps: drawings into PostScript.
#include "convert.h"
#include "options.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv)
{
    try {
        int exitCode = 0;
        const std::optional<qsdps::Options> options = qsdps::parseOptions(argc, argv, exitCode);
        return options ? qsdps::convert(*options) : exitCode;
    } catch (const std::exception& error) {
        std::cerr << "qsdps: " << error.what() << '\n';
        return 1;
    }
}
