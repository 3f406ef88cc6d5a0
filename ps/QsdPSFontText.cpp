#include "ps/QsdPSFontText_p.h"

#include "ps/QsdPSWriter_p.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace {

constexpr std::size_t MaxLine = 255;
constexpr std::size_t FoldCode = 120; ///< words of 127 characters fit behind it
constexpr std::size_t FoldOther = 250;
constexpr std::size_t MaxWord = 16;
constexpr std::size_t HexLine = 64;

/// Comments that tell of the font as those in a document's header tell of the document.
constexpr std::array<std::string_view, 15> HeadComments = {"Title",
                                                           "Version",
                                                           "Creator",
                                                           "CreationDate",
                                                           "Copyright",
                                                           "For",
                                                           "VMusage",
                                                           "LanguageLevel",
                                                           "DocumentData",
                                                           "DocumentNeededResources",
                                                           "DocumentSuppliedResources",
                                                           "DocumentNeededFonts",
                                                           "DocumentSuppliedFonts",
                                                           "EndComments",
                                                           "+"};

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\f' || c == '\n';
}

bool isDelimiter(char c)
{
    return std::string_view("()<>[]{}/%").find(c) != std::string_view::npos;
}

bool isHexDigit(char c)
{
    return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

} // namespace

const char* QsdPSFontText::Describe(Fault fault)
{
    switch (fault) {
    case Fault::NoFont:
        return "it is no Type 1 font";
    case Fault::CutShort:
        return "it is cut short";
    case Fault::Structure:
        return "it has structuring comments of its own";
    case Fault::LongWord:
        return "it has a word that is longer than a line may be";
    case Fault::None:
        break;
    }
    return "";
}

bool QsdPSFontText::put(std::string_view bytes)
{
    for (const char c : bytes) {
        putByte(static_cast<unsigned char>(c));
        if (_fault != Fault::None || _part == Part::Ended) {
            return false;
        }
    }
    return true;
}

// The encrypted part ends with cleartomark, what is not encrypted with the definition of the font.
QsdPSFontText::Fault QsdPSFontText::finish()
{
    if (_fault != Fault::None) {
        return _fault;
    }
    if (_inFirstLine) {
        return Fault::NoFont;
    }
    if (_part == Part::AfterEexec || _part == Part::Cipher || _part == Part::SegmentText ||
        _part == Part::SegmentBytes || (_part == Part::SegmentHead && _headBytes != 0)) {
        return Fault::CutShort;
    }
    endOpenLine();
    if (_fault == Fault::None && (!_whole || _scan != Scan::Code)) {
        return Fault::CutShort;
    }
    return _fault;
}

void QsdPSFontText::fail(Fault fault)
{
    if (_fault == Fault::None) {
        _fault = fault;
    }
}

void QsdPSFontText::putByte(unsigned char byte)
{
    constexpr unsigned char SegmentMark = 0x80;
    switch (_part) {
    case Part::Start:
        _segments = byte == SegmentMark;
        _part = _segments ? Part::SegmentHead : Part::Text;
        putByte(byte);
        return;
    case Part::Text:
        putText(byte);
        return;
    case Part::AfterEexec:
        putAfterEexec(byte);
        return;
    case Part::Cipher:
        putCipher(byte);
        return;
    case Part::SegmentHead:
        putSegmentHead(byte);
        return;
    case Part::SegmentText:
    case Part::SegmentBytes:
        if (_part == Part::SegmentText) {
            putText(byte);
        } else {
            putHex(byte);
        }
        if (--_left == 0) {
            _part = Part::SegmentHead;
        }
        return;
    case Part::Ended:
        return;
    }
}

// A mark, a kind (1: text, 2: bytes, 3: the end), and for the first two the length, its lowest byte first.
void QsdPSFontText::putSegmentHead(unsigned char byte)
{
    constexpr unsigned char Kinds[] = {1, 2, 3};
    if (_headBytes == 0) {
        if (byte != 0x80) {
            fail(Fault::NoFont);
        }
        _left = 0;
    } else if (_headBytes == 1) {
        if (byte < Kinds[0] || byte > Kinds[2]) {
            fail(Fault::NoFont);
        }
        // Text and bytes begin on lines of their own.
        if (byte != _segmentType && _segmentType == Kinds[0]) {
            endOpenLine();
        } else if (byte != _segmentType && !_line.empty()) {
            endLine();
        }
        if (byte == Kinds[1] && !_encrypted) {
            fail(Fault::NoFont);
        }
        _segmentType = byte;
    } else {
        _left |= std::uint64_t{byte} << (8 * (_headBytes - 2));
    }
    ++_headBytes;
    constexpr std::uint32_t Size = 6;
    if (_headBytes == 2 && _segmentType == Kinds[2]) {
        _headBytes = 0;
        _part = Part::Ended;
    } else if (_headBytes == Size) {
        _headBytes = 0;
        if (_left != 0) {
            _part = _segmentType == Kinds[0] ? Part::SegmentText : Part::SegmentBytes;
        }
    }
}

// In a file without segments the first four bytes tell: bytes that are all hexadecimal digits are such.
void QsdPSFontText::putAfterEexec(unsigned char byte)
{
    constexpr std::size_t Told = 4;
    const char c = static_cast<char>(byte);
    if (_ahead.empty() && (isBlank(c) || c == '\r')) {
        return;
    }
    _ahead += c;
    if (_ahead.size() < Told) {
        return;
    }
    if (!_line.empty()) {
        endLine();
    }
    _part = std::all_of(_ahead.begin(), _ahead.end(), isHexDigit) ? Part::Text : Part::Cipher;
    for (const char held : _ahead) {
        putByte(static_cast<unsigned char>(held));
    }
}

// The encrypted text ends with the word closefile and the character behind it.
void QsdPSFontText::putCipher(unsigned char byte)
{
    constexpr std::string_view Last = "closefile";
    putHex(byte);
    if (_plain.size() > Last.size()) {
        _plain.erase(0, 1);
    }
    _plain += static_cast<char>(byte ^ (_key >> 8));
    _key = static_cast<std::uint16_t>((byte + _key) * 52845U + 22719U);
    if (std::string_view(_plain).substr(0, Last.size()) == Last && _plain.size() > Last.size()) {
        endLine();
        _part = Part::Text;
    }
}

void QsdPSFontText::putText(unsigned char byte)
{
    const char c = static_cast<char>(byte);
    const bool afterReturn = _afterReturn;
    _afterReturn = c == '\r';
    if (c == '\n' || c == '\r') {
        if (!(c == '\n' && afterReturn)) {
            endTextLine();
        }
        return;
    }
    constexpr unsigned char Delete = 0x7F;
    if ((byte < ' ' && c != '\t' && c != '\f') || byte == Delete) {
        fail(Fault::NoFont);
        return;
    }
    _sevenBits = _sevenBits && byte < 0x80;
    if (_inFirstLine && _firstLine.size() < MaxLine) {
        _firstLine += c;
    }
    if (!holdsLineStart(c)) {
        putCode(c);
    }
}

void QsdPSFontText::endTextLine()
{
    if (_inFirstLine) {
        _inFirstLine = false;
        if (_firstLine.substr(0, 2) != "%!" || _firstLine.find("Font") == std::string::npos) {
            fail(Fault::NoFont);
            return;
        }
    }
    if (!_held.empty()) {
        judgeComment();
    }
    _blankHeld = false;
    if (_scan == Scan::String && _depth != 0) {
        _sinceBackslash = 4;
    } else if (_scan == Scan::Comment) {
        _scan = Scan::Code;
    }
    endWord();
    endLine();
}

void QsdPSFontText::endOpenLine()
{
    if (_line.empty() && _held.empty()) {
        endWord();
    } else {
        endTextLine();
    }
}

// A line that begins with two per cent signs, or with the mark of a document, is looked at as far as its keyword.
bool QsdPSFontText::holdsLineStart(char c)
{
    constexpr std::size_t LongestKeyword = 40;
    if (_held.empty()) {
        if (!_line.empty() || _blankHeld || c != '%') {
            return false;
        }
        _held.assign(1, '%');
        return true;
    }
    if (_held.size() == 1) {
        if (c == '%' || (c == '!' && !_inFirstLine)) {
            _held += c;
            return true;
        }
    } else if ((std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '+') && _held.size() < LongestKeyword) {
        _held += c;
        return true;
    }
    judgeComment();
    return false;
}

void QsdPSFontText::judgeComment()
{
    std::string_view held = _held;
    if (held.size() > 1) {
        const bool told = std::find(HeadComments.begin(), HeadComments.end(), held.substr(2)) != HeadComments.end();
        if (held[1] != '%' || !_inHead || _scan != Scan::Code || !told) {
            fail(Fault::Structure);
            return;
        }
        held.remove_prefix(1);
    }
    const std::string text(held);
    _held.clear();
    for (const char c : text) {
        putCode(c);
    }
}

void QsdPSFontText::putCode(char c)
{
    foldBefore(c);
    if (_scan == Scan::Code && isBlank(c) && _line.size() >= FoldCode) {
        endWord();
        _blankHeld = true;
        return;
    }
    scan(c);
    append(c);
}

// Lines are broken where the language lets them: at blanks and in front of words, in hexadecimal strings, in strings
// behind a backslash; a comment goes on in one of its own. Nothing that begins with a per cent sign goes to a new line.
void QsdPSFontText::foldBefore(char c)
{
    if (_blankHeld) {
        _blankHeld = false;
        if (c == '%') {
            append(' ');
        } else {
            endLine();
        }
        return;
    }
    const bool isLong = _line.size() >= FoldOther;
    switch (_scan) {
    case Scan::Code:
        if (_line.size() >= FoldCode && std::string_view("/([{").find(c) != std::string_view::npos &&
            _line.back() != '/') {
            endLine();
        }
        break;
    case Scan::Hex:
        if (isLong) {
            endLine();
        }
        break;
    case Scan::String:
        // Not within what a backslash begins.
        if (isLong && c != '%' && (_sinceBackslash >= 4 || (c == '\\' && _sinceBackslash != 0))) {
            append('\\');
            endLine();
        }
        break;
    case Scan::Comment:
        if (isLong) {
            endLine();
            append('%');
            append(' ');
        }
        break;
    case Scan::Angle:
        break;
    }
}

void QsdPSFontText::scan(char c)
{
    switch (_scan) {
    case Scan::Angle:
        _scan = c == '<' ? Scan::Code : c == '>' ? Scan::Code : Scan::Hex;
        return;
    case Scan::Hex:
        if (c == '>') {
            _scan = Scan::Code;
        }
        return;
    case Scan::String:
        if (_sinceBackslash == 0) {
            _sinceBackslash = 1;
            return;
        }
        _sinceBackslash = c == '\\' ? 0 : std::min(_sinceBackslash + 1, 4U);
        _depth += c == '(' ? 1 : 0;
        _depth -= c == ')' ? 1 : 0;
        if (_depth == 0) {
            _scan = Scan::Code;
        }
        return;
    case Scan::Comment:
        return;
    case Scan::Code:
        break;
    }
    if (c == '%') {
        endWord();
        _scan = Scan::Comment;
        return;
    }
    _inHead = false;
    if (c == '(') {
        _depth = 1;
        _sinceBackslash = 4;
        _scan = Scan::String;
    } else if (c == '<') {
        _scan = Scan::Angle;
    }
    if (isBlank(c) || isDelimiter(c)) {
        endWord();
        // A name is none of the words that are looked for.
        _word.assign(c == '/' ? 1 : 0, '/');
    } else if (_word.size() < MaxWord) {
        _word += c;
    }
}

void QsdPSFontText::endWord()
{
    if (_word == "eexec" && !_encrypted) {
        _encrypted = true;
        _whole = false;
        if (!_segments) {
            _part = Part::AfterEexec;
        }
    } else if (_word == "definefont" || (_encrypted && _word == "cleartomark")) {
        _whole = true;
    }
    _word.clear();
}

void QsdPSFontText::putHex(unsigned char byte)
{
    constexpr char Digits[] = "0123456789abcdef";
    append(Digits[byte >> 4]);
    append(Digits[byte & 0xF]);
    if (_line.size() >= HexLine) {
        endLine();
    }
}

void QsdPSFontText::append(char c)
{
    _line += c;
    if (_line.size() >= MaxLine) {
        fail(_inFirstLine ? Fault::NoFont : Fault::LongWord);
    }
}

void QsdPSFontText::endLine()
{
    _out << _line << EOL;
    _line.clear();
}
