// Character encodings, known by number throughout the toolkit.
#pragma once

#include <cstdint>

/// A character encoding of the toolkit. The numbers are stable: files and registries keep them.
enum QsEncoding : std::uint32_t {
    QsEncodingUnknown = 0,   ///< no encoding, or a name nobody knows
    QsEncodingASCII = 1,     ///< seven-bit ASCII; documents treat it as Latin-1
    QsEncodingLatin1 = 2,    ///< ISO 8859-1, the default
    QsEncodingEUCJP = 12,    ///< Japanese EUC: one, two (kanji, or kana after 0x8E) or three bytes (after 0x8F)
    QsEncodingShiftJIS = 13, ///< Shift-JIS: one or two bytes
    QsEncodingGB2312 = 15,   ///< simplified Chinese EUC: one or two bytes
    QsEncodingCP1252 = 23,   ///< the Windows extension of Latin-1
    QsEncodingGBK = 37       ///< the GBK extension of GB 2312: one or two bytes
};
