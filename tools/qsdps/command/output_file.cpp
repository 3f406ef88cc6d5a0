#include "command/output_file.h"

#include "command/output_check.h"
#include "command/removed_on_signal.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <streambuf>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace qsdps {

namespace {

/// The permissions that a new file would get.
mode_t newFileMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

/// The name, to be filled in, of a file that waits in the folder of another. It is short, whatever the other's is: the
/// system may take no longer name than that.
std::string temporaryBeside(const std::string& file)
{
    return (std::filesystem::path(file).parent_path() / "qsdps-XXXXXX").string();
}

} // namespace

/// Writes to a file descriptor at once.
class OutputFile::Buffer : public std::streambuf {
public:
    Buffer(int descriptor, bool closes) : _descriptor(descriptor), _closes(closes) {}
    ~Buffer() override { close(); }

    [[nodiscard]] int error() const { return _error; }

    /// Some file systems tell of a failed write no earlier than this. Of a file that others hold open as well, a second
    /// descriptor is closed.
    void close()
    {
        const int closed = std::exchange(_closed, true) ? -1 : _closes ? _descriptor : dup(_descriptor);
        if (closed >= 0 && ::close(closed) != 0 && _error == 0) {
            _error = errno;
        }
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
    bool _closes; ///< whether nobody else holds the file
    bool _closed = false;
    int _error = 0;
};

OutputFile::OutputFile(std::string name) : _name(std::move(name)) {}

OutputFile::~OutputFile()
{
    discard();
}

Status OutputFile::open()
{
    std::signal(SIGPIPE, SIG_IGN);
    const Result<int> descriptor = _name == "-" ? STDOUT_FILENO : openNamed();
    if (!descriptor) {
        return descriptor.error();
    }
    _buffer = std::make_unique<Buffer>(*descriptor, _name != "-");
    _stream = std::make_unique<std::ostream>(_buffer.get());
    return {};
}

Result<int> OutputFile::openNamed()
{
    struct stat status {};
    const bool exists = stat(_name.c_str(), &status) == 0;
    if (_name.empty() || (!exists && errno != ENOENT)) {
        return Error{std::strerror(errno)};
    }
    if (exists && S_ISREG(status.st_mode) && !mayBeReplaced(_name, status)) {
        return Error{"the file of this name is write-protected"};
    }
    const int descriptor = exists && !S_ISREG(status.st_mode)
                               ? ::open(_name.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC)
                               : openTemporary(exists ? status.st_mode & 07777 : newFileMode());
    if (descriptor < 0) {
        return Error{std::strerror(errno)};
    }
    return descriptor;
}

int OutputFile::openTemporary(mode_t mode)
{
    _final = linkTarget(_name);
    _temporary = temporaryBeside(_final);
    const int descriptor = createRemovedOnSignal(_temporary);
    if (descriptor < 0) {
        _temporary.clear();
        return descriptor;
    }
    // A file system without permissions refuses; the document is whole all the same.
    static_cast<void>(fchmod(descriptor, mode));
    return descriptor;
}

int OutputFile::writeError() const
{
    return _buffer->error();
}

Status OutputFile::commit()
{
    _buffer->close();
    if (_buffer->error() != 0) {
        return Error{std::strerror(_buffer->error())};
    }
    if (!_temporary.empty() && std::rename(_temporary.c_str(), _final.c_str()) != 0) {
        return Error{std::strerror(errno)};
    }
    _temporary.clear();
    keepOnSignal();
    return {};
}

void OutputFile::discard()
{
    if (!_temporary.empty()) {
        unlink(_temporary.c_str());
        _temporary.clear();
        keepOnSignal();
    }
}

} // namespace qsdps
