#include "bench/throughput/formatting.h"

#include <algorithm>
#include <charconv>
#include <cstring>

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\n';
}

} // namespace

namespace bench {

void Block::flush()
{
    _file.write(_block, _used);
    _used = 0;
}

void Block::reserve()
{
    if (Size - _used < Room) {
        flush();
    }
}

void Block::put(std::string_view text)
{
    while (text.size() > Size - _used) {
        const std::size_t part = Size - _used;
        std::memcpy(_block + _used, text.data(), part);
        _used = Size;
        flush();
        text.remove_prefix(part);
    }
    std::memcpy(_block + _used, text.data(), text.size());
    _used += text.size();
}

void Block::put(std::int32_t number)
{
    reserve();
    _used = static_cast<std::size_t>(std::to_chars(_block + _used, _block + Size, number).ptr - _block);
}

void Block::putBase85(const std::vector<unsigned char>& bytes)
{
    constexpr unsigned LineGroups = 15;
    unsigned groups = 0;
    for (std::size_t i = 0; i + 4 <= bytes.size(); i += 4) {
        reserve();
        std::uint32_t word = std::uint32_t{bytes[i]} << 24 | std::uint32_t{bytes[i + 1]} << 16 |
                             std::uint32_t{bytes[i + 2]} << 8 | bytes[i + 3];
        for (std::size_t digit = 5; digit-- > 0; word /= 85) {
            _block[_used + digit] = static_cast<char>('!' + word % 85);
        }
        _used += 5;
        if (++groups == LineGroups) {
            _block[_used++] = '\n';
            groups = 0;
        }
    }
}

Format::Format(std::string text) : _text(std::move(text))
{
    const char* const begin = _text.data();
    const char* const end = begin + _text.size();
    for (const char* at = begin; at != end;) {
        const char* const wordEnd = std::find_if(at, end, isBlank);
        std::int32_t number = 0;
        const auto [numberEnd, error] = std::from_chars(at, wordEnd, number);
        // What would come out differently, "007" say, is text.
        if (error == std::errc() && numberEnd == wordEnd && std::to_string(number) == std::string(at, wordEnd)) {
            _pieces.push_back({static_cast<std::uint32_t>(_rest),
                               static_cast<std::uint32_t>(static_cast<std::size_t>(at - begin) - _rest), number});
            _rest = static_cast<std::size_t>(wordEnd - begin);
        }
        at = std::find_if_not(wordEnd, end, isBlank);
    }
}

void Format::put(Block& block) const
{
    const char* const text = _text.data();
    for (const Piece& piece : _pieces) {
        block.put(std::string_view(text + piece.begin, piece.length));
        block.put(piece.number);
    }
    block.put(std::string_view(_text).substr(_rest));
}

} // namespace bench
