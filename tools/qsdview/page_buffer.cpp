#include "qsdview/page_buffer.h"

#include "command/layout.h"
#include "toolkit/x11/QsdXDisplay.h"

#include <algorithm>

namespace qsdview {

namespace {

constexpr qsdps::Rgb PaperColor{255, 255, 255};

/// A part of a page and half as much again on every side of it, as far as the page reaches.
QsdRect roomy(const QsdRect& part, const QsdRect& page)
{
    const std::uint32_t acrossMargin = part.width / 2;
    const std::uint32_t downMargin = part.height / 2;
    return QsdRect{part.x - static_cast<std::int32_t>(acrossMargin), part.y - static_cast<std::int32_t>(downMargin),
                   part.width + 2 * acrossMargin, part.height + 2 * downMargin}
        .intersected(page);
}

} // namespace

PageBuffer::PageBuffer(QsdXDisplay& display, const qsdps::Options& options)
    : _display(display), _options(options), _tools(display, options.encoding)
{
}

qsdps::Status PageBuffer::show(qsdps::DocumentPage& page, double zoom, const QsdRect& whole, const QsdRect& shown,
                               const QsdXWindow& window, const QsdPoint& at)
{
    qsdps::Status drawn;
    if (_page != &page || _zoom != zoom || shown.intersected(_area) != shown) {
        _page = &page;
        _zoom = zoom;
        _area = roomy(shown, whole);
        drawn = draw(page);
    }
    const QsdRect part{shown.x - _area.x, shown.y - _area.y, shown.width, shown.height};
    _tools.palette->setClipRegion(QsdRegion::Full());
    window.drawBitmap(_tools.palette.get(), _pixmap.get(), part, at);
    return drawn;
}

qsdps::Status PageBuffer::draw(qsdps::DocumentPage& page)
{
    _report = {};
    _pixmap = nullptr; // before there are two of them
    _pixmap = std::make_unique<QsdXPixmap>(&_display, _area.width, _area.height, std::uint16_t{0});
    _tools.palette->setClipRegion(QsdRegion::Full());
    _tools.palette->setForeground(_tools.colors.get(PaperColor));
    _pixmap->fillRectangle(_tools.palette.get(), {0, 0, _area.width, _area.height});

    const qsdps::Box onPaper = qsdps::sizeOnPaper(page.size().width, page.size().height, _options);
    const double pixelsPerPoint = page.size().width > 0 ? _zoom * page.size().width / onPaper.width : _zoom;
    const qsdps::Sheet sheet{*_pixmap,
                             nullptr,
                             QsdTransformer().scale(pixelsPerPoint, pixelsPerPoint).translate(-_area.x, -_area.y),
                             _tools,
                             _options,
                             {onPaper.width, onPaper.height},
                             qsdps::Units(std::max(onPaper.width, onPaper.height)),
                             PaperColor};
    _pixmap->setTransformer(sheet.units.toPoints().compose(sheet.toPort));
    return page.draw(sheet, _report, [](double) {});
}

} // namespace qsdview
