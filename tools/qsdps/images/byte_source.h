// Where the bytes of a picture come from.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qsdps {

/// Bytes read once, from first to last.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    /// Reads up to `count` bytes into `out` and returns how many; fewer at the end, or where reading fails, alone.
    /// Throws nothing: decoders call it through C.
    virtual std::size_t read(std::uint8_t* out, std::size_t count) noexcept = 0;
};

/// Bytes in memory that somebody else owns and that outlive it.
class MemorySource : public ByteSource {
public:
    explicit MemorySource(std::string_view bytes) : _bytes(bytes) {}

    std::size_t read(std::uint8_t* out, std::size_t count) noexcept override
    {
        const std::string_view part = _bytes.substr(0, count);
        std::copy(part.begin(), part.end(), out);
        _bytes.remove_prefix(part.size());
        return part.size();
    }

private:
    std::string_view _bytes;
};

} // namespace qsdps
