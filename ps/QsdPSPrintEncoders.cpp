// What encodes the samples of images and patterns: the device's encoder, or a second one where that takes less room.
#include "ps/QsdPSCountedOutput_p.h"
#include "ps/QsdPSImageSource_p.h"
#include "ps/QsdPSPrintDevice.h"
#include "ps/QsdPSPrintDocument_p.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"

#include <utility>

namespace {

/// Lets an encoder write to a stream, and to another one afterwards.
class EncoderOutput {
public:
    EncoderOutput(QsdPostScriptEncoder& encoder, std::ostream* stream, std::ostream* afterwards)
        : _encoder(encoder), _afterwards(afterwards)
    {
        encoder.setStream(stream);
    }
    ~EncoderOutput() { _encoder.setStream(_afterwards); }
    EncoderOutput(const EncoderOutput&) = delete;
    EncoderOutput& operator=(const EncoderOutput&) = delete;

private:
    QsdPostScriptEncoder& _encoder;
    std::ostream* _afterwards;
};

} // namespace

void QsdPSPrintDevice::setSecondEncoder(std::unique_ptr<QsdPostScriptEncoder> encoder)
{
    _secondEncoder = std::move(encoder);
}

// Documents of level 1 have hexadecimal data whatever the device is set to meanwhile, and others have a filter.
QsdPostScriptEncoder* QsdPSPrintDevice::imageEncoder() const
{
    QsdPSPrintDocument& document = *_document;
    if ((document.level == 1) == (getPostScriptLevel() == 1)) {
        return getEncoder();
    }
    if (document.encoder == nullptr) {
        if (document.level == 1) {
            document.encoder = std::make_unique<QsdASCIIHexEncoder>(nullptr, false);
        } else {
            document.encoder = std::make_unique<QsdASCII85Encoder>(nullptr);
        }
    }
    document.encoder->setStream(stream());
    return document.encoder.get();
}

bool QsdPSPrintDevice::readsHexadecimal(const QsdPostScriptEncoder* encoder) const
{
    return _document->level == 1 || QsdPostScriptEncoder::GetFullDecoderString(encoder).isEmpty();
}

// The text with the device's encoder stands in the spool already when that with the second one is measured, which is
// written a second time only where it replaces the first: so nothing has to be kept in memory.
void QsdPSPrintDevice::writeSamples(QsdPSSpool& out, const SamplesWriter& write) const
{
    QsdPostScriptEncoder* const first = imageEncoder();
    const std::uint64_t begin = out.size();
    {
        const EncoderOutput output(*first, &out, stream());
        write(out, *first);
    }
    QsdPostScriptEncoder* const second = _secondEncoder.get();
    if (second == nullptr || readsHexadecimal(first) || readsHexadecimal(second) || out.fail()) {
        return;
    }
    QsdPSCountedOutput counted;
    {
        const EncoderOutput output(*second, &counted, nullptr);
        write(counted, *second);
    }
    if (counted.size() < out.size() - begin) {
        out.truncate(begin);
        const EncoderOutput output(*second, &out, nullptr);
        write(out, *second);
    }
}
