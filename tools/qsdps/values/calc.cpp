#include "values/calc.h"

#include "values/css_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace qsdps {
namespace {

/// Parentheses inside of parentheses; each level takes stack.
constexpr int MaxNesting = 32;
constexpr std::string_view Calc = "calc(";

struct AngleUnit {
    std::string_view name;
    double degrees;
};

constexpr AngleUnit Angles[] = {{"deg", 1}, {"grad", 0.9}, {"rad", 180 / std::numbers::pi}, {"turn", 360}};

using Kind = CalcResult::Kind;

void scale(CalcResult& result, double factor)
{
    result.value *= factor;
    for (double& term : result.sum) {
        term *= factor;
    }
}

/// The only unit of a sum; nothing where there are several.
std::optional<Unit> singleUnit(const CalcResult& result)
{
    const LengthSum& sum = result.sum;
    const auto isTerm = [](double term) { return term != 0; };
    const auto* first = std::find_if(sum.begin(), sum.end(), isTerm);
    if (first == sum.end()) {
        return result.unit;
    }
    if (std::find_if(first + 1, sum.end(), isTerm) != sum.end()) {
        return {};
    }
    return static_cast<Unit>(first - sum.begin());
}

class CalcReader {
public:
    explicit CalcReader(std::string_view text) : _scanner(text) {}

    std::optional<CalcResult> whole()
    {
        auto result = sum();
        const bool finite =
            result && std::isfinite(result->value) &&
            std::all_of(result->sum.begin(), result->sum.end(), [](double v) { return std::isfinite(v); });
        return finite && _scanner.atEnd() ? result : std::nullopt;
    }

private:
    /// Blanks belong around + and -, which otherwise are signs of numbers.
    std::optional<CalcResult> sum()
    {
        auto total = product();
        while (total) {
            const std::string_view rest = _scanner.rest();
            _scanner.skipSpace();
            const std::string_view mark = _scanner.rest().substr(0, 2);
            const bool spaced = !rest.empty() && isSpace(rest.front()) && mark.size() == 2 && isSpace(mark[1]);
            if (!spaced || (mark[0] != '+' && mark[0] != '-')) {
                return total;
            }
            _scanner.advance();
            auto next = product();
            if (!next || next->kind != total->kind) {
                return {};
            }
            if (mark[0] == '-') {
                scale(*next, -1);
            }
            total->value += next->value;
            for (std::size_t i = 0; i < UnitCount; ++i) {
                total->sum[i] += next->sum[i];
            }
        }
        return total;
    }

    std::optional<CalcResult> product()
    {
        auto result = operand();
        while (result) {
            const Scanner before = _scanner;
            _scanner.skipSpace();
            const bool divides = _scanner.take('/');
            if (!divides && !_scanner.take('*')) {
                _scanner = before;
                return result;
            }
            auto next = operand();
            if (!next) {
                return {};
            }
            if (!divides && result->kind == Kind::Number) {
                std::swap(*result, *next);
            }
            if (next->kind != Kind::Number || (divides && next->value == 0)) {
                return {};
            }
            scale(*result, divides ? 1 / next->value : next->value);
        }
        return result;
    }

    std::optional<CalcResult> operand()
    {
        _scanner.skipSpace();
        if (equalsNoCase(_scanner.rest().substr(0, Calc.size()), Calc)) {
            _scanner.advance(Calc.size() - 1);
        }
        if (_scanner.take('(')) {
            return inParentheses();
        }
        const auto value = _scanner.number();
        if (!value) {
            return {};
        }
        if (_scanner.take('%')) {
            return ofUnit(*value, Unit::Percent);
        }
        const std::string_view name = letters();
        if (name.empty()) {
            return CalcResult{Kind::Number, *value};
        }
        for (const AngleUnit& angle : Angles) {
            if (equalsNoCase(name, angle.name)) {
                return CalcResult{Kind::Angle, *value * angle.degrees};
            }
        }
        const auto unit = unitByName(name);
        return unit ? std::optional(ofUnit(*value, *unit)) : std::nullopt;
    }

    std::optional<CalcResult> inParentheses()
    {
        if (_nesting == MaxNesting) {
            return {};
        }
        ++_nesting;
        auto result = sum();
        --_nesting;
        _scanner.skipSpace();
        return _scanner.take(')') ? result : std::nullopt;
    }

    static CalcResult ofUnit(double value, Unit unit)
    {
        CalcResult result;
        result.kind = Kind::Length;
        result.unit = unit;
        result.sum[static_cast<std::size_t>(unit)] = value;
        return result;
    }

    std::string_view letters()
    {
        const std::string_view rest = _scanner.rest();
        const auto* const end = std::find_if_not(rest.begin(), rest.end(), isLetter);
        const auto size = static_cast<std::size_t>(end - rest.begin());
        _scanner.advance(size);
        return rest.substr(0, size);
    }

    Scanner _scanner;
    int _nesting = 0;
};

void append(std::string& out, double value, std::string_view unit)
{
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.append(digits, end).append(unit);
}

/// False for a sum of several units.
bool append(std::string& out, const CalcResult& result, bool clamp)
{
    const auto limited = [clamp](double value) { return clamp ? std::max(value, 0.0) : value; };
    if (result.kind == Kind::Length) {
        const auto unit = singleUnit(result);
        if (unit) {
            append(out, limited(result.sum[static_cast<std::size_t>(*unit)]), nameOf(*unit));
        }
        return unit.has_value();
    }
    append(out, limited(result.value), result.kind == Kind::Angle ? "deg" : "");
    return true;
}

} // namespace

std::optional<Length> CalcResult::asLength() const
{
    if (kind == Kind::Angle) {
        return {};
    }
    if (kind == Kind::Number) {
        return qsdps::Length{value, Unit::User};
    }
    if (const auto single = singleUnit(*this)) {
        return qsdps::Length{sum[static_cast<std::size_t>(*single)], *single};
    }
    return qsdps::Length{0, Unit::User, std::make_shared<const LengthSum>(sum)};
}

std::optional<CalcResult> scanCalc(Scanner& scanner)
{
    const std::string_view rest = scanner.rest();
    if (!equalsNoCase(rest.substr(0, Calc.size()), Calc)) {
        return {};
    }
    const std::string_view parentheses = rest.substr(Calc.size() - 1);
    const std::size_t size = bracketSize(parentheses);
    if (parentheses[size - 1] != ')') {
        return {};
    }
    auto result = CalcReader(parentheses.substr(0, size)).whole();
    if (result) {
        scanner.advance(Calc.size() - 1 + size);
    }
    return result;
}

std::optional<std::string> withoutCalc(std::string_view text, bool clamp)
{
    std::string out;
    while (true) {
        const std::size_t at = findFunction(text, Calc);
        out.append(text.substr(0, at));
        if (at == text.size()) {
            return out;
        }
        text.remove_prefix(at);
        Scanner scanner(text);
        const auto result = scanCalc(scanner);
        if (!result) {
            return {};
        }
        if (!append(out, *result, clamp)) {
            out.append(text.substr(0, text.size() - scanner.rest().size()));
        }
        text = scanner.rest();
    }
}

} // namespace qsdps
