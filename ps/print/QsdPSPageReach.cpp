#include "ps/print/QsdPSPageReach_p.h"

QsdPSExtent QsdPSExtentOf(const QsdTransformer& t, double x1, double y1, double x2, double y2)
{
    QsdPSExtent extent;
    for (const double x : {x1, x2}) {
        for (const double y : {y1, y2}) {
            double px = x;
            double py = y;
            t.transform(px, py);
            extent.add(px, py);
        }
    }
    return extent;
}

void QsdPSPageReach::beginDocument(const QsdPSExtent& paper, const QsdTransformer& toPoints)
{
    _paper = paper;
    _page = toPoints;
}

void QsdPSPageReach::beginPage(const QsdPSPlacedClip& outer, const QsdPSPlacedClip& inner)
{
    _extent = QsdPSExtent();
    setTransformer(QsdTransformer());
    setClips(outer, inner);
}

void QsdPSPageReach::setClips(const QsdPSPlacedClip& outer, const QsdPSPlacedClip& inner)
{
    _clipBox = _paper;
    for (const QsdPSPlacedClip* const clip : {&outer, &inner}) {
        if (clip->region.isFull()) {
            continue;
        }
        QsdTransformer toPaper = clip->transformer;
        toPaper.compose(_page);
        const QsdRect& box = clip->region.boundingRect();
        _clipBox.limitTo(QsdPSExtentOf(toPaper, box.x, box.y, static_cast<double>(box.x) + box.width,
                                       static_cast<double>(box.y) + box.height));
    }
}

// Without a turn the box around two boxes becomes the one around their images, which the page's extent holds too.
void QsdPSPageReach::setTransformer(const QsdTransformer& t)
{
    _toPaper = t;
    _toPaper.compose(_page);
    double x11, x12, x21, x22, x0, y0;
    _toPaper.getValues(x11, x12, x21, x22, x0, y0);
    _isUpright = (x12 == 0 && x21 == 0) || (x11 == 0 && x22 == 0);
    _held = QsdPSExtent();
}

void QsdPSPageReach::addFurther(const QsdPSExtent& box, double margin)
{
    if (box.isEmpty()) {
        return;
    }
    QsdPSExtent extent = QsdPSExtentOf(_toPaper, box.left, box.bottom, box.right, box.top);
    if (_isUpright && _clipBox.contains(extent)) {
        _held.add(box);
    }
    extent.left -= margin;
    extent.bottom -= margin;
    extent.right += margin;
    extent.top += margin;
    extent.limitTo(_clipBox);
    _extent.add(extent);
}
