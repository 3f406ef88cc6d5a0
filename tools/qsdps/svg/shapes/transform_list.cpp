#include "svg/shapes/transform_list.h"

#include "values/scanner.h"

#include <array>
#include <cmath>
#include <numbers>

namespace qsdps::svg {
namespace {

constexpr double Degree = std::numbers::pi / 180;

struct Arguments {
    std::array<double, 6> value{};
    std::size_t count = 0;
};

/// Style sheets write angles and lengths with units; angles come out in degrees.
std::optional<double> unitFactor(std::string_view unit)
{
    if (unit.empty() || unit == "px" || unit == "deg") {
        return 1;
    }
    if (unit == "rad") {
        return 1 / Degree;
    }
    if (unit == "grad") {
        return 0.9;
    }
    if (unit == "turn") {
        return 360;
    }
    return {};
}

/// The letters right behind a number; a sign there begins the next number.
std::string_view scanUnit(Scanner& scanner)
{
    const std::string_view rest = scanner.rest();
    std::size_t length = 0;
    while (length < rest.size() && isLetter(rest[length])) {
        ++length;
        scanner.advance();
    }
    return rest.substr(0, length);
}

std::optional<Arguments> scanArguments(Scanner& scanner)
{
    Arguments arguments;
    scanner.skipSpace();
    if (!scanner.take('(')) {
        return {};
    }
    scanner.skipSpace();
    while (!scanner.take(')')) {
        const auto value = scanner.number();
        if (!value || arguments.count == arguments.value.size()) {
            return {};
        }
        const auto factor = unitFactor(scanUnit(scanner));
        if (!factor) {
            return {};
        }
        arguments.value[arguments.count++] = *value * *factor;
        scanner.skipSeparator();
    }
    return arguments;
}

Matrix rotation(double degrees)
{
    const double sine = std::sin(degrees * Degree);
    const double cosine = std::cos(degrees * Degree);
    return {cosine, sine, -sine, cosine, 0, 0};
}

std::optional<Matrix> function(std::string_view name, const Arguments& arguments)
{
    const auto& v = arguments.value;
    const std::size_t n = arguments.count;
    if (name == "matrix" && n == 6) {
        return Matrix{v[0], v[1], v[2], v[3], v[4], v[5]};
    }
    if (name == "translate" && (n == 1 || n == 2)) {
        return Matrix::translation(v[0], v[1]);
    }
    if (name == "translateX" && n == 1) {
        return Matrix::translation(v[0], 0);
    }
    if (name == "translateY" && n == 1) {
        return Matrix::translation(0, v[0]);
    }
    if (name == "scale" && (n == 1 || n == 2)) {
        return Matrix::scaling(v[0], n == 1 ? v[0] : v[1]);
    }
    if (name == "scaleX" && n == 1) {
        return Matrix::scaling(v[0], 1);
    }
    if (name == "scaleY" && n == 1) {
        return Matrix::scaling(1, v[0]);
    }
    if (name == "rotate" && n == 1) {
        return rotation(v[0]);
    }
    if (name == "rotate" && n == 3) {
        return Matrix::translation(v[1], v[2]) * rotation(v[0]) * Matrix::translation(-v[1], -v[2]);
    }
    if (name == "skewX" && n == 1) {
        return Matrix{1, 0, std::tan(v[0] * Degree), 1, 0, 0};
    }
    if (name == "skewY" && n == 1) {
        return Matrix{1, std::tan(v[0] * Degree), 0, 1, 0, 0};
    }
    if (name == "skew" && (n == 1 || n == 2)) {
        return Matrix{1, std::tan(v[1] * Degree), std::tan(v[0] * Degree), 1, 0, 0};
    }
    return {};
}

} // namespace

std::optional<Matrix> parseTransform(std::string_view text)
{
    Matrix product;
    text = trim(text);
    if (text == "none") {
        return product;
    }
    Scanner scanner(text);
    while (!scanner.atEnd()) {
        const std::string_view name = scanner.word();
        const auto arguments = scanArguments(scanner);
        if (!arguments) {
            return {};
        }
        const auto factor = function(name, *arguments);
        if (!factor) {
            return {};
        }
        product = product * *factor;
        scanner.skipSeparator();
    }
    return product;
}

} // namespace qsdps::svg
