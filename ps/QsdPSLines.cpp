// Straight lines: segments, polylines, polygons and rectangles.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSLineLength_p.h"
#include "ps/QsdPSWriter_p.h"

#include <cstddef>
#include <string_view>

namespace {

constexpr unsigned ElementsPerLine = 10;
constexpr unsigned SegmentsPerStroke = 512;

/// Breaks a long path into lines of ten elements, or fewer where these are long.
class ElementLines {
public:
    ElementLines(QsdPSWriter& out, const QsdPSLineLength& length) : _out(out), _length(length.elements) {}

    /// Ends an element: a separator, or the line.
    void next()
    {
        if (++_count == ElementsPerLine || _out.column() >= _length) {
            _out << EOL;
            _count = 0;
        } else {
            _out << QsdSpc();
        }
    }
    /// Ends a line that has elements.
    void finish()
    {
        if (_count != 0) {
            _out << EOL;
        }
    }

private:
    QsdPSWriter& _out;
    std::size_t _length;
    unsigned _count = 0;
};

/// Writes lines to all points but the first, leaving out those equal to the one before. The operator comes as an array
/// since a length known beforehand is copied at once.
template <std::size_t Size>
void writeLines(QsdPSWriter& out, ElementLines& lines, unsigned long count, const QsdPoint* points,
                const char (&lineTo)[Size])
{
    QsdPoint last = points[0];
    for (unsigned long i = 1; i < count; ++i) {
        if (points[i] != last) {
            out << points[i] << std::string_view(lineTo, Size - 1);
            lines.next();
            last = points[i];
        }
    }
}

/// Writes the steps of a relative path, leaving out those that lead nowhere.
void writeSteps(QsdPSWriter& out, ElementLines& lines, unsigned long count, const QsdDeltaPoint* deltas)
{
    for (unsigned long i = 0; i < count; ++i) {
        if (deltas[i] != QsdDeltaPoint{}) {
            out << deltas[i].dx << QsdSpc() << deltas[i].dy << " rL ";
            lines.next();
        }
    }
}

} // namespace

void QsdPSDevice::drawPoint(const QsdPalette*, const QsdPoint&) const {}

void QsdPSDevice::drawPoints(const QsdPalette*, unsigned long, const QsdPoint*) const {}

void QsdPSDevice::drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const
{
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter(_stream) << "n " << from << " M " << to << " L s" << EOL;
}

void QsdPSDevice::drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                               const QsdPoint* ends) const
{
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter out(_stream);
    out << "n ";
    unsigned pending = 0;
    for (unsigned long i = 0; i < count; ++i) {
        out << starts[i] << " M " << ends[i] << " L" << EOL;
        if (++pending == SegmentsPerStroke) {
            out << " s" << EOL;
            pending = 0;
        }
    }
    if (pending != 0) {
        out << " s" << EOL;
    }
}

void QsdPSDevice::drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const
{
    if (count == 0) {
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter out(_stream);
    out << "n " << points[0] << " M ";
    ElementLines lines(out, lineLength());
    writeLines(out, lines, count, points, " L");
    out << "s" << EOL;
}

void QsdPSDevice::drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                               const QsdDeltaPoint* deltas) const
{
    if (count == 0) {
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter out(_stream);
    out << "n " << origin << " M ";
    ElementLines lines(out, lineLength());
    writeSteps(out, lines, count - 1, deltas);
    out << "s" << EOL;
}

void QsdPSDevice::fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points, bool) const
{
    if (count == 0) {
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    {
        QsdPSWriter out(_stream);
        out << "n " << points[0] << " M ";
        ElementLines lines(out, lineLength());
        writeLines(out, lines, count, points, " L ");
        lines.finish();
    }
    fillWithPattern(palette);
}

void QsdPSDevice::fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                               const QsdDeltaPoint* deltas, bool) const
{
    if (count == 0) {
        return;
    }
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    {
        QsdPSWriter out(_stream);
        out << "n " << origin << " M ";
        ElementLines lines(out, lineLength());
        writeSteps(out, lines, count - 1, deltas);
        lines.finish();
    }
    fillWithPattern(palette);
}

void QsdPSDevice::drawRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter(_stream) << rect.x << QsdSpc() << rect.y << QsdSpc() << rect.width << QsdSpc() << rect.height
                         << " rectstroke" << EOL;
}

void QsdPSDevice::fillRectangle(const QsdPalette* palette, const QsdRect& rect) const
{
    checkClip(palette->clipRegion());
    setCurrentPalette(palette);
    QsdPSWriter(_stream) << "n " << rect.width << QsdSpc() << rect.height << QsdSpc() << rect.x << QsdSpc() << rect.y
                         << " rect ";
    fillWithPattern(palette);
}
