#include "svg/css/variables.h"

#include "values/css_text.h"
#include "values/scanner.h"

#include <algorithm>
#include <functional>
#include <vector>

namespace qsdps::svg {
namespace {

/// No value is longer than this with its variables put in.
constexpr std::size_t MaxValue = std::size_t{64} << 10;
/// Variables that refer to variables, and fallbacks inside of fallbacks; each level takes stack.
constexpr int MaxNesting = 64;
constexpr std::string_view Var = "var(";
constexpr const char* TooLong = "variables make a value too long";
constexpr const char* TooMuch = "variables ask for too much work";

using Value = std::optional<std::string_view>;

/// Puts values in the place of var().
class Substitution {
public:
    using Lookup = std::function<Value(std::string_view name)>;

    /// `levels` is how far a lookup may have to go.
    Substitution(Lookup lookup, std::size_t levels, ValueTexts& texts, std::string& fault)
        : _lookup(std::move(lookup)), _levels(levels), _texts(texts), _fault(fault)
    {
    }

    Value run(std::string_view text)
    {
        if (text.size() > MaxValue) {
            fail(TooLong);
            return {};
        }
        std::string out;
        if (!append(text, out)) {
            return {};
        }
        return _texts.keep(std::string(trim(out)));
    }

    /// One level deeper, for as long as it lives; false when that is too deep.
    class Level {
    public:
        explicit Level(int& nesting) : _nesting(nesting) { ++_nesting; }
        ~Level() { --_nesting; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;
        [[nodiscard]] bool tooDeep() const { return _nesting > MaxNesting; }

    private:
        int& _nesting;
    };

private:
    bool fail(const std::string& why)
    {
        if (_fault.empty()) {
            _fault = why;
        }
        return false;
    }

    bool append(std::string_view text, std::string& out)
    {
        const Level level(_nesting);
        if (level.tooDeep()) {
            return fail("variables nest too deep");
        }
        while (true) {
            const std::size_t at = findFunction(text, Var);
            if (!put(text.substr(0, at), out)) {
                return false;
            }
            if (at == text.size()) {
                return true;
            }
            text.remove_prefix(at + Var.size());
            const std::size_t end = findOutside(text, ")");
            if (!appendVariable(text.substr(0, end), out)) {
                return false;
            }
            text.remove_prefix(std::min(text.size(), end + 1));
        }
    }

    bool appendVariable(std::string_view arguments, std::string& out)
    {
        const std::size_t comma = findOutside(arguments, ",");
        const std::string_view name = trim(arguments.substr(0, comma));
        if (!name.starts_with("--")) {
            return fail("var(" + quotedForMessage(arguments) + ") is not understood");
        }
        constexpr std::size_t LookupCost = 8;
        if (!_texts.spend(arguments.size() + _levels * LookupCost)) {
            return fail(TooMuch);
        }
        if (const Value value = _lookup(name)) {
            return put(*value, out);
        }
        if (comma < arguments.size()) {
            return append(trim(arguments.substr(comma + 1)), out);
        }
        return fail("variable " + quotedForMessage(name) + " has no value");
    }

    bool put(std::string_view text, std::string& out)
    {
        if (out.size() + text.size() > MaxValue) {
            return fail(TooLong);
        }
        if (!_texts.spend(text.size())) {
            return fail(TooMuch);
        }
        out.append(text);
        return true;
    }

    Lookup _lookup;
    std::size_t _levels;
    ValueTexts& _texts;
    std::string& _fault;
    int _nesting = 0;
};

/// Works out the custom properties of one element, each when it is first needed.
class Resolver {
public:
    Resolver(const CustomDeclarations& declared, CustomProperties& result, ValueTexts& texts)
        : _declared(declared), _result(result),
          _substitution([this](std::string_view name) { return value(name); }, result.levels, texts, _fault)
    {
    }

    Value value(std::string_view name)
    {
        const auto declared = _declared.find(name);
        const bool asOutside = declared == _declared.end() || equalsNoCase(declared->second, "inherit") ||
                               equalsNoCase(declared->second, "unset");
        if (asOutside) {
            return _result.outer ? _result.outer->find(name) : std::nullopt;
        }
        if (const auto done = _result.own.find(name); done != _result.own.end()) {
            return done->second;
        }
        if (const auto open = std::find(_open.begin(), _open.end(), name); open != _open.end()) {
            // All that the circle leads through have no value.
            _circle.insert(open, _open.end());
            return {};
        }
        _open.push_back(name);
        Value found = resolve(declared->second);
        _open.pop_back();
        if (_circle.erase(name) > 0) {
            found.reset();
        }
        _result.own.emplace(name, found);
        return found;
    }

private:
    Value resolve(std::string_view text)
    {
        if (equalsNoCase(text, "initial")) {
            return {};
        }
        return hasVariables(text) ? _substitution.run(text) : Value(text);
    }

    const CustomDeclarations& _declared;
    CustomProperties& _result;
    std::string _fault;
    Substitution _substitution;
    std::vector<std::string_view> _open;
    std::unordered_set<std::string_view> _circle;
};

} // namespace

std::string_view ValueTexts::keep(std::string text)
{
    return *_texts.insert(std::move(text)).first;
}

bool ValueTexts::spend(std::size_t bytes)
{
    const bool enough = bytes < _work;
    _work = enough ? _work - bytes : 0;
    return enough;
}

std::optional<std::string_view> CustomProperties::find(std::string_view name) const
{
    for (const CustomProperties* at = this; at != nullptr; at = at->outer.get()) {
        if (const auto found = at->own.find(name); found != at->own.end()) {
            return found->second;
        }
    }
    return {};
}

bool hasVariables(std::string_view value)
{
    return findFunction(value, Var) < value.size();
}

std::shared_ptr<const CustomProperties> resolveCustom(const CustomDeclarations& declared,
                                                      std::shared_ptr<const CustomProperties> outer, ValueTexts& texts)
{
    auto result = std::make_shared<CustomProperties>();
    result->levels = outer ? outer->levels + 1 : 1;
    result->outer = std::move(outer);
    Resolver resolver(declared, *result, texts);
    for (const auto& [name, text] : declared) {
        static_cast<void>(resolver.value(name));
    }
    return result;
}

std::optional<std::string_view> withoutVariables(std::string_view value, const CustomProperties* variables,
                                                 ValueTexts& texts, std::string& fault)
{
    const auto lookup = [&](std::string_view name) { return variables == nullptr ? Value() : variables->find(name); };
    return Substitution(lookup, variables == nullptr ? 0 : variables->levels, texts, fault).run(value);
}

} // namespace qsdps::svg
