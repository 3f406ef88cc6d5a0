// The fonts that every printer is taken to have.
#pragma once

#include "toolkit/base/QsEncoding.h"

/// One row of the built-in font table; a null name is derived from the normal one.
struct QsdPSBuiltInFont {
    QsEncoding encoding;
    const char* family;
    const char* normalName;
    const char* boldName;
    const char* italicName;
    const char* boldItalicName;
    bool asDefault;
};

/// The Japanese families are known by the names that X fonts carry, in ISO-2022-JP: a two-letter prefix in full-width
/// letters and the word for the Mincho or the Gothic style.
inline constexpr char QsdPSMinchoFamily[] = "\x1B$B#M#SL@D+\x1B(J";
inline constexpr char QsdPSGothicFamily[] = "\x1B$B#M#S%4%7%C%/\x1B(J";

// clang-format off
inline constexpr QsdPSBuiltInFont QsdPSBuiltInFonts[] = {
    {QsEncodingLatin1,   "helvetica", "Helvetica",   nullptr, nullptr, nullptr, true},
    {QsEncodingCP1252,   "helvetica", "Helvetica",   nullptr, nullptr, nullptr, true},
    {QsEncodingLatin1,   "courier",   "Courier",     nullptr, nullptr, nullptr, false},
    {QsEncodingCP1252,   "courier",   "Courier",     nullptr, nullptr, nullptr, false},
    {QsEncodingLatin1,   "times",     "Times-Roman", "Times-Bold", "Times-Italic", "Times-BoldItalic", false},
    {QsEncodingCP1252,   "times",     "Times-Roman", "Times-Bold", "Times-Italic", "Times-BoldItalic", false},
    {QsEncodingLatin1,   "symbol",    "Symbol",      "Symbol", "Symbol", "Symbol", false},
    {QsEncodingCP1252,   "symbol",    "Symbol",      "Symbol", "Symbol", "Symbol", false},
    {QsEncodingShiftJIS, QsdPSMinchoFamily, "Ryumin-Light-RKSJ-H",     nullptr, nullptr, nullptr, true},
    {QsEncodingShiftJIS, QsdPSGothicFamily, "GothicBBB-Medium-RKSJ-H", nullptr, nullptr, nullptr, false},
    {QsEncodingEUCJP,    "fixed",     "Ryumin-Light-QSD-H", "Ryumin-Light-QSD-H",
                                      "Ryumin-Light-QSD-H", "Ryumin-Light-QSD-H", true},
    {QsEncodingEUCJP,    "gothic medium bbb", "GothicBBB-Medium-QSD-H", "GothicBBB-Medium-QSD-H",
                                      "GothicBBB-Medium-QSD-H", "GothicBBB-Medium-QSD-H", false},
    {QsEncodingGB2312,   "fixed",     "MHeiGB-Medium", "MHeiGB-Medium", "MHeiGB-Medium", "MHeiGB-Medium", true},
    {QsEncodingGBK,      "fixed",     "MHeiGB-Medium", "MHeiGB-Medium", "MHeiGB-Medium", "MHeiGB-Medium", true},
};
// clang-format on
