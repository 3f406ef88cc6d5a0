#include "scanner.h"

namespace {

bool isSpace(char c)
{
    return c == '\0' || c == '\t' || c == '\n' || c == '\f' || c == '\r' || c == ' ';
}

bool isDelimiter(char c)
{
    return std::string_view("()<>[]{}/%").find(c) != std::string_view::npos;
}

class Scanner {
public:
    explicit Scanner(std::string_view text) : _text(text) {}

    Scan run()
    {
        while (_at < _text.size()) {
            readOne();
        }
        return std::move(_scan);
    }

private:
    void readOne()
    {
        const char c = _text[_at];
        if (isSpace(c)) {
            ++_at;
        } else if (c == '%') {
            const std::size_t end = _text.find_first_of("\r\n\f", _at);
            _scan.comments.emplace_back(_text.substr(_at, end - _at));
            _at = end == std::string_view::npos ? _text.size() : end;
        } else if (c == '(') {
            ++_at;
            readString();
        } else if (_text.substr(_at, 2) == "<<" || _text.substr(_at, 2) == ">>") {
            add(Token::Kind::Bracket, std::string(_text.substr(_at, 2)));
            _at += 2;
        } else if (c == '<') {
            const bool base85 = _text.substr(_at, 2) == "<~";
            readEncodedString(base85 ? "~>" : ">");
        } else if (c == '[' || c == ']' || c == '{' || c == '}') {
            add(Token::Kind::Bracket, std::string(1, c));
            ++_at;
        } else if (c == '/') {
            ++_at;
            add(Token::Kind::LiteralName, readName());
        } else if (isDelimiter(c)) {
            _scan.wellFormed = false;
            ++_at;
        } else {
            add(Token::Kind::Name, readName());
        }
    }

    std::string readName()
    {
        const std::size_t start = _at;
        while (_at < _text.size() && !isSpace(_text[_at]) && !isDelimiter(_text[_at])) {
            ++_at;
        }
        return std::string(_text.substr(start, _at - start));
    }

    void readString()
    {
        std::string value;
        int depth = 1;
        while (_at < _text.size()) {
            const char c = _text[_at++];
            if (c == '\\') {
                readEscape(value);
                continue;
            }
            depth += c == '(' ? 1 : c == ')' ? -1 : 0;
            if (depth == 0) {
                add(Token::Kind::String, std::move(value));
                return;
            }
            value += c;
        }
        _scan.wellFormed = false;
    }

    /// What follows a backslash.
    void readEscape(std::string& value)
    {
        if (_at == _text.size()) {
            return;
        }
        const char c = _text[_at++];
        constexpr std::string_view Letters = "nrtbf";
        if (const std::size_t letter = Letters.find(c); letter != std::string_view::npos) {
            value += "\n\r\t\b\f"[letter];
        } else if (c >= '0' && c <= '7') {
            unsigned code = static_cast<unsigned>(c - '0');
            for (int digits = 1; digits < 3 && _at < _text.size() && _text[_at] >= '0' && _text[_at] <= '7'; ++digits) {
                code = code * 8 + static_cast<unsigned>(_text[_at++] - '0');
            }
            value += static_cast<char>(code);
        } else if (c == '\r') {
            _at += _text.substr(_at, 1) == "\n" ? 1 : 0;
        } else if (c != '\n') {
            value += c;
        }
    }

    void readEncodedString(std::string_view close)
    {
        const std::size_t end = _text.find(close, _at + 1);
        _scan.wellFormed = _scan.wellFormed && end != std::string_view::npos;
        _at = end == std::string_view::npos ? _text.size() : end + close.size();
        add(Token::Kind::String, {});
    }

    void add(Token::Kind kind, std::string text) { _scan.tokens.push_back({kind, std::move(text)}); }

    std::string_view _text;
    std::size_t _at = 0;
    Scan _scan;
};

} // namespace

Scan scan(std::string_view text)
{
    return Scanner(text).run();
}
