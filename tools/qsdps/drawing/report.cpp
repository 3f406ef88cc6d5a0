#include "drawing/report.h"

#include <ostream>

namespace qsdps {
namespace {

/// Different faults kept apart; a hostile file must not make the report grow without end.
constexpr std::size_t kMaxFaults = 200;

} // namespace

void Report::badInput(std::string_view what, int line)
{
    const auto known = _badInput.find(what);
    if (known != _badInput.end())
        ++known->second.count;
    else if (_badInput.size() < kMaxFaults)
        _badInput.emplace(what, Fault{line, 1});
}

void Report::print(std::ostream& out, std::string_view inputName) const
{
    for (const auto& [what, fault] : _badInput) {
        out << inputName << ':';
        if (fault.line > 0)
            out << fault.line << ':';
        out << " warning: " << what;
        if (fault.count > 1)
            out << " (" << fault.count << " times)";
        out << '\n';
    }
    for (const auto& [kind, count] : _notDrawn)
        out << inputName << ": warning: " << count << " x " << kind << " not drawn\n";
    for (const auto& [kind, count] : _approximated)
        out << inputName << ": warning: " << count << " x " << kind << " approximated\n";
}

} // namespace qsdps
