#include "window/pixel_colors.h"

#include <algorithm>
#include <bit>

namespace qsdps {

unsigned long PixelColors::Field::valueIn(unsigned long pixel) const
{
    return mask == 0 ? 0 : (pixel & mask) >> std::countr_zero(mask);
}

std::uint8_t PixelColors::Field::reduced(unsigned long pixel) const
{
    const unsigned long most = std::max(largest(), 1UL);
    return static_cast<std::uint8_t>((valueIn(pixel) * 255 + most / 2) / most);
}

PixelColors::PixelColors(Display* display, const Visual& visual, Colormap map)
    : _red{visual.red_mask}, _green{visual.green_mask}, _blue{visual.blue_mask},
      _isDirect(visual.c_class == DirectColor)
{
    if (visual.c_class == TrueColor) {
        return;
    }
    constexpr int MostEntries = 65536;
    std::vector<XColor> entries(static_cast<std::size_t>(std::clamp(visual.map_entries, 2, MostEntries)));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto shifted = [i](const Field& field) {
            return field.mask == 0 ? 0 : (i << std::countr_zero(field.mask)) & field.mask;
        };
        entries[i].pixel = _isDirect ? shifted(_red) | shifted(_green) | shifted(_blue) : i;
    }
    XQueryColors(display, map, entries.data(), static_cast<int>(entries.size()));
    for (const XColor& entry : entries) {
        const auto reduced = [](unsigned short component) { return static_cast<std::uint8_t>(component >> 8); };
        _colors.push_back({reduced(entry.red), reduced(entry.green), reduced(entry.blue)});
    }
}

Rgb PixelColors::operator()(unsigned long pixel) const
{
    if (_colors.empty()) {
        return {_red.reduced(pixel), _green.reduced(pixel), _blue.reduced(pixel)};
    }
    const auto entry = [this](unsigned long i) { return _colors[std::min<std::size_t>(i, _colors.size() - 1)]; };
    if (!_isDirect) {
        return entry(pixel);
    }
    return {entry(_red.valueIn(pixel)).r, entry(_green.valueIn(pixel)).g, entry(_blue.valueIn(pixel)).b};
}

} // namespace qsdps
