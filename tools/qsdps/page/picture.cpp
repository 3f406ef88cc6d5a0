#include "page/picture.h"

#include "page/colors.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <algorithm>
#include <cstddef>

namespace qsdps {

namespace {

class PixelReader {
public:
    PixelReader(const Pixels& pixels, double opacity) : _pixels(pixels), _opacity(opacity) {}

    [[nodiscard]] Ink at(std::uint32_t x, std::uint32_t y) const
    {
        const std::uint8_t* const p = &_pixels.rgba[4 * (std::size_t{y} * _pixels.width + x)];
        return {{p[0], p[1], p[2]}, p[3] / 255.0 * _opacity};
    }

private:
    const Pixels& _pixels;
    double _opacity;
};

/// The mask of pixels that can be seen; null when all can, or there would be too many runs of them.
std::unique_ptr<QsdBitmap> maskOf(QsdDisplay& display, const Pixels& pixels, const PixelReader& reader,
                                  std::size_t mostRuns)
{
    const std::size_t rowBytes = (std::size_t{pixels.width} + 7) / 8;
    std::vector<unsigned char> bits(rowBytes * pixels.height);
    std::size_t runs = 0;
    bool anyHidden = false;
    for (std::uint32_t y = 0; y < pixels.height; ++y) {
        bool inRun = false;
        for (std::uint32_t x = 0; x < pixels.width; ++x) {
            const bool seen = !reader.at(x, y).isInvisible();
            if (seen) {
                bits[rowBytes * y + x / 8] |= static_cast<unsigned char>(0x80U >> (x % 8));
                runs += inRun ? 0 : 1;
            }
            anyHidden = anyHidden || !seen;
            inRun = seen;
        }
    }
    if (!anyHidden || runs > mostRuns) {
        return nullptr;
    }
    return QsdBitmap::FromBits(&display, pixels.width, pixels.height, bits.data());
}

} // namespace

Matrix placementOf(const ImageObject& image, double width, double height)
{
    double across = image.viewport.width / width;
    double down = image.viewport.height / height;
    if (image.preserveAspect) {
        across = down = image.slice ? std::max(across, down) : std::min(across, down);
    }
    return {across,
            0,
            0,
            down,
            image.viewport.x + (image.viewport.width - width * across) * image.alignX,
            image.viewport.y + (image.viewport.height - height * down) * image.alignY};
}

std::unique_ptr<QsdBitmap> bitmapOf(QsdDisplay& display, const Pixels& pixels, double opacity,
                                    const PixelBlender& blender, std::size_t mostRuns)
{
    const PixelReader reader(pixels, opacity);
    std::unique_ptr<QsdBitmap> mask = maskOf(display, pixels, reader, mostRuns);
    QsdRGBBitmapData data(pixels.width, pixels.height);
    for (std::uint32_t y = 0; y < pixels.height; ++y) {
        for (std::uint32_t x = 0; x < pixels.width; ++x) {
            const Ink ink = reader.at(x, y);
            Rgb color = ink.color;
            if (!ink.isInvisible() || mask == nullptr) {
                color = blender(ink, {x + 0.5, y + 0.5});
            }
            data.setPixel(x, y, {color.r, color.g, color.b});
        }
    }
    auto bitmap = std::make_unique<QsdBitmap>(&display, data);
    bitmap->setMask(std::move(mask));
    return bitmap;
}

Rgb meanColor(const Pixels& pixels)
{
    std::uint64_t sums[3] = {};
    std::uint64_t weight = 0;
    for (std::size_t i = 0; i + 3 < pixels.rgba.size(); i += 4) {
        for (std::size_t c = 0; c < 3; ++c) {
            sums[c] += std::uint64_t{pixels.rgba[i + c]} * pixels.rgba[i + 3];
        }
        weight += pixels.rgba[i + 3];
    }
    weight = std::max<std::uint64_t>(weight, 1);
    return {static_cast<std::uint8_t>(sums[0] / weight), static_cast<std::uint8_t>(sums[1] / weight),
            static_cast<std::uint8_t>(sums[2] / weight)};
}

} // namespace qsdps
