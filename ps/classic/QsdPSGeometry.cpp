// Paper size and transformers.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSMatrix.h"

void QsdPSDevice::setPaperWidth(unsigned long width)
{
    _paperWidth = width;
    setWidth(width);
}

// The height decides where the flipped y axis starts; the width does not matter to the page transformer.
void QsdPSDevice::setPaperHeight(unsigned long height)
{
    _paperHeight = height;
    setHeight(height);
    _pageTransformer.setValues(1, 0, 0, -1, 0, static_cast<double>(height));
}

void QsdPSDevice::setPageTransformer(const QsdTransformer& t)
{
    _pageTransformer = t;
}

void QsdPSDevice::setTransformer(const QsdTransformer& t)
{
    _currentTransformer = t;
    if (_stream != nullptr) {
        SendTransformer(*_stream, t);
    }
}

// A clip change restores an older graphics state, whose matrix may be another one.
void QsdPSDevice::sendCurrentTransformer() const
{
    if (_stream != nullptr && !_currentTransformer.isIdentity()) {
        SendTransformer(*_stream, _currentTransformer);
    }
}
