// The device object: construction, state queries, stream ownership.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSLineLength_p.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/port/QsdDisplay.h"

#include <cstdlib>
#include <fstream>
#include <limits>

int QsdPSDevice::_PSFontScale = 100;
int QsdPSDevice::_EUCFontScale = 80;
const char* const QsdPSDevice::_DefaultPSFontScale = "100";
const char* const QsdPSDevice::_DefaultEUCFontScale = "80";

namespace {

constexpr unsigned long DefaultPaperWidth = 595; // A4
constexpr unsigned long DefaultPaperHeight = 842;

void readSize(const QsdDisplay& display, const char* name, unsigned long& size)
{
    const char* const text = display.getResource(name, nullptr);
    if (text != nullptr) {
        const long value = std::strtol(text, nullptr, 10);
        if (value > 0) {
            size = static_cast<unsigned long>(value);
        }
    }
}

/// False, and `scale` as it was, when the text is no positive integer.
bool readScale(const char* text, int& scale)
{
    const long value = std::strtol(text, nullptr, 10);
    if (value < 1 || value > std::numeric_limits<int>::max()) {
        return false;
    }
    scale = static_cast<int>(value);
    return true;
}

} // namespace

QsdPSDevice::QsdPSDevice(QsdDisplay* display, QsdPSColorModel model)
    : QsdPort(display, DefaultPaperWidth, DefaultPaperHeight), _paperWidth(DefaultPaperWidth),
      _paperHeight(DefaultPaperHeight), _colorModel(model), _lineLength(&QsdPSAnyLength)
{
    readSize(*display, "paperWidth", _paperWidth);
    setWidth(_paperWidth);
    readSize(*display, "paperHeight", _paperHeight);
    setHeight(_paperHeight);
    _pageTransformer.setValues(1, 0, 0, -1, 0, static_cast<double>(_paperHeight));
    setEncoder(new QsdASCII85Encoder(nullptr));

    const char* const scale = display->getEnvOrResource("QSDPSFONTSCALE", "PSFontScale", _DefaultPSFontScale);
    if (!readScale(scale, _PSFontScale)) {
        QsdWarning("Invalid PostScript FontScale: %s. Must be a positive integer.", scale);
    }
    const char* const eucScale = display->getEnvOrResource("QSDPSEUCFONTSCALE", "PSEUCFontScale", _DefaultEUCFontScale);
    if (!readScale(eucScale, _EUCFontScale)) {
        QsdWarning("Invalid EUC PostScript FontScale: %s. Must be a positive integer.", eucScale);
    }
}

QsdPSDevice::~QsdPSDevice()
{
    _encoder.reset();
    delete _ownStream;
}

bool QsdPSDevice::isADevice() const
{
    return true;
}

bool QsdPSDevice::isBad() const
{
    return _stream == nullptr;
}

bool QsdPSDevice::writeFailed() const
{
    return _writeFailed || (_stream != nullptr && _stream->fail());
}

std::ostream* QsdPSDevice::openStream(const char* fileName)
{
    return new std::ofstream(fileName == nullptr ? "" : fileName, std::ios_base::out | std::ios_base::trunc);
}

void QsdPSDevice::closeStream(std::ostream* stream)
{
    delete stream;
}

void QsdPSDevice::keepLinesShort()
{
    _lineLength = &QsdPSConventionalLength;
}

const char* QsdPSDevice::GetPrefix()
{
    return nullptr;
}

void QsdPSDevice::SetPrefix(const char*) {}
