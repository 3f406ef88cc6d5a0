// One drawing call of a QsdPSPrintDevice.
#pragma once

#include "ps/QsdPSPrintDevice.h"
#include "ps/QsdPSPrintDocument_p.h"

#include <limits>

/// Puts the palette's clip in force and tells, for as long as it lives, what the operation draws with.
class QsdPSOperation {
public:
    QsdPSOperation(const QsdPSPrintDevice& device, const QsdPalette* palette, QsdPSPrintDocument& document,
                   QsdPSUse use)
        : _document(document), _before(document.use)
    {
        device.checkClip(palette->clipRegion());
        document.use = use;
    }
    QsdPSOperation(const QsdPSOperation&) = delete;
    QsdPSOperation& operator=(const QsdPSOperation&) = delete;
    ~QsdPSOperation() { _document.use = _before; }

private:
    QsdPSPrintDocument& _document;
    QsdPSUse _before;
};

/// The point that a step leads to, held within the coordinate space.
[[nodiscard]] inline QsdPoint QsdPSStep(const QsdPoint& from, const QsdDeltaPoint& step)
{
    const auto held = [](std::int64_t value) {
        return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                                  std::numeric_limits<std::int32_t>::max()));
    };
    return {held(std::int64_t{from.x} + step.dx), held(std::int64_t{from.y} + step.dy)};
}
