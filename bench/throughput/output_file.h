// A file that is written by the system's own calls.
#pragma once

#include <cstddef>

namespace bench {

/// Opens a file for writing, emptying it. Throws std::runtime_error when that, or writing, fails.
class OutputFile {
public:
    explicit OutputFile(const char* fileName);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Hands the bytes to the system, in one call if it takes them all.
    void write(const char* text, std::size_t length) const;

private:
    int _file;
};

} // namespace bench
