// Files given to the tool.
#pragma once

#include "images/byte_source.h"
#include "values/result.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <sys/types.h>

namespace qsdps {

/// An open file, or standard input, of which one may look at the beginning before reading.
class Input : public ByteSource {
public:
    /// Opens a file, or standard input for "-". An error when it cannot be read or is empty.
    [[nodiscard]] static Result<std::unique_ptr<Input>> open(const std::string& name);

    /// Takes over what another program writes into `file` (a pipe), which is closed and the program waited for at the
    /// end. An error when that is nothing.
    [[nodiscard]] static Result<std::unique_ptr<Input>> ofProgram(std::FILE* file, pid_t program);

    /// How it begins: its first bytes, fewer than 16 only when it has no more. Valid as long as the object.
    [[nodiscard]] std::string_view start() const { return {_start.data(), _startSize}; }
    /// Whether opening it by its name again gives the same bytes again.
    [[nodiscard]] bool canBeReopened() const;
    std::size_t read(std::uint8_t* out, std::size_t count) noexcept override;
    /// Reads all that is left. An error when that fails or is more than fits in memory.
    [[nodiscard]] Result<std::string> readAll();
    /// Why reading failed; empty when it did not.
    [[nodiscard]] std::string failure() const;

private:
    struct Closer {
        pid_t program; ///< 0: none

        void operator()(std::FILE* file) const;
    };

    Input(std::FILE* file, pid_t program) : _file(file, Closer{program}) {}
    /// The input when it has a beginning, which is looked at.
    [[nodiscard]] static Result<std::unique_ptr<Input>> begun(std::unique_ptr<Input> input);

    std::unique_ptr<std::FILE, Closer> _file;
    int _error = 0; ///< of the system; 0: none
    std::array<char, 16> _start{};
    std::size_t _startSize = 0;
    std::size_t _at = 0; ///< how many of the first bytes have been read
};

/// The folder that a file lies in; empty for standard input.
[[nodiscard]] std::filesystem::path folderOf(const std::string& name);

} // namespace qsdps
