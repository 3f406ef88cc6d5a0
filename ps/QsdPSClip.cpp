// Clips. Each lives in a save level of its own, which the prolog's rc ends without losing colour, line and font.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSLineLength_p.h"
#include "ps/QsdPSWriter_p.h"

void QsdPSDevice::clip(const QsdRegion* region) const
{
    const bool full = region == nullptr || region->isFull();
    if (full) {
        removeClip();
        return;
    }
    if (*region == _clipCache) {
        return;
    }
    _clipCache = *region;
    if (region->count() == 0) {
        // The path is empty here, so this clips everything away.
        QsdPSWriter(_stream) << " rc gsave clip n" << EOL;
        sendCurrentTransformer();
        return;
    }
    QsdPSWriter(_stream) << " rc gsave ";
    sendCurrentTransformer();
    QsdPSWriter out(_stream);
    out << " n ";
    const QsdRect* const rects = _clipCache.rects();
    for (std::uint16_t i = 0; i < _clipCache.count(); ++i) {
        const QsdRect& r = rects[i];
        out << r.width << QsdSpc() << r.height << QsdSpc() << r.x << QsdSpc() << r.y << " rect ";
        out.breakLine(lineLength().elements);
    }
    out << "clip n" << EOL;
}

void QsdPSDevice::clip(const QsdRect* rect) const
{
    if (rect == nullptr) {
        removeClip();
        return;
    }
    const QsdRegion region(*rect);
    if (region == _clipCache) {
        return;
    }
    _clipCache = region;
    QsdPSWriter(_stream) << " rc gsave ";
    sendCurrentTransformer();
    QsdPSWriter(_stream) << rect->x << QsdSpc() << rect->y << QsdSpc() << rect->width << QsdSpc() << rect->height
                         << " rectclip" << EOL;
}

void QsdPSDevice::removeClip() const
{
    if (!_clipCache.isFull()) {
        _clipCache.setFull();
        QsdPSWriter(_stream) << " rc gsave" << EOL;
        sendCurrentTransformer();
    }
}

void QsdPSDevice::checkClip(const QsdRegion& region) const
{
    if (!(region == _clipCache)) {
        clip(&region);
    }
}

void QsdPSDevice::initClip(const QsdRect& rect) const
{
    _boundingBox = rect;
    writeInitialClip(rect);
    _clipCache.setFull();
}

void QsdPSDevice::writeInitialClip(const QsdRect& rect) const
{
    QsdPSWriter(_stream) << "initclip n " << rect.width << QsdSpc() << rect.height << QsdSpc() << rect.x << QsdSpc()
                         << rect.y << " rect clip gsave" << EOL;
}

// Narrows the clip for one operation: what is in force, the palette's clip, and a rectangle where there is one.
void QsdPSDevice::restrictClip(const QsdPalette* palette, const QsdRect* rect) const
{
    QsdRegion restricted = _clipCache;
    restricted.intersect(palette->clipRegion());
    if (rect != nullptr) {
        restricted.intersect(*rect);
    }
    clip(&restricted);
}
