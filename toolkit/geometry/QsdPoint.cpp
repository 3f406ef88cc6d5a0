#include "toolkit/geometry/QsdPoint.h"

#include <charconv>
#include <ostream>
#include <string_view>

namespace {

/// One integer in plain decimal.
class Decimal {
public:
    explicit Decimal(std::int32_t value)
        : _size(static_cast<std::size_t>(std::to_chars(_text, _text + sizeof _text, value).ptr - _text))
    {
    }
    [[nodiscard]] std::string_view text() const { return {_text, _size}; }

private:
    char _text[12];
    std::size_t _size;
};

} // namespace

std::ostream& operator<<(std::ostream& out, const QsdPoint& point)
{
    return out << Decimal(point.x).text() << ' ' << Decimal(point.y).text();
}
