#include "toolkit/raster/QsdColorTable.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t MostColors = 256;

int distance(QsdRGB a, QsdRGB b)
{
    const int red = a.red - b.red;
    const int green = a.green - b.green;
    const int blue = a.blue - b.blue;
    return red * red + green * green + blue * blue;
}

} // namespace

QsdColorTable::QsdColorTable(std::vector<QsdRGB> colors) : _colors(std::move(colors))
{
    _colors.resize(std::min(_colors.size(), MostColors));
}

QsdColorTable QsdColorTable::BlackAndWhite()
{
    return QsdColorTable({{255, 255, 255}, {0, 0, 0}});
}

QsdColorTable QsdColorTable::Cube()
{
    constexpr std::uint8_t Levels[] = {0, 51, 102, 153, 204, 255};
    std::vector<QsdRGB> colors;
    for (const std::uint8_t red : Levels) {
        for (const std::uint8_t green : Levels) {
            for (const std::uint8_t blue : Levels) {
                colors.push_back({red, green, blue});
            }
        }
    }
    const std::size_t greys = MostColors - colors.size();
    for (std::size_t i = 1; i <= greys; ++i) {
        const auto level = static_cast<std::uint8_t>(255 * i / (greys + 1));
        colors.push_back({level, level, level});
    }
    return QsdColorTable(std::move(colors));
}

std::uint8_t QsdColorTable::nearest(QsdRGB color) const
{
    const auto found = std::min_element(_colors.begin(), _colors.end(),
                                        [=](QsdRGB a, QsdRGB b) { return distance(a, color) < distance(b, color); });
    return static_cast<std::uint8_t>(found == _colors.end() ? 0 : found - _colors.begin());
}
