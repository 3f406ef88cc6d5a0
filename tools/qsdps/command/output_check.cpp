#include "command/output_check.h"

#include "command/document_page.h"
#include "values/lower_case.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <unistd.h>

namespace qsdps {

namespace {

/// In lower case, by what they stand for.
constexpr std::string_view ForeignEndings[] = {
    // Drawings and pictures
    ".svg", ".svgz", ".png", ".apng", ".jpg", ".jpeg", ".jpe", ".jfif", ".jp2", ".jxl", ".gif", ".bmp", ".tif", ".tiff",
    ".webp", ".avif", ".heic", ".heif", ".ico", ".xbm", ".xpm", ".xwd", ".pnm", ".pbm", ".pgm", ".ppm", ".pam", ".xcf",
    ".psd", ".emf", ".wmf", ".dxf",
    // Documents of other kinds
    ".pdf", ".dvi", ".djvu", ".xps", ".odt", ".odg", ".doc", ".docx", ".html", ".htm", ".xml", ".tex", ".md", ".txt",
    // Packed files
    ".gz", ".bz2", ".xz", ".zst", ".z", ".zip", ".tar", ".tgz"};

/// The state of the file that `name` stands for, where "-" is the open file `standard`; false when there is none.
bool stateOf(const std::string& name, int standard, struct stat& status)
{
    return (name == "-" ? fstat(standard, &status) : stat(name.c_str(), &status)) == 0;
}

bool endsForeignly(const std::string& ending)
{
    return std::find(std::begin(ForeignEndings), std::end(ForeignEndings), lowerCase(ending)) !=
           std::end(ForeignEndings);
}

} // namespace

std::string linkTarget(std::string name)
{
    constexpr int MostLinks = 40; // as the system has it
    for (int i = 0; i < MostLinks; ++i) {
        std::error_code error;
        const std::filesystem::path target = std::filesystem::read_symlink(name, error);
        if (error) {
            break;
        }
        name = (std::filesystem::path(name).parent_path() / target).string();
    }
    return name;
}

std::string inputUnderOutput(const Options& options)
{
    struct stat output {};
    if (!stateOf(options.output, STDOUT_FILENO, output) || !S_ISREG(output.st_mode)) {
        return {};
    }
    const auto isOutput = [&](const std::string& name) {
        struct stat status {};
        return stateOf(name, STDIN_FILENO, status) && status.st_dev == output.st_dev && status.st_ino == output.st_ino;
    };
    for (const Source& input : options.inputs) {
        if (input.kind == Source::File && isOutput(input.name)) {
            return nameOfInput(input);
        }
    }
    return !options.fontMap.empty() && isOutput(options.fontMap) ? options.fontMap : std::string();
}

std::string foreignEnding(const std::string& name)
{
    for (const std::string& each : {name, linkTarget(name)}) {
        std::string ending = std::filesystem::path(each).extension().string();
        if (endsForeignly(ending)) {
            return ending;
        }
    }
    return {};
}

bool mayBeReplaced(const std::string& name, const struct stat& status)
{
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) != 0 &&
           faccessat(AT_FDCWD, name.c_str(), W_OK, AT_EACCESS) == 0;
}

} // namespace qsdps
