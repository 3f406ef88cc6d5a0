// Character sets of the C library.
#pragma once

#include <cstddef>
#include <iconv.h>
#include <string>
#include <string_view>

namespace qsdps {

/// Converts texts from one character set to another.
class Iconv {
public:
    /// Names of character sets as iconv_open takes them.
    Iconv(const char* from, const char* to) : _descriptor(iconv_open(to, from)) {}
    ~Iconv();
    Iconv(const Iconv&) = delete;
    Iconv& operator=(const Iconv&) = delete;

    /// Whether the C library knows both character sets; nothing else may be called where it does not.
    [[nodiscard]] bool isOpen() const { return _descriptor != reinterpret_cast<iconv_t>(-1); }
    /// Appends what `text` comes to, up to the first bytes that make no character or that the other set lacks. Returns
    /// how many bytes of `text` were converted: all of them where nothing is wrong.
    [[nodiscard]] std::size_t convert(std::string_view text, std::string& out) const;

private:
    iconv_t _descriptor;
};

} // namespace qsdps
