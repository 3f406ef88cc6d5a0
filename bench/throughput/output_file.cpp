#include "bench/throughput/output_file.h"

#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace bench {

OutputFile::OutputFile(const char* fileName) : _file(open(fileName, O_WRONLY | O_CREAT | O_TRUNC, 0666))
{
    if (_file < 0) {
        throw std::runtime_error("no file");
    }
}

OutputFile::~OutputFile()
{
    close(_file);
}

void OutputFile::write(const char* text, std::size_t length) const
{
    while (length > 0) {
        const ssize_t written = ::write(_file, text, length);
        if (written <= 0) {
            throw std::runtime_error("not written");
        }
        text += written;
        length -= static_cast<std::size_t>(written);
    }
}

} // namespace bench
