// What a run has to tell its user: problems with a place, and things not drawn or only approximated, counted by kind.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>

namespace qsdps {

class Report {
public:
    /// Counts one object of a kind that is not drawn at all, e.g. "filter"; `line` is where it stands (0: unknown), of
    /// which the first is kept. What a message calls a kind, and what is said to have been done about it, is a matter
    /// of a table; a kind that is not in it is named as it is here.
    void notDrawn(std::string_view kind, int line = 0) { count(_notDrawn, kind, line); }
    /// Counts one object of a kind that is drawn, but not exactly as asked, e.g. "gradient".
    void approximated(std::string_view kind) { count(_approximated, kind, 0); }
    /// Notes a bad value or other fault of the input, and what is done about it; the first of each text is kept with
    /// its line (0: unknown).
    void badInput(std::string_view what, int line);

    [[nodiscard]] bool anythingNotDrawn() const { return !_notDrawn.empty(); }
    [[nodiscard]] bool anythingApproximated() const { return !_approximated.empty(); }

    /// Writes one line per kind: "NAME: 3 filters left out".
    void print(std::ostream& out, std::string_view inputName) const;

private:
    struct Told {
        int line = 0;
        unsigned long count = 0;
    };
    using Kinds = std::map<std::string, Told, std::less<>>;

    static void count(Kinds& kinds, std::string_view kind, int line);

    Kinds _notDrawn;
    Kinds _approximated;
    Kinds _badInput;
};

/// What is noted of a value that cannot be used: "bad value 'foo' of fill ignored". Of a long value that is its
/// beginning, and controls in it are blanks.
[[nodiscard]] std::string badValue(std::string_view value, std::string_view name);

} // namespace qsdps
