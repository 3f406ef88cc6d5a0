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

Result<std::unique_ptr<Input>> Input::open(const std::string& name)
{
    std::FILE* const file = name == "-" ? stdin : std::fopen(name.c_str(), "rb");
    if (file == nullptr) {
        return Error{std::strerror(errno)};
    }
    return begun(std::unique_ptr<Input>(new Input(file, 0)));
}

Result<std::unique_ptr<Input>> Input::ofProgram(std::FILE* file, pid_t program)
{
    return begun(std::unique_ptr<Input>(new Input(file, program)));
}

Result<std::unique_ptr<Input>> Input::begun(std::unique_ptr<Input> input)
{
    std::array<char, 16> start;
    const std::size_t size = input->read(reinterpret_cast<std::uint8_t*>(start.data()), start.size());
    if (size == 0) {
        return Error{input->_error != 0 ? input->failure() : "the file is empty"};
    }
    input->_start = start;
    input->_startSize = size;
    return input;
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

Result<std::string> Input::readAll()
{
    std::string bytes;
    std::array<std::uint8_t, 65536> block;
    for (std::size_t count = 0; (count = read(block.data(), block.size())) != 0;) {
        bytes.append(reinterpret_cast<const char*>(block.data()), count);
        if (bytes.size() > LargestInput) {
            return Error{"too large"};
        }
    }
    if (_error != 0) {
        return Error{failure()};
    }
    return bytes;
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
