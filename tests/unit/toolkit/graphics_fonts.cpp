// Fonts and their metrics.
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/graphics/QsdFont.h"

#include <gtest/gtest.h>

namespace {

QsdHandle<QsdFont> font(const char* family, std::uint16_t style, std::uint16_t size)
{
    return QsdHandle<QsdFont>::Adopt(new QsdFont(family, style, size));
}

TEST(Font, HasWhatItWasMadeOf)
{
    const auto underlined = font("Times", QsdFontUnderlined | QsdFontItalic, 14);
    EXPECT_STREQ(underlined->getFamily(), "Times");
    EXPECT_TRUE(underlined->isUnderlined());
    EXPECT_EQ(underlined->size(), 14);
    EXPECT_EQ(font(nullptr, 0, 10)->getFamily(), nullptr);
    EXPECT_TRUE(underlined->windowSystemNames().empty());
}

TEST(Font, MeasuresTheFacesOfPrinters)
{
    EXPECT_DOUBLE_EQ(font("helvetica", 0, 1000)->stringWidth("A", -1), 667);
    EXPECT_DOUBLE_EQ(font("Arial", QsdFontBold, 1000)->stringWidth("A", -1), 722);
    EXPECT_DOUBLE_EQ(font("SERIF", 0, 1000)->stringWidth("A", -1), 722);
    EXPECT_DOUBLE_EQ(font("times", QsdFontItalic, 1000)->stringWidth("A", -1), 611);
    EXPECT_DOUBLE_EQ(font("times", QsdFontItalic | QsdFontBold, 1000)->stringWidth("!", -1), 389);
    EXPECT_DOUBLE_EQ(font("mono", 0, 10)->stringWidth("il.", -1), 18);
    EXPECT_DOUBLE_EQ(font("symbol", 0, 1000)->stringWidth("a", -1), 631);
    EXPECT_DOUBLE_EQ(font("symbol", 0, 1000)->stringWidth("\xAB\xD5", -1), 1042 + 823);
    EXPECT_DOUBLE_EQ(font("Zapf Dingbats", 0, 1000)->stringWidth("4\xA1", -1), 846 + 732);
    EXPECT_DOUBLE_EQ(font("never heard of", 0, 1000)->stringWidth("A", -1), 667);
}

TEST(Font, MeasuresAsManyBytesAsItIsTold)
{
    const auto courier = font("courier", 0, 10);
    EXPECT_DOUBLE_EQ(courier->stringWidth("abc", 2), 12);
    EXPECT_DOUBLE_EQ(courier->stringWidth("abc", 0), 0);
    EXPECT_DOUBLE_EQ(courier->stringWidth(nullptr, -1), 0);
    EXPECT_DOUBLE_EQ(courier->stringWidth("a\nb", 3), 12);
}

TEST(Font, IsAboutAsHighAsItsSize)
{
    for (const char* const family : {"helvetica", "times", "courier", "symbol"}) {
        const auto f = font(family, 0, 100);
        EXPECT_GE(f->ascent() + f->descent(), 100) << family;
        EXPECT_LE(f->ascent() + f->descent(), 135) << family;
        EXPECT_GT(f->ascent(), f->descent()) << family;
    }
}

TEST(Font, OfTheGreatestSizeStaysInRange)
{
    EXPECT_EQ(font("symbol", 0, 65535)->ascent(), 65535);
    EXPECT_EQ(font("helvetica", 0, 65535)->ascent(), 59309);
}

/// Puts the locale back that every process starts with.
class MultiByteFont : public testing::Test {
protected:
    void TearDown() override { QsdGlobalContext::GetInstance().setLocale(QsLocale()); }
};

TEST_F(MultiByteFont, CountsWholeAndHalfCharacters)
{
    const auto f = font("helvetica", 0, 10);
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP", QsEncodingShiftJIS));
    EXPECT_DOUBLE_EQ(f->stringWidth("A\x82\xA0\xB1", 4), 20);
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP", QsEncodingEUCJP));
    EXPECT_DOUBLE_EQ(f->stringWidth("A\xA4\xA2\x8E\xB1\x8F\xB0\xA1", 8), 30);
}

TEST_F(MultiByteFont, StopsAtTheEndOfATextThatWasCut)
{
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP", QsEncodingEUCJP));
    EXPECT_DOUBLE_EQ(font("helvetica", 0, 10)->stringWidth("\xA4", -1), 10);
}

} // namespace
