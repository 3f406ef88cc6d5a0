// Names and texts never become part of the program: in a document with any of them, no operator and no comment occurs
// more often than in one with harmless ones.
#include "check.h"
#include "choices.h"
#include "kept_document.h"
#include "ps/QsdPSDevice.h"
#include "ps/QsdPSFonts_.h"
#include "ps/QsdPSPrintDevice.h"
#include "scanner.h"
#include "silence.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <cctype>
#include <map>

namespace {

/// What a hostile program, drawing or font map can choose.
struct Names {
    std::string fileName;
    std::string title;
    std::string family;
    std::string fontName;
    std::string text;
};

template <class Device>
std::string documentWith(const Names& names)
{
    QsdPSFonts_::GetInstance()->addOrReplace(new QsdPSFontNames_(QsEncodingLatin1, "fuzz", names.fontName.c_str(),
                                                                 nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                                                 nullptr),
                                             false);
    QsdMemoryDisplay display;
    KeptDocument<Device> device(&display, QsdPSRGB);
    if constexpr (requires { device.setTitle(""); }) {
        device.setTitle(names.title.empty() ? nullptr : names.title.c_str());
    }
    device.initDevice(names.fileName.c_str(), nullptr);
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    const auto length = static_cast<int>(names.text.size());
    for (const std::string& family : {names.family, std::string("fuzz")}) {
        for (const std::uint16_t style : {QsdFontPlain, QsdFontBold, QsdFontUnderlined}) {
            const auto font = QsdHandle<QsdFont>::Adopt(new QsdFont(family.c_str(), style, 12));
            palette->setFont(font.get());
            device.drawString(palette.get(), {10, 20}, names.text.c_str(), length, QsdPositionNone);
            device.drawIString(palette.get(), {10, 20}, names.text.c_str(), length, QsdPositionCenter);
            device.drawTransformedString(palette.get(), names.text.c_str(), length, {}, nullptr);
        }
    }
    device.end();
    return device.document();
}

bool isNumber(const std::string& name)
{
    return std::isdigit(static_cast<unsigned char>(name.back())) != 0 &&
           name.find_first_not_of("+-.0123456789e") == std::string::npos;
}

/// Fonts of a document are numbered, and those of the same name share a number.
std::string withoutNumber(const std::string& word)
{
    const bool isFont =
        word.size() > 1 && word[0] == 'F' && word.find_first_not_of("0123456789", 1) == std::string::npos;
    return isFont ? "F" : word;
}

/// How often what is executed, each bracket and each kind of comment occur.
std::map<std::string, int> wordsOf(const std::string& document)
{
    const Scan found = scan(document);
    check(found.wellFormed, "Something is not closed", document);
    std::map<std::string, int> words;
    for (std::size_t i = 0; i < found.tokens.size(); ++i) {
        const Token& token = found.tokens[i];
        // "(name)cvn" is another way to write "/name".
        const bool isName = token.text == "cvn" && i != 0 && found.tokens[i - 1].kind == Token::Kind::String;
        if (token.kind == Token::Kind::Bracket ||
            (token.kind == Token::Kind::Name && !isName && !isNumber(token.text))) {
            ++words[withoutNumber(token.text)];
        }
    }
    for (const std::string& comment : found.comments) {
        ++words[comment.substr(0, comment.find(' '))];
    }
    return words;
}

template <class Device>
void compare(const Names& names)
{
    static const auto harmless = wordsOf(documentWith<Device>({"file", "title", "times", "Name", "a"}));
    const std::string document = documentWith<Device>(names);
    for (const auto& [word, count] : wordsOf(document)) {
        const auto known = harmless.find(word);
        check(known != harmless.end() && count <= known->second, word.c_str(), document);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    dropMessages();
    Choices choices(data, size);
    Names names{choices.text(), choices.text(), choices.text(), choices.text(), ""};
    names.text = "a" + choices.restOfBytes();
    compare<QsdPSPrintDevice>(names);
    compare<QsdPSDevice>(names);
    return 0;
}
