// Names and values read from a data file or set by the program.
#pragma once

#include <iosfwd>
#include <map>
#include <string>
#include <string_view>

/// Texts by name. Reads the syntax of X resource files: "Name: value" lines, "!" and "#" comments, a backslash at the
/// end of a line joins the next, and \n, \t, \\ and \ooo in values. A leading "*" or "." of a name does not count.
class QsdResourceTable {
public:
    /// The value of `name`, null when there is none. It stays where it is until the name is set or removed.
    [[nodiscard]] const char* find(std::string_view name) const;
    void set(std::string_view name, std::string value);
    void remove(std::string_view name);
    /// Adds the entries of a file; lines that are none are skipped.
    void read(std::istream& stream);

    [[nodiscard]] const std::map<std::string, std::string, std::less<>>& entries() const { return _entries; }

private:
    std::map<std::string, std::string, std::less<>> _entries;
};
