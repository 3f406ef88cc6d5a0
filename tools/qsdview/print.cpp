#include "qsdview/print.h"

#include "command/convert.h"
#include "command/toolkit_messages.h"

#include <filesystem>
#include <stdexcept>

namespace qsdview {

qsdps::Options documentOptions(const std::vector<std::string>& files, const std::string& output)
{
    const std::string outputOption = "--output=" + output;
    std::vector<const char*> arguments = {"qsdps", outputOption.c_str(), "--"};
    for (const std::string& file : files) {
        arguments.push_back(file.c_str());
    }
    int exitCode = 0;
    std::optional<qsdps::Options> options =
        qsdps::parseOptions(static_cast<int>(arguments.size()), arguments.data(), exitCode);
    if (!options) {
        throw std::invalid_argument("this cannot be printed");
    }
    options->program = "qsdview";
    return *std::move(options);
}

int print(const std::vector<std::string>& files, const std::string& output)
{
    const int status = qsdps::convert(documentOptions(files, output));
    // While a document is written, its writer tells what fails; afterwards the window may.
    qsdps::tellToolkitMessages("qsdview");
    return status;
}

std::string documentNameFor(const std::string& file)
{
    return std::filesystem::path(file).stem().string() + ".ps";
}

} // namespace qsdview
