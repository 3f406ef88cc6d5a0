// Where a thing lies with respect to a point or in a rectangle.
#pragma once

#include <cstdint>

/// A combination of at most one horizontal and one vertical bit. For a text at a point: QsdPositionRight ends it there,
/// QsdPositionCenter centres it, anything else starts it there. In a rectangle: each bit names the side to lie at,
/// no bit, or QsdPositionCenter, the middle.
enum QsdPosition : std::uint16_t {
    QsdPositionNone = 0,
    QsdPositionLeft = 1,
    QsdPositionRight = 2,
    QsdPositionTop = 4,
    QsdPositionBottom = 8,
    QsdPositionCenter = 16,
    QsdPositionTopLeft = QsdPositionTop | QsdPositionLeft,
    QsdPositionTopRight = QsdPositionTop | QsdPositionRight,
    QsdPositionBottomLeft = QsdPositionBottom | QsdPositionLeft,
    QsdPositionBottomRight = QsdPositionBottom | QsdPositionRight
};
