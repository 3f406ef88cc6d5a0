#include "values/color.h"

#include "values/color_names.h"
#include "values/scanner.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace qsdps {
namespace {

int hexDigit(char c)
{
    if (isDigit(c)) {
        return c - '0';
    }
    const char lower = toLower(c);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::uint8_t toByte(double v)
{
    return static_cast<std::uint8_t>(std::lround(std::clamp(v, 0.0, 255.0)));
}

std::optional<Color> parseHex(std::string_view digits)
{
    const std::size_t n = digits.size();
    if (n != 3 && n != 4 && n != 6 && n != 8) {
        return {};
    }
    const std::size_t width = n <= 4 ? 1 : 2;
    std::array<int, 4> channel{0, 0, 0, 255};
    for (std::size_t i = 0; i < n / width; ++i) {
        const int high = hexDigit(digits[i * width]);
        const int low = hexDigit(digits[i * width + width - 1]);
        if (high < 0 || low < 0) {
            return {};
        }
        channel[i] = high * 16 + low;
    }
    return Color{{toByte(channel[0]), toByte(channel[1]), toByte(channel[2])}, channel[3] / 255.0};
}

struct Component {
    double value = 0;
    bool percent = false;
};

/// The components between the parentheses; commas, blanks and the slash before the alpha all separate.
std::optional<std::array<Component, 4>> scanComponents(std::string_view text, std::size_t& count)
{
    std::array<Component, 4> components;
    Scanner scanner(text);
    scanner.skipSpace();
    count = 0;
    while (!scanner.atEnd() && scanner.peek() != ')') {
        auto value = scanner.number();
        if (!value || count == components.size()) {
            return {};
        }
        const bool percent = scanner.take('%');
        const std::string_view unit = scanner.word();
        if (unit == "rad") {
            *value *= 57.29577951308232;
        } else if (unit == "grad") {
            *value *= 0.9;
        } else if (unit == "turn") {
            *value *= 360;
        } else if (!unit.empty() && unit != "deg") {
            return {};
        }
        components[count++] = {*value, percent};
        scanner.skipSeparator();
        if (scanner.take('/')) {
            scanner.skipSpace();
        }
    }
    if (!scanner.take(')')) {
        return {};
    }
    return components;
}

double hueChannel(double low, double high, double hue)
{
    hue -= std::floor(hue / 360) * 360;
    if (hue < 60) {
        return low + (high - low) * hue / 60;
    }
    if (hue < 180) {
        return high;
    }
    if (hue < 240) {
        return low + (high - low) * (240 - hue) / 60;
    }
    return low;
}

Rgb fromHsl(double hue, double saturation, double lightness)
{
    saturation = std::clamp(saturation, 0.0, 1.0);
    lightness = std::clamp(lightness, 0.0, 1.0);
    const double high =
        lightness <= 0.5 ? lightness * (1 + saturation) : lightness + saturation - lightness * saturation;
    const double low = 2 * lightness - high;
    return {toByte(255 * hueChannel(low, high, hue + 120)), toByte(255 * hueChannel(low, high, hue)),
            toByte(255 * hueChannel(low, high, hue - 120))};
}

std::optional<Color> parseFunction(std::string_view name, std::string_view arguments)
{
    std::size_t count = 0;
    const auto components = scanComponents(arguments, count);
    if (!components || count < 3) {
        return {};
    }
    const auto& c = *components;
    const double alpha = count < 4 ? 1 : std::clamp(c[3].percent ? c[3].value / 100 : c[3].value, 0.0, 1.0);
    if (equalsNoCase(name, "hsl") || equalsNoCase(name, "hsla")) {
        return Color{fromHsl(c[0].value, c[1].value / 100, c[2].value / 100), alpha};
    }
    if (!equalsNoCase(name, "rgb") && !equalsNoCase(name, "rgba")) {
        return {};
    }
    const auto channel = [](const Component& v) { return toByte(v.percent ? v.value * 255 / 100 : v.value); };
    return Color{{channel(c[0]), channel(c[1]), channel(c[2])}, alpha};
}

} // namespace

std::optional<Color> parseColor(std::string_view text)
{
    text = trim(text);
    if (text.empty()) {
        return {};
    }
    if (text.front() == '#') {
        return parseHex(text.substr(1));
    }
    Scanner scanner(text);
    const std::string_view name = scanner.word();
    if (scanner.take('(')) {
        return parseFunction(name, scanner.rest());
    }
    if (!scanner.atEnd()) {
        return {};
    }
    if (equalsNoCase(name, "transparent")) {
        return Color{{}, 0};
    }
    if (const auto rgb = colorByName(name)) {
        return Color{*rgb, 1};
    }
    return {};
}

} // namespace qsdps
