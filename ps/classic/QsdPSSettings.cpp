// Level, encoder and colour model.
#include "ps/QsdPSDevice.h"

#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"

#include <memory>
#include <utility>

void QsdPSDevice::setColorModel(QsdPSColorModel model)
{
    _colorModel = model;
}

unsigned long QsdPSDevice::imageStringSize(unsigned long width) const
{
    return _colorModel != QsdPSGrey ? width * 3 : width;
}

const char* QsdPSDevice::imageOperatorString() const
{
    return _colorModel != QsdPSGrey ? "false 3 colorimage" : "image";
}

// Level 1 has no decoding filters: its images are always read as hexadecimal strings, whatever encoder is offered.
void QsdPSDevice::setEncoder(QsdPostScriptEncoder* encoder)
{
    const bool isOther = _encoder.get() != encoder;
    std::unique_ptr<QsdPostScriptEncoder> offered(isOther ? encoder : nullptr);
    if (_level == 1) {
        _encoder = std::make_unique<QsdASCIIHexEncoder>(_stream, false);
        return;
    }
    if (isOther) {
        _encoder.reset();
        _encoder = std::move(offered);
    }
    if (_encoder != nullptr) {
        _encoder->setStream(_stream);
    }
}

void QsdPSDevice::setPostScriptLevel(unsigned long level)
{
    // The level goes with its encoder, or stays when there is no memory for that.
    if (level == 1) {
        _encoder = std::make_unique<QsdASCIIHexEncoder>(_stream, false);
        _level = level;
    } else {
        auto encoder = std::make_unique<QsdASCII85Encoder>(_stream);
        _level = level;
        setEncoder(encoder.release());
    }
}

void QsdPSDevice::setZoomableLineWidths(bool zoomable)
{
    writeLineWidthMode(zoomable);
}

void QsdPSDevice::writeLineWidthMode(bool zoomable) const
{
    QsdPSWriter(_stream) << "/qsdlw " << (zoomable ? "true" : "false") << " def" << EOL;
}
