// What a fuzzer makes of its bytes: numbers, texts, decisions. At the end of the bytes everything is zero or empty.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

class Choices {
public:
    Choices(const std::uint8_t* data, std::size_t size) : _rest(reinterpret_cast<const char*>(data), size) {}

    [[nodiscard]] bool atEnd() const { return _rest.empty(); }
    std::uint8_t byte() { return value<std::uint8_t>(); }
    bool flag() { return byte() % 2 != 0; }
    /// Below `count`, which is above 0.
    std::uint32_t below(std::uint32_t count) { return (count > 256 ? value<std::uint32_t>() : byte()) % count; }

    /// A number near zero, at an end of its range, or any.
    template <class Integer>
    Integer integer()
    {
        using Limits = std::numeric_limits<Integer>;
        switch (byte() % 6) {
        case 0:
            return Limits::min();
        case 1:
            return Limits::max();
        case 2:
            return value<Integer>();
        default:
            return static_cast<Integer>(value<std::int8_t>());
        }
    }
    /// A number of everyday life, a special one, or any.
    double real()
    {
        constexpr double Special[] = {0,
                                      -0.0,
                                      1,
                                      -1,
                                      0.5,
                                      90,
                                      360,
                                      1e-300,
                                      -1e300,
                                      4e9,
                                      std::numeric_limits<double>::infinity(),
                                      -std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::quiet_NaN(),
                                      std::numeric_limits<double>::denorm_min(),
                                      std::numeric_limits<double>::max()};
        const std::uint8_t kind = byte();
        if (kind < std::size(Special)) {
            return Special[kind];
        }
        return kind % 2 == 0 ? value<double>() : value<std::int16_t>() / 16.0;
    }
    /// The next bytes as text: a length byte, then as many bytes as there are.
    std::string text() { return taken(byte()); }
    /// All bytes that are left.
    std::string restOfBytes() { return taken(_rest.size()); }

private:
    template <class Value>
    Value value()
    {
        char bytes[sizeof(Value)] = {};
        const std::string_view part = _rest.substr(0, sizeof bytes);
        std::copy(part.begin(), part.end(), bytes);
        _rest.remove_prefix(part.size());
        Value result;
        std::memcpy(&result, bytes, sizeof result);
        return result;
    }
    std::string taken(std::size_t size)
    {
        const std::string result(_rest.substr(0, size));
        _rest.remove_prefix(result.size());
        return result;
    }

    std::string_view _rest;
};
