#include "page_pixels.h"

#include <cstdlib>
#include <fstream>
#include <string>

QsdHandle<QsdColor> colorOf(QsdRGB rgb)
{
    const auto widened = [](std::uint8_t component) { return static_cast<std::uint16_t>(component * 257); };
    return QsdHandle<QsdColor>::Adopt(new QsdColor(widened(rgb.red), widened(rgb.green), widened(rgb.blue)));
}

PagePixels::PagePixels(const char* file)
{
    std::ifstream in(file, std::ios::binary);
    std::string magic;
    in >> magic >> std::ws;
    while (in.peek() == '#') {
        std::string comment;
        std::getline(in, comment);
    }
    int width = 0;
    int height = 0;
    int most = 0;
    in >> width >> height >> most;
    in.get();
    if (!in || magic != "P6" || most != 255 || width <= 0 || height <= 0) {
        return;
    }
    _bytes.resize(std::size_t{3} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    in.read(reinterpret_cast<char*>(_bytes.data()), static_cast<std::streamsize>(_bytes.size()));
    if (in) {
        _width = width;
        _height = height;
    }
}

bool PagePixels::shows(int x, int y, QsdRGB color, bool grey) const
{
    const QsdRGB found = pixel(x, y);
    if (!grey) {
        return found == color;
    }
    const int level = (11 * color.red + 16 * color.green + 5 * color.blue) >> 5;
    return found.red == found.green && found.green == found.blue && std::abs(found.red - level) <= 1;
}

QsdRGB PagePixels::pixel(int x, int y) const
{
    const std::size_t at =
        3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(_width) + static_cast<std::size_t>(x));
    return {_bytes[at], _bytes[at + 1], _bytes[at + 2]};
}

std::ostream& operator<<(std::ostream& out, QsdRGB color)
{
    return out << "(" << int{color.red} << " " << int{color.green} << " " << int{color.blue} << ")";
}
