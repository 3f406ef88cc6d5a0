#include "picture.h"

#include "toolkit/base/QsMalloc.h"
#include "toolkit/port/QsdDisplay.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace {

std::vector<QsdRGB> pixelsOf(const QsdSystemPort& port)
{
    constexpr std::size_t BytesPerPixel = 4; // an unused one and the components
    const QsdRect all{0, 0, static_cast<std::uint32_t>(port.width()), static_cast<std::uint32_t>(port.height())};
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(port.display()->getBitmapData(&port, size, all));
    std::vector<QsdRGB> pixels(std::size_t{all.width} * all.height);
    for (std::size_t i = 0; i < std::min(pixels.size(), size / BytesPerPixel); ++i) {
        const unsigned char* const bytes = data.get() + i * BytesPerPixel;
        pixels[i] = {bytes[1], bytes[2], bytes[3]};
    }
    return pixels;
}

} // namespace

Picture::Picture(int width, int height, std::vector<QsdRGB> pixels)
    : _width(width), _height(height), _pixels(std::move(pixels))
{
}

Picture::Picture(const QsdSystemPort& port)
    : Picture(static_cast<int>(port.width()), static_cast<int>(port.height()), pixelsOf(port))
{
}

QsdRect Picture::extent(QsdRGB paper) const
{
    QsdRect box;
    for (int y = 0; y < _height; ++y) {
        for (int x = 0; x < _width; ++x) {
            if (at(x, y) != paper) {
                box = box.united({x, y, 1, 1});
            }
        }
    }
    return box;
}

std::size_t Picture::outline() const
{
    std::size_t count = 0;
    for (int y = 0; y < _height; ++y) {
        for (int x = 0; x < _width; ++x) {
            const auto differs = [&](int nearX, int nearY) {
                return contains(nearX, nearY) && at(nearX, nearY) != at(x, y);
            };
            count += differs(x - 1, y) || differs(x + 1, y) || differs(x, y - 1) || differs(x, y + 1) ? 1 : 0;
        }
    }
    return count;
}

bool Picture::hasNear(int x, int y, QsdRGB color, int distance) const
{
    for (int nearY = y - distance; nearY <= y + distance; ++nearY) {
        for (int nearX = x - distance; nearX <= x + distance; ++nearX) {
            if (at(nearX, nearY) == color) {
                return true;
            }
        }
    }
    return false;
}

std::size_t Picture::strays(const Picture& other, int distance) const
{
    std::size_t count = 0;
    for (int y = 0; y < _height; ++y) {
        for (int x = 0; x < _width; ++x) {
            const bool whole = other.contains(x - distance, y - distance) && other.contains(x + distance, y + distance);
            count += !whole || other.hasNear(x, y, at(x, y), distance) ? 0 : 1;
        }
    }
    return count;
}

Difference difference(const Picture& screen, const Picture& page, int distance)
{
    return {screen.strays(page, distance) + page.strays(screen, distance), screen.strays(page, 0), screen.outline()};
}
