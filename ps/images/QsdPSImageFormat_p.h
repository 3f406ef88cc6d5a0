// The smallest way to write the colours of an image.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

/// Looks at samples of 8 bits and finds out how few bits a pixel they can be written in without loss.
class QsdPSImageFormat {
public:
    enum Kind : std::uint8_t { Grey, Color, Indexed };

    /// For pixels of one component (grey) or three (red, green, blue).
    explicit QsdPSImageFormat(unsigned components) : _components(components) {}

    /// Takes `count` more pixels into account.
    void look(const unsigned char* samples, std::size_t count);
    /// Decides for an image of `width` by `height`; without `mayIndex` the interpreter knows no colour tables.
    void decide(std::size_t width, std::size_t height, bool mayIndex);

    [[nodiscard]] Kind kind() const { return _kind; }
    [[nodiscard]] unsigned bits() const { return _bits; }
    /// The colours of an indexed image as 0xRRGGBB.
    [[nodiscard]] std::span<const std::uint32_t> colors() const { return {_colors.data(), _count}; }
    [[nodiscard]] std::size_t rowBytes(std::size_t width) const;
    /// Writes a row of `width` pixels in the format, rowBytes(width) bytes.
    void pack(const unsigned char* samples, std::size_t width, unsigned char* packed) const;

private:
    [[nodiscard]] std::uint32_t colorAt(const unsigned char* samples, std::size_t i) const;
    [[nodiscard]] std::size_t slotOf(std::uint32_t color) const;
    [[nodiscard]] unsigned greyBits() const;

    static constexpr std::size_t MaxColors = 256;
    static constexpr std::size_t Slots = 1024;

    unsigned _components;
    bool _isGrey = true;
    bool _fewColors = true;
    std::size_t _count = 0;
    std::array<std::uint32_t, MaxColors> _colors{};
    std::array<std::uint16_t, Slots> _slots{}; ///< index of a colour and 1
    Kind _kind = Color;
    unsigned _bits = 8;
};
