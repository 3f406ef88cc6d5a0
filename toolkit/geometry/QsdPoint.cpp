#include "toolkit/geometry/QsdPoint.h"

#include <charconv>
#include <ostream>
#include <string_view>

std::ostream& operator<<(std::ostream& out, const QsdPoint& point)
{
    char text[32];
    char* end = std::to_chars(text, text + sizeof text, point.x).ptr;
    *end++ = ' ';
    end = std::to_chars(end, text + sizeof text, point.y).ptr;
    return out << std::string_view(text, static_cast<std::size_t>(end - text));
}
