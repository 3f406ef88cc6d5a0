// Level, encoder and colour model.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSWriter_p.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"

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
    if (_encoder.get() == encoder) {
        // Given back to the device, which is about to own it again.
        static_cast<void>(_encoder.release());
    }
    _encoder.reset();
    if (_level == 1) {
        _encoder = std::make_unique<QsdASCIIHexEncoder>(_stream, false);
        delete encoder;
        return;
    }
    _encoder.reset(encoder);
    if (encoder != nullptr) {
        encoder->setStream(_stream);
    }
}

void QsdPSDevice::setPostScriptLevel(unsigned long level)
{
    _level = level;
    if (level == 1) {
        setEncoder(new QsdASCIIHexEncoder(nullptr, true));
    } else {
        setEncoder(new QsdASCII85Encoder(nullptr));
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
