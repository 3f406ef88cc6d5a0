// Arcs, Bézier curves and paths of several point arrays.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSLineLength_p.h"
#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

/// Cuts off the fraction; what no integer can hold becomes the nearest one that can, not-a-number 0.
std::int64_t truncated(long double value)
{
    constexpr long double Limit = 9.0e18L;
    if (std::isnan(value)) {
        return 0;
    }
    return static_cast<std::int64_t>(std::clamp(value, -Limit, Limit));
}

} // namespace

void QsdPSDevice::drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    writeArc(palette, rect, start, range, false);
}

void QsdPSDevice::fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const
{
    writeArc(palette, rect, start, range, true);
    fillWithPattern(palette);
}

// The arc is one of a unit circle under a matrix of its own; the matrix before it is back in force for the stroke, so
// that the line keeps its width all around. The start is cut off and the end rounded, as documents have always been.
void QsdPSDevice::writeArc(const QsdPalette* palette, const QsdRect& rect, float start, float range, bool fill) const
{
    checkClip(palette->clipRegion());
    if (range < 0) {
        start += range;
        range = -range;
    }
    setCurrentPalette(palette);
    const std::uint32_t rx = rect.width >> 1;
    const std::uint32_t ry = rect.height >> 1;
    QsdPSWriter out(_stream);
    out << "n matrix currentmatrix " << std::int64_t{rect.x} + rx << QsdSpc() << std::int64_t{rect.y} + ry << " t "
        << rx << QsdSpc() << ry << " scale ";
    if (fill && palette->arcMode() == QsdArcPie) {
        out << "0 0 M ";
    }
    out << "1 -1 scale  0 0 1 " << truncated(start) << QsdSpc()
        << truncated(static_cast<long double>(start) + range + 0.5L) << " arc setmatrix" << (fill ? "" : " s") << EOL;
}

void QsdPSDevice::drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count < 2) {
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter out(_stream);
    out << "n " << points[0] << " M ";
    unsigned long i = 1;
    for (; i + 2 < count; i += 3) {
        out << points[i] << QsdSpc() << points[i + 1] << QsdSpc() << points[i + 2] << " curveto" << EOL;
    }
    if (count - i == 1) {
        out << points[i] << " L ";
    } else if (count - i == 2) {
        out << points[i] << QsdSpc() << points[i] << QsdSpc() << points[i + 1] << " curveto ";
    }
    out << "s" << EOL;
}

void QsdPSDevice::drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count < 2) {
        return;
    }
    if (count == 2) {
        drawBezier(palette, count, points);
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    writeClosedCurves(count, points, false);
    QsdPSWriter(_stream) << "s" << EOL;
}

void QsdPSDevice::fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count < 2) {
        return;
    }
    if (count == 2) {
        drawBezier(palette, count, points);
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    writeClosedCurves(count, points, true);
    fillWithPattern(palette);
}

// The last segment ends on the first point, so the path needs no closing operator.
void QsdPSDevice::writeClosedCurves(unsigned long count, const QsdPoint* points, bool fill) const
{
    QsdPSWriter out(_stream);
    out << "n " << points[0] << " M ";
    unsigned long i = 1;
    for (; i + 2 < count; i += 3) {
        out << points[i] << QsdSpc() << points[i + 1] << QsdSpc() << points[i + 2];
        if (fill) {
            out << " curveto ";
            out.breakLine(lineLength().elements);
        } else {
            out << " curveto" << EOL;
        }
    }
    if (count == i) {
        out << points[0] << " L ";
    } else {
        const QsdPoint& second = points[count - 1];
        out << points[i] << QsdSpc() << second << QsdSpc() << points[0] << " curveto ";
    }
}

void QsdPSDevice::fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const
{
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    {
        QsdPSWriter out(_stream);
        out << "n ";
        for (unsigned long a = 0; a < count; ++a) {
            const unsigned long pointCount = arrays[a].count();
            const QsdPoint* const points = arrays[a].points();
            if (pointCount < 2) {
                continue;
            }
            QsdPoint last = points[0];
            out << last << " M ";
            for (unsigned long i = 1; i < pointCount; ++i) {
                if (points[i] != last) {
                    out << points[i] << " L ";
                    out.breakLine(lineLength().elements);
                    last = points[i];
                }
            }
            out << EOL;
        }
    }
    fillWithPattern(palette);
}
