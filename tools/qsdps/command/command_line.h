// Command lines: what programs of this project share in reading theirs.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

namespace qsdps {

/// A text that comes closest to `word` among `known`: the one that it begins, or one that a slip or two turns it into.
/// Empty when none comes close.
[[nodiscard]] std::string nearestTo(std::string_view word, const std::vector<std::string>& known);

/// Reads a command line. What is wrong with one is told on standard error in one sentence of one line, which begins
/// with the program's name and says what was expected.
class CommandLine {
public:
    /// `program` is what messages begin with; the other texts are for --help, which this adds with --version.
    CommandLine(const std::string& program, const std::string& description, const std::string& footer);

    /// The parser, for flags and options that may be given often.
    [[nodiscard]] CLI::App& app() { return _app; }

    /// Adds an option with a value, "-z,--zoom" say. `take` stores the value and says whether it is one. `expected` is
    /// what messages say instead of a wrong or missing one.
    CLI::Option* add(const std::string& names, const std::string& typeName, const std::string& description,
                     const std::string& expected, std::function<bool(const std::string&)> take);
    /// The same for what `reader` makes an optional value of.
    template <class Parse, class Target>
    CLI::Option* add(const std::string& names, const std::string& typeName, const std::string& description,
                     const std::string& expected, Parse reader, Target& target);
    /// Adds an option whose value is one of a few names.
    template <class Target>
    CLI::Option* addChoice(const std::string& names, const std::string& description,
                           const std::vector<std::pair<std::string, Target>>& choices, Target& target);

    /// Says what messages expect of an option that was added to the parser itself.
    void expect(const std::string& name, const std::string& expected) { _expected[name] = expected; }

    /// Reads the arguments, and calls `check` then, which may refuse them. False when the run is over: help or the
    /// version was printed, or a mistake was told; `exitCode` says which.
    [[nodiscard]] bool parse(int argc, const char* const* argv, const std::function<void()>& check, int& exitCode);

    /// Ends the reading with a message about an option, or about the whole where `option` is empty.
    [[noreturn]] static void refuse(const std::string& option, const std::string& why);

private:
    [[nodiscard]] std::string mistakeOf(const CLI::ParseError& error);
    [[nodiscard]] std::string unknownOption(const std::string& argument) const;
    [[nodiscard]] std::string wrongCount(const std::string& name) const;

    std::string _program;
    CLI::App _app;
    std::map<std::string, std::string> _expected; ///< by the option's longest name
};

template <class Parse, class Target>
CLI::Option* CommandLine::add(const std::string& names, const std::string& typeName, const std::string& description,
                              const std::string& expected, Parse reader, Target& target)
{
    return add(names, typeName, description, expected, [reader, &target](const std::string& text) {
        const auto value = reader(text);
        if (value) {
            target = *value;
        }
        return value.has_value();
    });
}

template <class Target>
CLI::Option* CommandLine::addChoice(const std::string& names, const std::string& description,
                                    const std::vector<std::pair<std::string, Target>>& choices, Target& target)
{
    std::string typeName;
    std::string expected;
    std::vector<std::string> words;
    for (const auto& choice : choices) {
        const bool isLast = words.size() + 1 == choices.size();
        typeName += (words.empty() ? "" : "|") + choice.first;
        expected += (words.empty() ? "" : isLast ? " or " : ", ") + choice.first;
        words.push_back(choice.first);
    }
    return add(names, typeName, description, expected, [=, &target](const std::string& text) {
        for (const auto& choice : choices) {
            if (choice.first == text) {
                target = choice.second;
                return true;
            }
        }
        const std::string nearest = nearestTo(text, words);
        if (!nearest.empty()) {
            refuse(names.substr(names.find("--")),
                   "expected " + expected + ", not '" + text + "'; did you mean " + nearest + "?");
        }
        return false;
    });
}

} // namespace qsdps
