// Reading the font map file.
#include "ps/QsdPSFonts_.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "toolkit/base/QsLocale.h"
#include "toolkit/base/QsMalloc.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/base/QsdReadString.h"
#include "toolkit/base/QsdVersion.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>
#include <limits>
#include <locale>
#include <memory>
#include <string>
#include <strings.h>
#include <system_error>

namespace {

constexpr std::size_t WordLength = 127;
constexpr std::size_t EncodingNameLength = 19;

/// Reads numbers with a decimal point whatever locale the stream was given, for as long as it lives.
class ClassicNumbers {
public:
    explicit ClassicNumbers(std::istream& stream) : _stream(stream), _old(stream.imbue(std::locale::classic())) {}
    ClassicNumbers(const ClassicNumbers&) = delete;
    ClassicNumbers& operator=(const ClassicNumbers&) = delete;
    ~ClassicNumbers() { _stream.imbue(_old); }

private:
    std::istream& _stream;
    std::locale _old;
};

bool isSpace(int c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// Reads the next word, of which at most `length` bytes are kept.
std::string readWord(std::istream& stream, std::size_t length)
{
    std::string word;
    stream >> std::ws;
    for (int c = stream.peek(); c != std::istream::traits_type::eof() && !isSpace(c); c = stream.peek()) {
        stream.get();
        if (word.size() < length) {
            word.push_back(static_cast<char>(c));
        }
    }
    return word;
}

void skipBlanks(std::istream& stream)
{
    while (stream.peek() == ' ') {
        stream.get();
    }
}

void skipLine(std::istream& stream)
{
    stream.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
}

/// Reads the two slashes that a header line begins with, the blanks behind them and a word.
bool readHeaderWord(std::istream& stream, const char* expected)
{
    const int first = stream.get();
    const int second = stream.get();
    skipBlanks(stream);
    const std::string word = readWord(stream, WordLength);
    return first == '/' && second == '/' && word == expected;
}

bool isTrue(const char* value)
{
    return strcasecmp(value, "true") == 0 || strcasecmp(value, "yes") == 0 || std::strcmp(value, "1") == 0;
}

struct Key {
    const char* name;
    void (QsdPSFontNames_::*set)(const char*);
};

constexpr Key Keys[] = {
    {"NormalName", &QsdPSFontNames_::setNormalName},
    {"BoldName", &QsdPSFontNames_::setBoldName},
    {"ItalicName", &QsdPSFontNames_::setItalicName},
    {"BoldItalicName", &QsdPSFontNames_::setBoldItalicName},
    {"NormalFontFile", &QsdPSFontNames_::setNormalDownloadFileName},
    {"BoldFontFile", &QsdPSFontNames_::setBoldDownloadFileName},
    {"ItalicFontFile", &QsdPSFontNames_::setItalicDownloadFileName},
    {"BoldItalicFontFile", &QsdPSFontNames_::setBoldItalicDownloadFileName},
};

} // namespace

bool QsdPSFonts_::load(const char* path, QsEncoding)
{
    // A device may never come to its end; a pipe is what a shell gives for a command's output.
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (std::filesystem::is_character_file(status) || std::filesystem::is_block_file(status)) {
        return false;
    }
    std::ifstream stream(path);
    return stream && read(stream, "QsdPSFonts::read");
}

bool QsdPSFonts_::readHeader(std::istream& stream, const char* name, QsEncoding* encoding)
{
    bool valid = readHeaderWord(stream, "QsdPSFonts");
    double version = 0;
    {
        const QsdPSClassicNumbers classicNumbers;
        stream >> version;
    }
    // Compared before it is truncated, so that no version is too large for the conversion.
    if (stream.eof() || !valid || version * 100.0 >= QsdGetVersion() + 1.0) {
        QsdWarning("%s Invalid header", name);
        return false;
    }
    skipLine(stream);

    valid = readHeaderWord(stream, "Encoding:");
    const std::string encodingName = readWord(stream, EncodingNameLength);
    if (stream.eof() || !valid) {
        QsdWarning("%s Invalid header, missing encoding", name);
        return false;
    }
    *encoding = QsLocale::GetQsEncoding(encodingName.c_str());
    if (!QsdGlobalContext::GetInstance().getLocale().isEncodingCompatible(*encoding)) {
        QsdWarning("%s Invalid header, encoding not compatible", name);
        return false;
    }
    return true;
}

bool QsdPSFonts_::read(std::istream& stream, const char*)
{
    const ClassicNumbers classicNumbers(stream);
    QsEncoding encoding = QsEncodingUnknown;
    if (!readHeader(stream, "QsdPSFonts::readHeader", &encoding)) {
        return false;
    }
    auto record = std::make_unique<QsdPSFontNames_>(encoding, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                                    nullptr, nullptr, nullptr);
    bool result = true;
    while (stream.good()) {
        std::string key = readWord(stream, WordLength);
        std::unique_ptr<char, QsFreeDeleter> value;
        if (stream.good()) {
            value.reset(QsdReadString(stream));
        }
        if (!key.empty() && !stream.bad()) {
            result = loadValue(record.get(), key.data(), value.get());
        }
        if (stream.good()) {
            skipLine(stream);
        }
    }
    // A file without a family has nothing to enter.
    if (record->family() != nullptr) {
        const bool asDefault = record->isDefault();
        record->setDefault(false);
        addOrReplace(record.get(), asDefault);
        static_cast<void>(record.release());
    }
    const bool brokenOff = stream.bad() || (stream.fail() && !stream.eof());
    return !brokenOff && result;
}

bool QsdPSFonts_::loadValue(QsdPSFontNames_* record, char* key, char* value)
{
    if (std::strcmp(key, "Family") == 0) {
        const bool hasFamily = record->family() != nullptr;
        const bool isEntered = std::find(_fonts, _fonts + _count, record) != _fonts + _count;
        if (hasFamily && !isEntered) {
            auto copy = std::make_unique<QsdPSFontNames_>(
                record->encoding(), record->family(), record->normalName(), record->boldName(), record->italicName(),
                record->boldItalicName(), record->normalDownloadFileName(), record->boldDownloadFileName(),
                record->italicDownloadFileName(), record->boldItalicDownloadFileName());
            copy->setOwnEncoding(record->hasOwnEncoding());
            addOrReplace(copy.get(), record->isDefault());
            static_cast<void>(copy.release());
        }
        if (hasFamily) {
            for (const Key& k : Keys) {
                (record->*k.set)(nullptr);
            }
            record->setDefault(false);
            record->setOwnEncoding(false);
        }
        record->setFamily(value);
        return true;
    }
    if (std::strcmp(key, "AsDefault") == 0) {
        if (value != nullptr && isTrue(value)) {
            record->setDefault(true);
        }
        return true;
    }
    if (std::strcmp(key, "OwnEncoding") == 0) {
        record->setOwnEncoding(value != nullptr && isTrue(value));
        return true;
    }
    for (const Key& k : Keys) {
        if (std::strcmp(key, k.name) == 0) {
            (record->*k.set)(value);
            return true;
        }
    }
    return false;
}
