// Texts in two directions.
#include "toolkit/graphics/QsdBidiString.h"

#include <gtest/gtest.h>

namespace {

std::wstring seen(const wchar_t* text, QsdBidiString::Direction base)
{
    return QsdBidiString(text, base).visualText();
}

TEST(BidiString, KeepsItsText)
{
    const QsdBidiString text(L"abc", QsdBidiString::RightToLeft);
    EXPECT_EQ(text.logicalText(), L"abc");
    EXPECT_EQ(text.baseDirection(), QsdBidiString::RightToLeft);
    EXPECT_EQ(seen(L"", QsdBidiString::LeftToRight), L"");
}

TEST(BidiString, LeavesLatinAlone)
{
    EXPECT_EQ(seen(L"abc (1) def.", QsdBidiString::LeftToRight), L"abc (1) def.");
}

TEST(BidiString, TurnsHebrewAround)
{
    EXPECT_EQ(seen(L"ab \x5D0\x5D1 cd", QsdBidiString::LeftToRight), L"ab \x5D1\x5D0 cd");
    EXPECT_EQ(seen(L"\x5D0\x5D1 ab", QsdBidiString::RightToLeft), L"ab \x5D1\x5D0");
}

TEST(BidiString, KeepsNumbersAndMirrorsBrackets)
{
    EXPECT_EQ(seen(L"\x5D0 12 \x5D1", QsdBidiString::RightToLeft), L"\x5D1 12 \x5D0");
    EXPECT_EQ(seen(L"\x5D0(\x5D1)\x5D2", QsdBidiString::RightToLeft), L"\x5D2(\x5D1)\x5D0");
}

} // namespace
