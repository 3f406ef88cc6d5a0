// Decimal digits of whole numbers, three at a time.
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Room that the digits of any integer take, with a sign, and that QsdPSPutInteger may write over behind them.
inline constexpr std::size_t QsdPSIntegerRoom = 32;

/// Of each number below 1000: its three digits, and how many of them are leading zeros. Behind the last one stands what
/// is copied with it and not used.
inline constexpr auto QsdPSDigitGroups = [] {
    std::array<char, 4 * 1000 + 4> groups{};
    for (unsigned value = 0; value < 1000; ++value) {
        char* const group = groups.data() + std::size_t{4} * value;
        group[0] = static_cast<char>('0' + value / 100);
        group[1] = static_cast<char>('0' + value / 10 % 10);
        group[2] = static_cast<char>('0' + value % 10);
        group[3] = static_cast<char>(value < 10 ? 2 : value < 100 ? 1 : 0);
    }
    return groups;
}();

/// Writes a number below 1000 without leading zeros and returns the place behind it. Always copies four characters, as
/// that is quicker than to ask for the length.
inline char* QsdPSPutShortInteger(char* at, std::uint32_t value)
{
    const char* const group = QsdPSDigitGroups.data() + std::size_t{4} * value;
    const auto zeros = static_cast<std::size_t>(static_cast<unsigned char>(group[3]));
    std::memcpy(at, group + zeros, 4);
    return at + (3 - zeros);
}

/// Writes an integer in plain decimal and returns the place behind it; there is room for QsdPSIntegerRoom characters.
template <std::integral Integer>
inline char* QsdPSPutInteger(char* at, Integer value)
{
    if (value >= 0 && value < Integer{1000}) {
        return QsdPSPutShortInteger(at, static_cast<std::uint32_t>(value));
    }
    if (value >= 0 && static_cast<std::uint64_t>(value) < 1000000) {
        const auto thousands = static_cast<std::uint32_t>(value) / 1000;
        at = QsdPSPutShortInteger(at, thousands);
        std::memcpy(at, QsdPSDigitGroups.data() + std::size_t{4} * (static_cast<std::uint32_t>(value) % 1000), 4);
        return at + 3;
    }
    return std::to_chars(at, at + QsdPSIntegerRoom, value).ptr;
}
