#include "output_file.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <streambuf>
#include <sys/stat.h>
#include <unistd.h>

namespace qsdps {

namespace {

/// The file to remove when a signal ends the program; one output is written at a time.
std::array<char, 4096> removedBySignal{};

void removeAndDie(int signal)
{
    if (removedBySignal[0] != '\0') {
        unlink(removedBySignal.data());
    }
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void removeOnSignal(const std::string& path)
{
    if (path.size() < removedBySignal.size()) {
        std::memcpy(removedBySignal.data(), path.c_str(), path.size() + 1);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
            std::signal(signal, removeAndDie);
        }
    }
}

/// The permissions that a new file would get.
mode_t newFileMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

/// Follows symbolic links to the name of what they stand for, which need not be there yet. Links that go round are left
/// to the system to complain about.
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

} // namespace

/// Writes to a file descriptor at once.
class OutputFile::Buffer : public std::streambuf {
public:
    Buffer(int descriptor, bool closes) : _descriptor(descriptor), _closes(closes) {}
    ~Buffer() override { close(); }

    [[nodiscard]] int error() const { return _error; }

    void close()
    {
        if (_closes && ::close(_descriptor) != 0 && _error == 0) {
            _error = errno;
        }
        _closes = false;
    }

protected:
    int_type overflow(int_type c) override
    {
        if (traits_type::eq_int_type(c, traits_type::eof())) {
            return traits_type::not_eof(c);
        }
        const char character = traits_type::to_char_type(c);
        return xsputn(&character, 1) == 1 ? c : traits_type::eof();
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        std::streamsize done = 0;
        while (done != count && _error == 0) {
            const ssize_t written = write(_descriptor, text + done, static_cast<std::size_t>(count - done));
            if (written > 0) {
                done += written;
            } else if (written < 0 && errno != EINTR) {
                _error = errno;
            }
        }
        return done;
    }
    int sync() override { return _error == 0 ? 0 : -1; }

private:
    int _descriptor;
    bool _closes;
    int _error = 0;
};

OutputFile::OutputFile(std::string name) : _name(std::move(name)) {}

OutputFile::~OutputFile()
{
    discard();
}

bool OutputFile::open(std::string& error)
{
    std::signal(SIGPIPE, SIG_IGN);
    int descriptor = STDOUT_FILENO;
    if (_name != "-") {
        struct stat status {};
        const bool exists = stat(_name.c_str(), &status) == 0;
        if (!exists && errno == ELOOP) {
            error = std::strerror(errno);
            return false;
        }
        if (exists && !S_ISREG(status.st_mode)) {
            descriptor = ::open(_name.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        } else {
            _final = linkTarget(_name);
            _temporary = _final + ".XXXXXX";
            descriptor = mkostemp(_temporary.data(), O_CLOEXEC);
            if (descriptor < 0) {
                _temporary.clear();
            } else {
                fchmod(descriptor, exists ? status.st_mode & 07777 : newFileMode());
                removeOnSignal(_temporary);
            }
        }
        if (descriptor < 0) {
            error = std::strerror(errno);
            return false;
        }
    }
    _buffer = std::make_unique<Buffer>(descriptor, _name != "-");
    _stream = std::make_unique<std::ostream>(_buffer.get());
    return true;
}

bool OutputFile::commit(std::string& error)
{
    _buffer->close();
    if (_buffer->error() != 0) {
        error = std::strerror(_buffer->error());
        return false;
    }
    if (!_temporary.empty() && std::rename(_temporary.c_str(), _final.c_str()) != 0) {
        error = std::strerror(errno);
        return false;
    }
    _temporary.clear();
    removedBySignal[0] = '\0';
    return true;
}

void OutputFile::discard()
{
    if (!_temporary.empty()) {
        unlink(_temporary.c_str());
        _temporary.clear();
        removedBySignal[0] = '\0';
    }
}

} // namespace qsdps
