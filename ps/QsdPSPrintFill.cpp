// Fills of the current path. The tile of a pattern is defined once in the document's setup; a fill names it.
//
// The tile is painted by a procedure that takes its samples from an array of strings, each short enough for every
// interpreter, so tiles may be of any size.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSBackground_p.h"
#include "ps/QsdPSImageSource_p.h"
#include "ps/QsdPSPrintDocument_p.h"
#include "ps/QsdPSSamples_p.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsMalloc.h"
#include "toolkit/port/QsdDisplay.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

/// A tile to define: its samples, and which it is.
struct QsdPSTile {
    QsdPSPatternKey key;
    std::vector<unsigned char> samples;
};

namespace {

using Data = std::unique_ptr<unsigned char, QsFreeDeleter>;

/// Bytes of a string of samples; interpreters take up to 65,535.
constexpr std::size_t StringSize = 60000;

std::uint64_t hash(const std::vector<unsigned char>& bytes, std::uint64_t start)
{
    std::uint64_t value = start;
    for (const unsigned char byte : bytes) {
        value = (value ^ byte) * 0x100000001B3U;
        value ^= value >> 29;
    }
    return value;
}

void setHashes(QsdPSTile& tile)
{
    tile.key.hashes[0] = hash(tile.samples, 0xCBF29CE484222325U);
    tile.key.hashes[1] = hash(tile.samples, 0x9E3779B97F4A7C15U);
}

/// What stands before and behind the data source of the image that paints a tile.
struct Painting {
    const char* samples;
    const char* matrix;
    const char* paint;
};

Painting paintingOf(const QsdPSPatternKey& key)
{
    // Upright, or as QsdPSDevice lays the tile.
    constexpr const char* Upright = "[1 0 0 -1 0 0]";
    const char* const matrix = key.upright || key.kind == QsdPSPatternKey::Color ? Upright : "[-1 0 0 -1 0 1]";
    switch (key.kind) {
    case QsdPSPatternKey::Mask:
        return {"true", matrix, "imagemask"};
    case QsdPSPatternKey::Bits:
        return {"1", matrix, "image"};
    case QsdPSPatternKey::Grey:
        return {"8", matrix, "image"};
    case QsdPSPatternKey::Color:
        break;
    }
    return {"8", matrix, "false 3 colorimage"};
}

} // namespace

void QsdPSPrintDevice::fillWithPattern(const QsdPalette* palette) const
{
    checkClip(palette->clipRegion());
    const bool evenOdd = palette->fillRule() == QsdEvenOddRule;
    switch (palette->fillStyle()) {
    case QsdFillMaskPattern:
        writeTile(palette);
        return;
    case QsdFillColorPattern:
        if (palette->colorPattern() != nullptr) {
            writeTile(palette);
        } else {
            QsdPSWriter(stream()) << "n" << EOL;
        }
        return;
    default:
        break;
    }
    if (palette->pattern() == palette->display()->solidPattern()) {
        QsdPSWriter(stream()) << (evenOdd ? "eofill" : "fill") << EOL;
        return;
    }
    const QsdPSBackground background(palette);
    QsdPSWriter(stream()) << "G ";
    setForeground(background.get());
    QsdPSWriter(stream()) << (evenOdd ? "eofill g" : "fill g") << EOL;
    writeTile(palette);
}

void QsdPSPrintDevice::writeTile(const QsdPalette* palette) const
{
    if (stream() == nullptr) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    const bool colored = palette->fillStyle() == QsdFillColorPattern;
    const QsdResource* const pattern =
        colored ? static_cast<const QsdResource*>(palette->colorPattern()) : palette->pattern();
    const auto width = colored ? palette->colorPattern()->width() : palette->pattern()->width();
    const auto height = colored ? palette->colorPattern()->height() : palette->pattern()->height();
    if (pattern != document.lastPattern.get() || inColor() != document.lastPatternInColor ||
        _screenPatterns != document.lastPatternUpright) {
        document.lastPatternNumber = definePattern(palette);
        document.lastPattern = QsdHandle<const QsdResource>(pattern);
        document.lastPatternInColor = inColor();
        document.lastPatternUpright = _screenPatterns;
    }
    QsdPSWriter(stream()) << "/P" << document.lastPatternNumber << " load " << width << QsdSpc() << height
                          << (palette->fillRule() == QsdEvenOddRule ? " true " : " false ")
                          << (_screenPatterns ? "fo" : "ft") << EOL;
}

unsigned QsdPSPrintDevice::definePattern(const QsdPalette* palette) const
{
    QsdPSTile tile;
    QsdPSPatternKey& key = tile.key;
    key.upright = _screenPatterns;
    unsigned long bytes = 0;
    if (palette->fillStyle() != QsdFillColorPattern) {
        const QsdPattern& pattern = *palette->pattern();
        const Data data(pattern.getBitmapData(bytes));
        key.kind = QsdPSPatternKey::Mask;
        key.width = pattern.width();
        key.height = pattern.height();
        tile.samples.assign(data.get(), data.get() + bytes);
    } else {
        const QsdColorPattern& pattern = *palette->colorPattern();
        const Data data(pattern.getBitmapData(bytes));
        key.width = pattern.width();
        key.height = pattern.height();
        if (pattern.depth() == 1) {
            key.kind = QsdPSPatternKey::Bits;
            tile.samples.assign(data.get(), data.get() + bytes);
            tile.samples.resize(QsdPSBitRowBytes(key.width) * key.height);
        } else {
            key.kind = inColor() ? QsdPSPatternKey::Color : QsdPSPatternKey::Grey;
            const QsdPSSamples samples(*palette->display(), pattern.depth(), inColor());
            const std::size_t pixels =
                std::min(std::size_t{key.width} * key.height, std::size_t{bytes} / samples.sourceBytes(1));
            tile.samples.resize(std::size_t{key.width} * key.height * samples.components());
            samples.convert(data.get(), pixels, tile.samples.data());
        }
    }
    setHashes(tile);
    bool isNew = false;
    const unsigned number = _document->resources.pattern(key, isNew);
    if (isNew) {
        try {
            QsdPSWriteWhole(_document->resources.patternDefinitions(),
                            [&](QsdPSSpool& definitions) { writePattern(definitions, number, tile); });
        } catch (...) {
            _document->resources.forgetPattern(key);
            throw;
        }
    }
    return number;
}

void QsdPSPrintDevice::writePattern(QsdPSSpool& out, unsigned number, const QsdPSTile& tile) const
{
    const QsdPSPatternKey& key = tile.key;
    QsdPSWriter(&out) << "/P" << number << "s[" << EOL;
    const bool hasEncoder = imageEncoder() != nullptr;
    for (std::size_t begin = 0; hasEncoder && begin < tile.samples.size(); begin += StringSize) {
        const std::size_t count = std::min(StringSize, tile.samples.size() - begin);
        writeSamples(out, [&](std::ostream& target, QsdPostScriptEncoder& encoder) {
            if (readsHexadecimal(&encoder)) {
                QsdPSWriter(&target) << count << " rh" << EOL;
            } else {
                QsdPSWriter(&target) << count << " string currentfile " << encoder.getDecoderString().view() << " rs"
                                     << EOL;
            }
            encoder.startData();
            encoder.putBytes(count, tile.samples.data() + begin);
            encoder.endData();
        });
    }
    const Painting painting = paintingOf(key);
    QsdPSWriter(&out) << "]def" << EOL //
                      << "/P" << number << "{/pi 0 def " << key.width << QsdSpc() << key.height << QsdSpc()
                      << painting.samples << painting.matrix << "{P" << number << "s pn}" << painting.paint << "}bd"
                      << EOL;
}
