#include "toolkit/x11/QsdXPort.h"

#include "toolkit/port/QsdBitmap.h"
#include "toolkit/port/QsdBitmapPath_p.h"
#include "toolkit/x11/QsdXCoverage_p.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXGraphics_p.h"

#include <algorithm>
#include <cmath>

namespace {

/// Far enough inside X's 16 bits that widths and heights can be added, and differences be formed.
constexpr std::int64_t FarthestCoordinate = 16000;

std::int32_t held(double value)
{
    return static_cast<std::int32_t>(std::clamp(value, -2147483648.0, 2147483647.0));
}

/// A rectangle that reaches `margin` further to all sides.
QsdRect grown(const QsdRect& rect, double margin)
{
    const std::int32_t x = held(std::floor(rect.x - margin));
    const std::int32_t y = held(std::floor(rect.y - margin));
    const auto length = [](double from, double to) {
        return static_cast<std::uint32_t>(std::clamp(std::ceil(to - from), 0.0, 4294967295.0));
    };
    return {x, y, length(x, static_cast<double>(rect.right()) + margin),
            length(y, static_cast<double>(rect.bottom()) + margin)};
}

} // namespace

QsdXPort::QsdXPort(QsdXDisplay* display, std::uint32_t width, std::uint32_t height, std::uint16_t depth)
    : QsdSystemPort(display, width, height), _xDisplay(*display), _depth(depth == 1 ? depth : display->screenDepth()),
      _graphics(std::make_unique<QsdXGraphics>(*display, width, height, _depth))
{
}

QsdXPort::~QsdXPort() = default;

bool QsdXPort::isBad() const
{
    return !_graphics->isUsable();
}

unsigned long QsdXPort::xDrawable() const
{
    return _graphics->pixmap();
}

void QsdXPort::setTransformer(const QsdTransformer& t)
{
    _transformer = t;
}

void QsdXPort::clip(const QsdRect* rect) const
{
    _clip = rect == nullptr ? QsdRegion::Full() : QsdRegion(*rect);
}

void QsdXPort::clip(const QsdRegion* region) const
{
    _clip = region == nullptr ? QsdRegion::Full() : *region;
}

void QsdXPort::flushRedraw() const
{
    if (!isBad()) {
        XFlush(_graphics->display());
    }
    _xDisplay.connection()->report();
}

void QsdXPort::setSize(std::uint32_t width, std::uint32_t height)
{
    auto next = std::make_unique<QsdXGraphics>(_xDisplay, width, height, _depth);
    if (!next->isUsable()) {
        return;
    }
    next->setColor(*_xDisplay.white());
    next->fillRectangles({QsdXRectangle(0, 0, width, height)});
    if (!isBad()) {
        XCopyArea(next->display(), _graphics->pixmap(), next->pixmap(), next->gc(), 0, 0, portArea().width,
                  portArea().height, 0, 0);
    }
    _graphics = std::move(next);
    setWidth(width);
    setHeight(height);
}

bool QsdXPort::read(const QsdRect& rect, QsdPixels& pixels) const
{
    const QsdRect inside = rect.intersected(portArea());
    if (isBad()) {
        return false;
    }
    return inside.isEmpty() || _graphics->get(inside, static_cast<std::uint32_t>(std::int64_t{inside.x} - rect.x),
                                              static_cast<std::uint32_t>(std::int64_t{inside.y} - rect.y), pixels);
}

QsdRect QsdXPort::portArea() const
{
    return {0, 0, static_cast<std::uint32_t>(width()), static_cast<std::uint32_t>(height())};
}

std::optional<QsdPoint> QsdXPort::Placing::operator()(const QsdPoint& point) const
{
    const std::int64_t x = std::int64_t{point.x} + shift.x;
    const std::int64_t y = std::int64_t{point.y} + shift.y;
    if (std::abs(x) > FarthestCoordinate || std::abs(y) > FarthestCoordinate) {
        return std::nullopt;
    }
    return QsdPoint{static_cast<std::int32_t>(x), static_cast<std::int32_t>(y)};
}

// A clip that is turned is no region any more; only texts and shapes that stay upright ask.
QsdRegion QsdXPort::visibleRegion(const QsdPalette& palette, const QsdRect* clip) const
{
    QsdRegion given = _clip;
    given.intersect(palette.clipRegion());
    if (clip != nullptr) {
        given.intersect(*clip);
    }
    QsdRegion visible(portArea());
    if (!given.isFull()) {
        QsdRegion mapped;
        for (std::uint16_t i = 0; i < given.count(); ++i) {
            mapped.add(_transformer.transform(given.rects()[i]));
        }
        visible.intersect(mapped);
    }
    return visible;
}

std::optional<QsdXPort::Placing> QsdXPort::placing(const QsdPalette& palette) const
{
    double x11, x12, x21, x22, x0, y0;
    _transformer.getValues(x11, x12, x21, x22, x0, y0);
    const bool moved = x11 == 1 && x12 == 0 && x21 == 0 && x22 == 1;
    if (!moved || x0 != held(x0) || y0 != held(y0)) {
        return std::nullopt;
    }
    Placing result{{held(x0), held(y0)}, visibleRegion(palette, nullptr)};
    if (result.clip.count() > QsdXGraphics::MostClipRectangles) {
        return std::nullopt;
    }
    return result;
}

QsdRect QsdXPort::visibleArea(const Extent& extent) const
{
    if (!extent.bounds) {
        return portArea();
    }
    return grown(_transformer.transform(*extent.bounds), extent.margin).intersected(portArea());
}

QsdXPort::Extent QsdXPort::strokeExtent(const QsdPalette& palette, const std::optional<QsdRect>& bounds) const
{
    constexpr double LongestCorner = 6; // widths that a mitred corner sticks out
    const double scale = QsdBitmapPath(_transformer, QsdBitmapPath::PixelCenter).scale();
    return {bounds, 2 + LongestCorner * scale * palette.lineWidth()};
}

std::unique_ptr<QsdBitmap> QsdXPort::bitmapFor(const QsdRect& area, std::uint16_t depth) const
{
    auto bitmap = std::make_unique<QsdBitmap>(&_xDisplay, area.width, area.height, depth);
    QsdTransformer t = _transformer;
    t.translate(-area.x, -area.y);
    bitmap->setTransformer(t);
    bitmap->clip(&_clip);
    return bitmap;
}

std::unique_ptr<QsdBitmap> QsdXPort::coverage(const QsdPalette& palette, const QsdRect& area,
                                              const ShapeDrawing& draw) const
{
    std::unique_ptr<QsdBitmap> mask = bitmapFor(area, 1);
    const auto ink = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&palette));
    ink->setForeground(_xDisplay.black());
    ink->setBackground(_xDisplay.black());
    ink->setPattern(nullptr);
    ink->setFillStyle(QsdFillPattern);
    draw(*mask, ink.get());
    return mask;
}

void QsdXPort::fillCovered(const QsdBitmap& mask, const QsdRect& area) const
{
    _graphics->setClip(QsdRegion(portArea()));
    _graphics->fillRectangles(QsdXRectanglesOf(mask.pixels(), {area.x, area.y}));
}

void QsdXPort::finish() const
{
    setDamaged();
    _xDisplay.connection()->report();
}
