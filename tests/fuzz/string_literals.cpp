// String literals in every encoding: they close where they should, and hold what they were given.
#include "check.h"
#include "choices.h"
#include "ps/QsdPSString.h"
#include "scanner.h"

#include <sstream>

namespace {

/// Whether the literal of this encoding, read back, is the text itself.
bool keepsBytes(QsEncoding encoding)
{
    return encoding != QsEncodingEUCJP;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr QsEncoding Encodings[] = {QsEncodingUnknown,  QsEncodingASCII,  QsEncodingLatin1, QsEncodingEUCJP,
                                        QsEncodingShiftJIS, QsEncodingGB2312, QsEncodingCP1252, QsEncodingGBK};
    Choices choices(data, size);
    CurrentEncoding = Encodings[choices.below(std::size(Encodings))];
    const bool terminated = choices.flag();
    std::string text = choices.restOfBytes();
    std::ostringstream out;
    out << "before (";
    WriteOutPSString(text.c_str(), &out, terminated ? -1 : static_cast<int>(text.size()));
    out << ") behind";

    const Scan found = scan(out.str());
    check(found.wellFormed && found.comments.empty() && found.tokens.size() == 3 &&
              found.tokens[1].kind == Token::Kind::String && found.tokens[2] == Token{Token::Kind::Name, "behind"},
          "The literal does not close where it should", out.str());
    if (terminated || text[0] == '\0') {
        text.resize(std::strlen(text.c_str()));
    }
    check(!keepsBytes(CurrentEncoding) || found.tokens[1].text == text, "The literal holds another text", out.str());
    return 0;
}
