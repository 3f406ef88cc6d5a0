// Points, rectangles, arcs and texts that are written otherwise than QsdPSDevice does.
#include "ps/QsdPSPrintDevice.h"

#include "ps/classic/QsdPSOperation_p.h"
#include "ps/print/QsdPSFiniteMatrix_p.h"
#include "ps/text/QsdPSLineLength_p.h"
#include "ps/text/QsdPSWriter_p.h"

#include <cmath>

namespace {

constexpr unsigned PointsPerLine = 10;

/// Angles with fewer turns that draw the same arc. Interpreters draw each turn, and the number of them tells what is
/// inside by the even-odd rule, so an odd one stays odd.
struct ArcAngles {
    ArcAngles(float first, float angle) : start(first), range(angle)
    {
        constexpr float Turn = 360;
        constexpr float Most = 10 * Turn;
        if (!(std::fabs(start) <= Most)) {
            start = std::isfinite(start) ? std::fmod(start, Turn) : 0;
        }
        if (std::isnan(range)) {
            range = 0;
        } else if (std::fabs(range) > Most) {
            const float rest = std::isinf(range) ? 0 : std::fmod(std::fabs(range), 2 * Turn);
            range = std::copysign(2 * Turn + rest, range);
        }
    }

    float start;
    float range;
};

} // namespace

void QsdPSPrintDevice::drawPoint(const QsdPalette* palette, const QsdPoint& point) const
{
    drawPoints(palette, 1, &point);
}

void QsdPSPrintDevice::drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    const auto tell = [&](auto& shape) {
        for (unsigned long i = 0; i < count; ++i) {
            shape.box({points[i].x, points[i].y, 1, 1});
        }
    };
    if (count == 0 || !beginOperation(palette, QsdPSUse::Fill, tell)) {
        return;
    }
    QsdPSWriter out(stream());
    unsigned onLine = 0;
    for (unsigned long i = 0; i < count; ++i) {
        out << points[i] << " px";
        if (++onLine == PointsPerLine || i + 1 == count || out.column() >= QsdPSConventionalLength.elements) {
            out << EOL;
            onLine = 0;
        } else {
            out << QsdSpc();
        }
    }
}

// A path in the order of rectstroke, so that dashes fall alike, and a stroke that knows the widths' mode.
void QsdPSPrintDevice::drawRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    if (!beginOperation(palette, QsdPSUse::Stroke, [&](auto& shape) { shape.box(rect); })) {
        return;
    }
    QsdPSWriter(stream()) << "n " << rect.x << QsdSpc() << rect.y << QsdSpc() << rect.width << QsdSpc() << rect.height
                          << " rk" << EOL;
}

void QsdPSPrintDevice::drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    const ArcAngles angles(start, range);
    QsdPSDevice::drawArc(palette, rect, angles.start, angles.range);
}

void QsdPSPrintDevice::fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    const ArcAngles angles(start, range);
    QsdPSDevice::fillArc(palette, rect, angles.start, angles.range);
}

void QsdPSPrintDevice::drawTransformedString(const QsdPalette* palette, const char* text, int length,
                                             const QsdTransformer& given, const QsdRegion* clip) const
{
    QsdPSDevice::drawTransformedString(palette, text, length, QsdPSFiniteMatrix(given), clip);
}
