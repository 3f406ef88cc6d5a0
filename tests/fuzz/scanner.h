// Reads PostScript text as an interpreter's scanner does, for fuzzers that look at what a document is made of.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct Token {
    enum class Kind : unsigned char {
        Name,        ///< executable: an operator, a procedure's name, a number
        LiteralName, ///< "/name"
        String,      ///< of any of the three forms; `text` is what it holds, if it was written in parentheses
        Bracket      ///< [ ] { } << >>
    };

    Kind kind = Kind::Name;
    std::string text;

    friend bool operator==(const Token&, const Token&) = default;
};

struct Scan {
    std::vector<Token> tokens;
    std::vector<std::string> comments; ///< with their percent sign, without their line end
    bool wellFormed = true;            ///< every string is closed and no delimiter stands alone
};

[[nodiscard]] Scan scan(std::string_view text);
