#include "values/scanner.h"

#include <charconv>
#include <cmath>

namespace qsdps {

std::string_view trim(std::string_view text)
{
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool equalsNoCase(std::string_view text, std::string_view lower)
{
    if (text.size() != lower.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (toLower(text[i]) != lower[i]) {
            return false;
        }
    }
    return true;
}

void Scanner::skipSpace()
{
    while (!atEnd() && isSpace(_text[_at])) {
        ++_at;
    }
}

bool Scanner::skipSeparator()
{
    skipSpace();
    if (!take(',')) {
        return false;
    }
    skipSpace();
    return true;
}

bool Scanner::take(char c)
{
    if (atEnd() || _text[_at] != c) {
        return false;
    }
    ++_at;
    return true;
}

std::optional<double> Scanner::number()
{
    std::size_t from = _at;
    if (from < _text.size() && _text[from] == '+') {
        ++from;
    }
    std::size_t digits = from;
    if (digits == _at && digits < _text.size() && _text[digits] == '-') {
        ++digits;
    }
    // from_chars would also take "inf" and "nan".
    const bool starts = digits < _text.size() && (isDigit(_text[digits]) || _text[digits] == '.');
    if (!starts) {
        return {};
    }
    double value = 0;
    const auto [end, error] = std::from_chars(_text.data() + from, _text.data() + _text.size(), value);
    if (error == std::errc::invalid_argument) {
        return {};
    }
    const auto next = static_cast<std::size_t>(end - _text.data());
    if (error == std::errc::result_out_of_range) {
        const std::string_view token = _text.substr(from, next - from);
        if (token.find("e-") == token.npos && token.find("E-") == token.npos) {
            return {};
        }
        value = 0;
    }
    if (!std::isfinite(value)) {
        return {};
    }
    _at = next;
    return value;
}

std::optional<bool> Scanner::flag()
{
    if (take('0')) {
        return false;
    }
    if (take('1')) {
        return true;
    }
    return {};
}

std::string_view Scanner::word()
{
    const std::size_t from = _at;
    while (!atEnd() && (isLetter(peek()) || isDigit(peek()) || peek() == '-' || peek() == '_')) {
        ++_at;
    }
    return _text.substr(from, _at - from);
}

std::string_view Scanner::upTo(char end)
{
    const std::string_view all = rest();
    const std::size_t length = all.find(end);
    if (length == all.npos) {
        _at = _text.size();
        return all;
    }
    _at += length + 1;
    return all.substr(0, length);
}

std::optional<double> parseNumber(std::string_view text)
{
    Scanner scanner(trim(text));
    const auto value = scanner.number();
    return scanner.atEnd() ? value : std::nullopt;
}

std::optional<double> parseFraction(std::string_view text)
{
    Scanner scanner(trim(text));
    auto value = scanner.number();
    if (value && scanner.take('%')) {
        *value /= 100;
    }
    return scanner.atEnd() ? value : std::nullopt;
}

std::vector<double> parseNumberList(std::string_view text)
{
    std::vector<double> values;
    Scanner scanner(text);
    scanner.skipSpace();
    while (const auto value = scanner.number()) {
        values.push_back(*value);
        scanner.skipSeparator();
    }
    return values;
}

} // namespace qsdps
