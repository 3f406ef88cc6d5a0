// What the server's pixels stand for.
#pragma once

#include "toolkit/graphics/QsdColor.h"
#include "toolkit/raster/QsdColorTable.h"
#include "toolkit/raster/QsdPixels.h"
#include "toolkit/x11/QsdXConnection_p.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

/// Where a direct colour pixel has one of its components.
class QsdXChannel {
public:
    QsdXChannel() = default;
    explicit QsdXChannel(unsigned long mask);

    [[nodiscard]] unsigned long mask() const { return _most << _shift; }
    /// The bits that stand for a component of 0 to 255.
    [[nodiscard]] unsigned long bits(unsigned component) const;
    /// The component that the bits of `pixel` stand for.
    [[nodiscard]] unsigned component(unsigned long pixel) const;

private:
    int _shift = 0;
    unsigned long _most = 0;
};

/// Translates between the pixels of the screen's default visual and the values of QsdPixels: 0xRRGGBB above a depth of
/// 8, indices into the colour map up to it, and at 1 set bits for black, whatever black is on the server. Where colours
/// have to be asked for, a cube of colours is, when the display is opened, so that there are near ones for all.
/// A visual of direct colours whose tables can be changed is taken to have even ones.
class QsdXColors {
public:
    explicit QsdXColors(std::shared_ptr<QsdXConnection> connection);

    [[nodiscard]] std::uint16_t screenDepth() const { return _depth; }
    /// The pixel that stands for a value in drawables of `depth`, and back.
    [[nodiscard]] unsigned long pixel(QsdPixels::Value value, std::uint16_t depth) const;
    [[nodiscard]] QsdPixels::Value value(unsigned long pixel, std::uint16_t depth) const;
    /// The value for a colour at `depth`, the nearest where there is not the same.
    [[nodiscard]] QsdPixels::Value valueOf(const QsdColor& color, std::uint16_t depth) const;
    /// The colours of the values of the screen depth, empty above 8.
    [[nodiscard]] const QsdColorTable& table() const { return _table; }
    /// Asks the server anew, since other programs change the colour map too.
    void refresh();

private:
    void allocateCube();
    [[nodiscard]] bool isShared(unsigned long pixel) const { return _shared[pixel & 255]; }

    std::shared_ptr<QsdXConnection> _connection;
    std::uint16_t _depth;
    bool _setIsWhite = false; ///< of one-bit pixels
    QsdXChannel _red, _green, _blue;
    unsigned long _otherBits = 0; ///< of direct colours: set, in case they mean "opaque"
    QsdColorTable _table;
    std::array<bool, 256> _shared{};         ///< colours that nobody can change under us
    std::array<std::uint8_t, 256> _pixels{}; ///< the pixel that is drawn for an index
};
