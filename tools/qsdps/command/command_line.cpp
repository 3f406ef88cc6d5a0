#include "command/command_line.h"

#include "toolkit/base/QsdVersion.h"
#include "values/lower_case.h"

#include <algorithm>
#include <iostream>
#include <numeric>

namespace qsdps {

namespace {

constexpr int UsageError = 2;

/// How many letters have to be put in, left out, replaced or swapped with their neighbour to make one word another.
std::size_t slipsBetween(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> twoBack;
    std::vector<std::size_t> back(b.size() + 1);
    std::iota(back.begin(), back.end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::vector<std::size_t> row(b.size() + 1, i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = back[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, back[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1]) {
                row[j] = std::min(row[j], twoBack[j - 2] + 1);
            }
        }
        twoBack = std::exchange(back, std::move(row));
    }
    return back.back();
}

/// An option without its hyphens and what stands behind an equals sign.
std::string wordOf(const std::string& argument)
{
    const std::size_t start = std::min(argument.find_first_not_of('-'), argument.size());
    return lowerCase(std::string_view(argument).substr(start, argument.find('=') - start));
}

} // namespace

std::string nearestTo(std::string_view word, const std::vector<std::string>& known)
{
    constexpr std::size_t LongWord = 5;
    const std::size_t most = word.size() < LongWord ? 1 : 2;
    std::string nearest;
    std::size_t fewest = most + 1;
    for (const std::string& candidate : known) {
        const bool isBeginning = word.size() > 1 && std::string_view(candidate).starts_with(word);
        const std::size_t slips = isBeginning ? 0 : slipsBetween(word, candidate);
        if (slips < fewest && slips < candidate.size()) {
            fewest = slips;
            nearest = candidate;
        }
    }
    return nearest;
}

CommandLine::CommandLine(const std::string& program, const std::string& description, const std::string& footer)
    : _program(program), _app(description, program)
{
    _app.set_help_flag("-?,--help", "Print this help and exit");
    _app.set_version_flag("--version", program + " " + QsdGetVersionString());
    _app.footer(footer);
}

CLI::Option* CommandLine::add(const std::string& names, const std::string& typeName, const std::string& description,
                              const std::string& expected, std::function<bool(const std::string&)> take)
{
    const std::string name = names.substr(names.find("--"));
    _expected[name] = expected;
    const CLI::callback_t callback = [=](const CLI::results_t& texts) {
        if (!take(texts.back())) {
            refuse(name, "expected " + expected + ", not '" + texts.back() + "'");
        }
        return true;
    };
    return _app.add_option(names, callback, description)->type_name(typeName);
}

void CommandLine::refuse(const std::string& option, const std::string& why)
{
    throw CLI::ValidationError(option.empty() ? why : option + ": " + why);
}

bool CommandLine::parse(int argc, const char* const* argv, const std::function<void()>& check, int& exitCode)
{
    try {
        _app.parse(argc, argv);
        check();
        return true;
    } catch (const CLI::Success& done) {
        exitCode = _app.exit(done);
    } catch (const CLI::ParseError& error) {
        std::string message = mistakeOf(error);
        std::replace(message.begin(), message.end(), '\n', ' ');
        std::cerr << _program << ": " << message << '\n';
        exitCode = UsageError;
    }
    return false;
}

std::string CommandLine::mistakeOf(const CLI::ParseError& error)
{
    const std::string text = error.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        const std::vector<std::string> unknown = _app.remaining();
        return unknown.empty() ? text : unknownOption(unknown.front());
    }
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        return wrongCount(text.substr(0, text.find_first_of(": ")));
    }
    if (dynamic_cast<const CLI::ConversionError*>(&error) != nullptr) {
        // Of a flag alone: "Could not convert: NAME = VALUE".
        const std::size_t name = std::min(text.find("--"), text.size());
        return wrongCount(text.substr(name, text.find(' ', name) - name));
    }
    if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
        return "expected a file; " + _program + " --help tells more";
    }
    return text;
}

std::string CommandLine::unknownOption(const std::string& argument) const
{
    std::vector<std::string> known;
    for (const CLI::Option* option : _app.get_options()) {
        known.insert(known.end(), option->get_lnames().begin(), option->get_lnames().end());
    }
    const std::string word = wordOf(argument);
    const std::string nearest = nearestTo(word, known);
    const std::string what = "unknown option " + (word.empty() ? argument : argument.substr(0, argument.find('=')));
    return what +
           (nearest.empty() ? "; " + _program + " --help lists those there are" : "; did you mean --" + nearest + "?");
}

/// An option that misses its value, has one that it does not take, or is given twice.
std::string CommandLine::wrongCount(const std::string& name) const
{
    const CLI::Option* const option = _app.get_option_no_throw(name);
    const auto expected = _expected.find(name);
    if (option != nullptr && option->count() > 1) {
        return name + ": may be given only once";
    }
    if (expected != _expected.end()) {
        return name + ": expected " + expected->second;
    }
    return name + ": takes no value";
}

} // namespace qsdps
