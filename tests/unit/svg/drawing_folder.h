// A folder for a drawing and the files that it names, with one file outside of it.
#pragma once

#include "svg/reader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

#include <unistd.h>

namespace qsdps {

/// The drawing's folder is "in", inside of one of this process.
class DrawingFolder : public testing::Test {
protected:
    DrawingFolder() : _folder(std::filesystem::temp_directory_path() / ("svg-files-" + std::to_string(getpid())))
    {
        std::filesystem::create_directories(_folder / "in/sub");
    }
    ~DrawingFolder() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(_folder, ignored);
    }

    void write(const std::string& name, const std::string& text) const
    {
        std::ofstream(_folder / name, std::ios::binary) << text;
    }
    /// Makes "in/NAME" stand for "TARGET" outside.
    void link(const std::string& target, const std::string& name) const
    {
        std::filesystem::create_symlink(_folder / target, _folder / "in" / name);
    }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return (_folder / name).string(); }
    [[nodiscard]] SvgOptions options() const
    {
        SvgOptions options;
        options.baseFolder = _folder / "in";
        return options;
    }

private:
    std::filesystem::path _folder;
};

} // namespace qsdps
