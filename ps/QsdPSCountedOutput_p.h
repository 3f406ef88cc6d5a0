// How long a text would be.
#pragma once

#include <cstdint>
#include <ostream>
#include <streambuf>

/// A stream that counts the characters it is given and keeps none.
class QsdPSCountedOutput : public std::ostream {
public:
    QsdPSCountedOutput() : std::ostream(nullptr) { rdbuf(&_buffer); }

    /// Characters written so far.
    [[nodiscard]] std::uint64_t size() const { return _buffer.size(); }

private:
    class Buffer : public std::streambuf {
    public:
        [[nodiscard]] std::uint64_t size() const { return _size; }

    protected:
        int_type overflow(int_type character) override
        {
            _size += traits_type::eq_int_type(character, traits_type::eof()) ? 0 : 1;
            return traits_type::not_eof(character);
        }
        std::streamsize xsputn(const char*, std::streamsize count) override
        {
            _size += static_cast<std::uint64_t>(count);
            return count;
        }

    private:
        std::uint64_t _size = 0;
    };

    Buffer _buffer;
};
