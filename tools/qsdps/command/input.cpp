#include "command/input.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <sys/wait.h>

namespace qsdps {

namespace {

constexpr std::size_t LargestInput = std::size_t{1} << 30;

} // namespace

void Input::Closer::operator()(std::FILE* file) const
{
    if (file != stdin) {
        std::fclose(file);
    }
    while (program != 0 && waitpid(program, nullptr, 0) == -1 && errno == EINTR) {
    }
}

std::unique_ptr<Input> Input::open(const std::string& name, std::string& error)
{
    std::FILE* const file = name == "-" ? stdin : std::fopen(name.c_str(), "rb");
    if (file == nullptr) {
        error = std::strerror(errno);
        return nullptr;
    }
    std::unique_ptr<Input> input(new Input(file, 0));
    return input->begin(error) ? std::move(input) : nullptr;
}

std::unique_ptr<Input> Input::ofProgram(std::FILE* file, pid_t program, std::string& error)
{
    std::unique_ptr<Input> input(new Input(file, program));
    return input->begin(error) ? std::move(input) : nullptr;
}

bool Input::begin(std::string& error)
{
    std::array<char, 16> start;
    const std::size_t size = read(reinterpret_cast<std::uint8_t*>(start.data()), start.size());
    if (size == 0) {
        error = _error != 0 ? failure() : "the file is empty";
        return false;
    }
    _start = start;
    _startSize = size;
    return true;
}

bool Input::canBeReopened() const
{
    struct stat status {};
    return _file.get() != stdin && fstat(fileno(_file.get()), &status) == 0 && S_ISREG(status.st_mode);
}

std::size_t Input::read(std::uint8_t* out, std::size_t count) noexcept
{
    const std::size_t kept = std::min(count, _startSize - _at);
    std::copy_n(_start.data() + _at, kept, out);
    _at += kept;
    const std::size_t more = std::fread(out + kept, 1, count - kept, _file.get());
    if (more < count - kept && std::ferror(_file.get()) != 0) {
        _error = errno;
    }
    return kept + more;
}

bool Input::readAll(std::string& bytes, std::string& error)
{
    std::array<std::uint8_t, 65536> block;
    for (std::size_t count = 0; (count = read(block.data(), block.size())) != 0;) {
        bytes.append(reinterpret_cast<const char*>(block.data()), count);
        if (bytes.size() > LargestInput) {
            error = "too large";
            return false;
        }
    }
    error = failure();
    return error.empty();
}

std::string Input::failure() const
{
    return _error == 0 ? std::string() : std::strerror(_error);
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
