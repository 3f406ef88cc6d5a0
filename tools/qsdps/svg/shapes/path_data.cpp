#include "svg/shapes/path_data.h"

#include "svg/shapes/arc.h"
#include "values/scanner.h"

#include <array>

namespace qsdps::svg {
namespace {

class Builder {
public:
    explicit Builder(std::string_view text) : _scanner(text) {}

    PathData run()
    {
        PathData result;
        _scanner.skipSpace();
        while (!_scanner.atEnd()) {
            const char command = _scanner.peek();
            _scanner.advance();
            _scanner.skipSpace();
            if ((!_started && toLower(command) != 'm') || !runCommand(command)) {
                result.complete = false;
                break;
            }
            _scanner.skipSpace();
        }
        result.path = std::move(_path);
        return result;
    }

private:
    enum class Curve : unsigned char { None, Cubic, Quadratic };

    bool runCommand(char command)
    {
        if (toLower(command) == 'z') {
            _path.close();
            _at = _start;
            _closed = true;
            _previous = Curve::None;
            return true;
        }
        // Arguments may repeat without the letter; further pairs after a Move are Lines.
        do {
            if (!runOnce(command)) {
                return false;
            }
            if (toLower(command) == 'm') {
                command = command == 'm' ? 'l' : 'L';
            }
        } while (moreArguments());
        return true;
    }

    bool moreArguments()
    {
        _scanner.skipSeparator();
        const char c = _scanner.peek();
        return isDigit(c) || c == '.' || c == '-' || c == '+';
    }

    bool runOnce(char command)
    {
        const bool relative = command >= 'a';
        const Point origin = relative ? _at : Point{};
        std::array<double, 6> v{};
        switch (toLower(command)) {
        case 'm':
            return numbers(v, 2) && moveTo({origin.x + v[0], origin.y + v[1]});
        case 'l':
            return numbers(v, 2) && lineTo({origin.x + v[0], origin.y + v[1]});
        case 'h':
            return numbers(v, 1) && lineTo({origin.x + v[0], _at.y});
        case 'v':
            return numbers(v, 1) && lineTo({_at.x, origin.y + v[0]});
        case 'c':
            return numbers(v, 6) && cubicTo({origin.x + v[0], origin.y + v[1]}, {origin.x + v[2], origin.y + v[3]},
                                            {origin.x + v[4], origin.y + v[5]});
        case 's':
            return numbers(v, 4) && cubicTo(reflected(Curve::Cubic), {origin.x + v[0], origin.y + v[1]},
                                            {origin.x + v[2], origin.y + v[3]});
        case 'q':
            return numbers(v, 4) && quadraticTo({origin.x + v[0], origin.y + v[1]}, {origin.x + v[2], origin.y + v[3]});
        case 't':
            return numbers(v, 2) && quadraticTo(reflected(Curve::Quadratic), {origin.x + v[0], origin.y + v[1]});
        case 'a':
            return arcTo(origin);
        default:
            return false;
        }
    }

    bool numbers(std::array<double, 6>& values, std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0) {
                _scanner.skipSeparator();
            }
            const auto value = _scanner.number();
            if (!value) {
                return false;
            }
            values[i] = *value;
        }
        return true;
    }

    bool moveTo(Point p)
    {
        _path.moveTo(p);
        _at = _start = p;
        _started = true;
        _closed = false;
        _previous = Curve::None;
        return true;
    }

    /// After a Close the next segment begins a sub-path of its own at the same start.
    void reopen()
    {
        if (_closed) {
            _path.moveTo(_start);
        }
        _closed = false;
    }

    bool lineTo(Point p)
    {
        reopen();
        _path.lineTo(p);
        _at = p;
        _previous = Curve::None;
        return true;
    }

    bool cubicTo(Point c1, Point c2, Point p)
    {
        reopen();
        _path.cubicTo(c1, c2, p);
        _at = p;
        _control = c2;
        _previous = Curve::Cubic;
        return true;
    }

    bool quadraticTo(Point c, Point p)
    {
        reopen();
        _path.cubicTo({_at.x + (c.x - _at.x) * 2 / 3, _at.y + (c.y - _at.y) * 2 / 3},
                      {p.x + (c.x - p.x) * 2 / 3, p.y + (c.y - p.y) * 2 / 3}, p);
        _at = p;
        _control = c;
        _previous = Curve::Quadratic;
        return true;
    }

    bool arcTo(Point origin)
    {
        std::array<double, 6> radii{};
        std::array<double, 6> end{};
        if (!numbers(radii, 3)) {
            return false;
        }
        _scanner.skipSeparator();
        const auto large = _scanner.flag();
        _scanner.skipSeparator();
        const auto sweep = _scanner.flag();
        _scanner.skipSeparator();
        if (!large || !sweep || !numbers(end, 2)) {
            return false;
        }
        const Point to{origin.x + end[0], origin.y + end[1]};
        reopen();
        appendArc(_path, {_at, radii[0], radii[1], radii[2], *large, *sweep, to});
        _at = to;
        _previous = Curve::None;
        return true;
    }

    [[nodiscard]] Point reflected(Curve kind) const
    {
        return _previous == kind ? Point{2 * _at.x - _control.x, 2 * _at.y - _control.y} : _at;
    }

    Scanner _scanner;
    Path _path;
    Point _at;
    Point _start;
    Point _control;
    Curve _previous = Curve::None;
    bool _started = false;
    bool _closed = false;
};

} // namespace

PathData parsePathData(std::string_view text)
{
    if (trim(text) == "none") {
        return {};
    }
    return Builder(text).run();
}

} // namespace qsdps::svg
