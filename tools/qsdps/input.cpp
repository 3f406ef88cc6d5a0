#include "input.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace qsdps {

namespace {

struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

constexpr std::size_t LargestInput = std::size_t{1} << 30;

bool readAll(std::FILE* file, std::string& bytes, std::string& error)
{
    std::array<char, 65536> block;
    for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), file)) != 0;) {
        bytes.append(block.data(), count);
        if (bytes.size() > LargestInput) {
            error = "too large";
            return false;
        }
    }
    if (std::ferror(file) != 0) {
        error = std::strerror(errno);
        return false;
    }
    return true;
}

} // namespace

bool readInput(const std::string& name, std::string& bytes, std::string& error)
{
    if (name == "-") {
        return readAll(stdin, bytes, error);
    }
    const std::unique_ptr<std::FILE, Closer> file(std::fopen(name.c_str(), "rb"));
    if (file == nullptr) {
        error = std::strerror(errno);
        return false;
    }
    return readAll(file.get(), bytes, error);
}

std::filesystem::path folderOf(const std::string& name)
{
    if (name == "-") {
        return {};
    }
    const std::filesystem::path folder = std::filesystem::path(name).parent_path();
    return folder.empty() ? std::filesystem::path(".") : folder;
}

} // namespace qsdps
