#include "values/iconv.h"

#include <array>
#include <cerrno>

namespace qsdps {

Iconv::~Iconv()
{
    if (isOpen()) {
        iconv_close(_descriptor);
    }
}

std::size_t Iconv::convert(std::string_view text, std::string& out) const
{
    iconv(_descriptor, nullptr, nullptr, nullptr, nullptr);
    // iconv promises not to change what it reads.
    char* from = const_cast<char*>(text.data());
    std::size_t left = text.size();
    std::array<char, 4096> block;
    while (left > 0) {
        const std::size_t before = left;
        char* to = block.data();
        std::size_t room = block.size();
        const std::size_t changed = iconv(_descriptor, &from, &left, &to, &room);
        const bool isFull = changed == static_cast<std::size_t>(-1) && errno == E2BIG;
        const bool isLike = changed != static_cast<std::size_t>(-1) && changed > 0;
        if (isLike) {
            // Something was replaced by what only looks like it.
            return text.size() - before;
        }
        out.append(block.data(), block.size() - room);
        if (!isFull) {
            break;
        }
    }
    return text.size() - left;
}

} // namespace qsdps
