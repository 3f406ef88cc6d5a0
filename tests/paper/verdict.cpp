#include "verdict.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace {

/// So many pixels may always be others, where there is little outline.
constexpr double FewDiffering = 6;
constexpr double FewStrays = 3;

std::string differentPixels(const Picture& screen, const Picture& page, const Match& match)
{
    const Difference found = difference(screen, page, match.distance);
    const auto outline = static_cast<double>(found.outline);
    const bool exact = match.share == 0;
    const double differing = exact ? 0 : FewDiffering + match.share * outline;
    const double strays = exact ? 0 : FewStrays + match.strays * outline;
    if (static_cast<double>(found.differing) <= differing && static_cast<double>(found.strays) <= strays) {
        return "";
    }
    std::ostringstream text;
    text << found.differing << " pixels differ (" << differing << " may), " << found.strays
         << " have no equal one within " << match.distance << " (" << strays << " may)";
    return text.str();
}

std::string differentExtents(const QsdRect& screen, const QsdRect& page, int distance)
{
    const std::int64_t farthest =
        std::max({std::abs(std::int64_t{screen.x} - page.x), std::abs(std::int64_t{screen.y} - page.y),
                  std::abs(screen.right() - page.right()), std::abs(screen.bottom() - page.bottom())});
    const bool empty = screen.isEmpty() || page.isEmpty();
    if (empty ? screen.isEmpty() == page.isEmpty() : farthest <= distance) {
        return "";
    }
    std::ostringstream text;
    for (const QsdRect& box : {screen, page}) {
        text << "[" << box.x << " " << box.y << " " << box.width << " " << box.height << "] ";
    }
    text << "are extents more than " << distance << " apart";
    return text.str();
}

} // namespace

std::string mismatch(const Picture& screen, const Picture& page, const Match& match)
{
    switch (match.look) {
    case Look::Pixels:
        return differentPixels(screen, page, match);
    case Look::Extent:
        return differentExtents(screen.extent(Paper), page.extent(Paper), match.distance);
    case Look::Blank:
        return page.extent(Paper).isEmpty() ? "" : "something was drawn";
    case Look::Apart:
        break;
    }
    return "";
}
