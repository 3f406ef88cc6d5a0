#include "page/picture_strips.h"

#include "images/pixels.h"
#include "page/picture.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace qsdps {

namespace {

constexpr std::size_t StripBytes = std::size_t{1} << 20; ///< about as much as is decoded before it is drawn
constexpr std::uint32_t WidestTile = 16384; ///< pixels, a multiple of 8: the rows of level 1 images are strings

constexpr std::size_t BytesPerPixel = 4;

/// Rows of a picture that follow each other, in the layout of ImageReader::readRow.
struct Strip {
    std::uint32_t height = 0;
    std::size_t rowBytes = 0;
    std::vector<std::uint8_t> bytes;
};

std::uint32_t rowsPerStrip(const ImageHeader& header)
{
    const std::size_t rows = StripBytes / rowBytesOf(header);
    return static_cast<std::uint32_t>(std::clamp<std::size_t>(rows, 1, header.height));
}

/// Copies the rows of a strip from byte `start` on into rows of `rowBytes` at `out`.
void copyRows(const Strip& strip, std::size_t start, std::size_t rowBytes, std::uint8_t* out)
{
    for (std::uint32_t y = 0; y < strip.height; ++y) {
        std::memcpy(out + rowBytes * y, &strip.bytes[strip.rowBytes * y + start], rowBytes);
    }
}

class StripPainter {
public:
    StripPainter(const QsdPort& port, const ImageHeader& header, Rgb paper, PaintTools& tools)
        : _port(port), _header(header), _paper(paper), _tools(tools)
    {
        tools.palette->setClipRegion(QsdRegion::Full());
        if (header.kind == PixelKind::Bits) {
            // The clear bits of all strips at once: their edges may fall between the dots of a printer.
            tools.palette->setForeground(tools.colors.get(header.clear));
            port.fillRectangle(tools.palette.get(), {0, 0, header.width, header.height});
            tools.palette->setForeground(tools.colors.get(header.set));
        }
    }

    /// Draws rows that begin with row `top` of the picture.
    void draw(const Strip& strip, std::uint32_t top)
    {
        for (std::uint32_t x = 0; x < _header.width; x += WidestTile) {
            const std::uint32_t width = std::min(WidestTile, _header.width - x);
            const QsdPoint at{static_cast<std::int32_t>(x), static_cast<std::int32_t>(top)};
            if (_header.kind == PixelKind::Bits) {
                drawBits(strip, width, at);
            } else if (_header.hasAlpha) {
                drawTranslucent(strip, width, at);
            } else {
                drawOpaque(strip, width, at);
            }
        }
    }

private:
    static QsdRect areaOf(const QsdBitmap& bitmap)
    {
        return {0, 0, static_cast<std::uint32_t>(bitmap.width()), static_cast<std::uint32_t>(bitmap.height())};
    }

    void drawBits(const Strip& strip, std::uint32_t width, const QsdPoint& at)
    {
        const std::size_t rowBytes = (std::size_t{width} + 7) / 8;
        std::vector<std::uint8_t> bits(rowBytes * strip.height);
        copyRows(strip, static_cast<std::size_t>(at.x) / 8, rowBytes, bits.data());
        const auto bitmap = QsdBitmap::FromBits(_port.display(), width, strip.height, bits.data());
        _port.drawTransparentBitmap(_tools.palette.get(), bitmap.get(), areaOf(*bitmap), at);
    }

    void drawOpaque(const Strip& strip, std::uint32_t width, const QsdPoint& at)
    {
        QsdRGBBitmapData data(width, strip.height);
        for (std::uint32_t y = 0; y < strip.height; ++y) {
            const std::uint8_t* from =
                &strip.bytes[strip.rowBytes * y + BytesPerPixel * static_cast<std::size_t>(at.x)];
            unsigned char* to = data.data() + BytesPerPixel * width * y;
            for (std::uint32_t x = 0; x < width; ++x, from += BytesPerPixel, to += BytesPerPixel) {
                std::copy_n(from, 3, to + 1);
            }
        }
        const QsdBitmap bitmap(_port.display(), data);
        _port.drawBitmap(_tools.palette.get(), &bitmap, areaOf(bitmap), at);
    }

    void drawTranslucent(const Strip& strip, std::uint32_t width, const QsdPoint& at)
    {
        Pixels pixels{width, strip.height, {}};
        const std::size_t rowBytes = BytesPerPixel * width;
        pixels.rgba.resize(rowBytes * strip.height);
        copyRows(strip, BytesPerPixel * static_cast<std::size_t>(at.x), rowBytes, pixels.rgba.data());
        // A run takes about as many bytes as thirty pixels.
        const std::size_t mostRuns = std::max<std::size_t>(64, std::size_t{width} * strip.height / 30);
        const auto bitmap = bitmapOf(
            *_port.display(), pixels, 1, [this](const Ink& ink, Point) { return blend(ink, 1, _paper); }, mostRuns);
        if (bitmap->mask() != nullptr) {
            _port.drawTransparentBitmap(_tools.palette.get(), bitmap.get(), areaOf(*bitmap), at);
        } else {
            _port.drawBitmap(_tools.palette.get(), bitmap.get(), areaOf(*bitmap), at);
        }
    }

    const QsdPort& _port;
    const ImageHeader& _header;
    Rgb _paper;
    PaintTools& _tools;
};

} // namespace

Status drawPicture(const QsdPort& port, ImageReader& reader, Rgb paper, PaintTools& tools,
                   const std::function<bool(std::uint32_t)>& goesOn)
{
    const ImageHeader& header = reader.header();
    StripPainter painter(port, header, paper, tools);
    Strip strip{0, rowBytesOf(header), {}};
    const std::uint32_t rows = rowsPerStrip(header);
    strip.bytes.resize(strip.rowBytes * rows);
    for (std::uint32_t top = 0; top < header.height; top += strip.height) {
        strip.height = std::min(rows, header.height - top);
        for (std::uint32_t y = 0; y < strip.height; ++y) {
            if (Status read = reader.readRow(&strip.bytes[strip.rowBytes * y]); !read) {
                return read;
            }
        }
        painter.draw(strip, top);
        if (!goesOn(top + strip.height)) {
            break;
        }
    }
    return {};
}

} // namespace qsdps
