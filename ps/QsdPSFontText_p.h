// A Type 1 font on its way into a document that everybody can read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class QsdPSWriter;

/// Writes the bytes of a font file as text: the segments of a PFB file without their headers, encrypted parts in
/// hexadecimal digits, all lines ended alike and of at most 255 bytes. Comments that tell of the font at the head of
/// the file become plain ones. It keeps a line at most, whatever the size of the file.
class QsdPSFontText {
public:
    enum class Fault : std::uint8_t { None, NoFont, CutShort, Structure, LongWord };

    /// The writer must outlive the object.
    explicit QsdPSFontText(QsdPSWriter& out) : _out(out) {}

    /// Takes the next bytes of the file; false when no more are wanted, since a fault was found.
    bool put(std::string_view bytes);
    /// Ends the text after the last byte, and tells what is wrong with the file: then what was written is of no use.
    [[nodiscard]] Fault finish();
    /// Whether what was written consists of 7-bit characters.
    [[nodiscard]] bool isSevenBits() const { return _sevenBits; }

    /// What is wrong, for the end of a message.
    [[nodiscard]] static const char* Describe(Fault fault);

private:
    /// How the next byte is taken.
    enum class Part : std::uint8_t { Start, Text, AfterEexec, Cipher, SegmentHead, SegmentText, SegmentBytes, Ended };
    enum class Scan : std::uint8_t { Code, Angle, Hex, String, Comment };

    void putByte(unsigned char byte);
    void putSegmentHead(unsigned char byte);
    void putAfterEexec(unsigned char byte);
    void putCipher(unsigned char byte);
    void putText(unsigned char byte);
    void endTextLine();
    void endOpenLine();
    bool holdsLineStart(char c);
    void judgeComment();
    void putCode(char c);
    void scan(char c);
    void foldBefore(char c);
    void endWord();
    void putHex(unsigned char byte);
    void append(char c);
    void endLine();
    void fail(Fault fault);

    QsdPSWriter& _out;
    Fault _fault = Fault::None;
    Part _part = Part::Start;
    Scan _scan = Scan::Code;
    std::string _line;  ///< of the text, not yet written
    std::string _held;  ///< the beginning of a line that may be a structuring comment
    std::string _word;  ///< the word under way in code
    std::string _ahead; ///< bytes that tell how the encrypted part is written
    std::string _plain; ///< the end of what was decrypted
    std::string _firstLine;
    unsigned _depth = 0;          ///< of parentheses in a string
    unsigned _sinceBackslash = 4; ///< characters in a string, up to 4
    std::uint16_t _key = 55665;   ///< of the encrypted part
    std::uint32_t _headBytes = 0; ///< of a segment's header, seen
    std::uint64_t _left = 0;      ///< bytes of the segment to come
    unsigned char _segmentType = 0;
    bool _segments = false;
    bool _afterReturn = false;
    bool _blankHeld = false;
    bool _inFirstLine = true;
    bool _inHead = true; ///< only comments so far
    bool _encrypted = false;
    bool _whole = false;
    bool _sevenBits = true;
};
