#include "ps/images/QsdPSSamples_p.h"

#include "ps/images/QsdPSIndexedColors_p.h"

#include <cstring>

QsdPSSamples::QsdPSSamples(const QsdDisplay& display, unsigned long depth, bool inColor)
    : _indexed(depth <= 8), _inColor(inColor)
{
    if (!_indexed) {
        return;
    }
    const QsdPSIndexedColors colors(display);
    for (unsigned index = 0; index < 256; ++index) {
        const auto i = static_cast<unsigned char>(index);
        if (inColor) {
            _table.insert(_table.end(), colors.rgb(i).begin(), colors.rgb(i).end());
        } else {
            _table.push_back(colors.grey(i));
        }
    }
}

void QsdPSSamples::convert(const unsigned char* pixels, std::size_t count, unsigned char* samples) const
{
    const unsigned size = components();
    for (std::size_t i = 0; i < count; ++i, samples += size) {
        if (_indexed) {
            std::memcpy(samples, _table.data() + std::size_t{pixels[i]} * size, size);
            continue;
        }
        const unsigned char* const pixel = pixels + 4 * i;
        if (_inColor) {
            std::memcpy(samples, pixel + 1, 3);
        } else {
            *samples = QsdPSGreyOf(pixel[1], pixel[2], pixel[3]);
        }
    }
}
