// What a run has to tell its user: problems with a place, and things not drawn or only approximated, counted by kind.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>

namespace qsdps {

class Report {
public:
    /// Counts one object of a kind that is not drawn at all, e.g. "filter".
    void notDrawn(std::string_view kind) { ++_notDrawn[std::string(kind)]; }
    /// Counts one object of a kind that is drawn, but not exactly as asked, e.g. "gradient".
    void approximated(std::string_view kind) { ++_approximated[std::string(kind)]; }
    /// Notes a bad value or other fault of the input; the first of each text is kept with its line (0: unknown).
    void badInput(std::string_view what, int line);

    [[nodiscard]] bool anythingNotDrawn() const { return !_notDrawn.empty(); }
    [[nodiscard]] bool anythingApproximated() const { return !_approximated.empty(); }

    /// Writes one line per kind: "NAME: warning: 3 x filter not drawn".
    void print(std::ostream& out, std::string_view inputName) const;

private:
    struct Fault {
        int line = 0;
        unsigned long count = 0;
    };
    std::map<std::string, unsigned long, std::less<>> _notDrawn;
    std::map<std::string, unsigned long, std::less<>> _approximated;
    std::map<std::string, Fault, std::less<>> _badInput;
};

} // namespace qsdps
