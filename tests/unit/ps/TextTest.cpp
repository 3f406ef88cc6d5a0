#include "tests/unit/ps/TestDevice.h"

#include "ps/QsdPSString.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/graphics/QsdBidiString.h"

#include <climits>
#include <clocale>
#include <cstdint>
#include <gtest/gtest.h>
#include <ostream>
#include <stdexcept>
#include <streambuf>

namespace {

class Text : public ::testing::Test {
protected:
    void use(const char* locale)
    {
        QsdGlobalContext::GetInstance().setLocale(QsLocale(locale));
        open.device.end();
        open.device.initDevice("unused", nullptr);
    }
    void useFont(const char* family, std::uint16_t style = QsdFontPlain)
    {
        const auto font = QsdHandle<QsdFont>::Adopt(open.display.createFont(family, style, 12));
        open.palette->setFont(font.get());
    }
    std::string string(const char* text, QsdPosition position = QsdPositionNone, QsdPoint at = {10, 20})
    {
        open.settle();
        open.device.drawString(open.palette.get(), at, text, -1, position);
        return open.device.taken();
    }
    std::string opaque(const char* text, QsdPosition position = QsdPositionNone)
    {
        open.settle();
        open.device.drawIString(open.palette.get(), {10, 20}, text, -1, position);
        return open.device.taken();
    }
    std::string transformed(const char* text, const QsdTransformer& t, const QsdRegion* clip = nullptr, int length = -1)
    {
        open.settle();
        open.device.drawTransformedString(open.palette.get(), text, length, t, clip);
        return open.device.taken();
    }

    OpenDevice open;
};

TEST_F(Text, PlainString)
{
    EXPECT_EQ(string("Hi"), "G 10 20 M 1 -1 scale(Hi)qsdshow g\n");
}

TEST_F(Text, Alignment)
{
    EXPECT_EQ(string("ab", QsdPositionCenter), "G 10 20 M 1 -1 scale(ab)dup stringwidth pop -2 div 0 rM qsdshow g\n");
    EXPECT_EQ(string("ab", QsdPositionRight), "G 10 20 M 1 -1 scale(ab)dup stringwidth pop -1 mul 0 rM qsdshow g\n");
    EXPECT_EQ(string("ab", QsdPositionLeft), "G 10 20 M 1 -1 scale(ab)qsdshow g\n");
    EXPECT_EQ(string("ab", QsdPositionTopRight), "G 10 20 M 1 -1 scale(ab)qsdshow g\n");
}

TEST_F(Text, LengthIsPassedOn)
{
    open.settle();
    open.device.drawString(open.palette.get(), {10, 20}, "abc", 2, QsdPositionNone);
    EXPECT_EQ(open.device.taken(), "G 10 20 M 1 -1 scale(ab)qsdshow g\n");
    open.device.drawString(open.palette.get(), {10, 20}, static_cast<const char*>(nullptr), -1, QsdPositionNone);
    EXPECT_EQ(open.device.taken(), "G 10 20 M 1 -1 scale()qsdshow g\n");
}

TEST_F(Text, ShowProcedures)
{
    useFont("helvetica", QsdFontUnderlined);
    EXPECT_EQ(string("x"), "G 10 20 M 1 -1 scale(x)qsdushow g\n");
    use("ja_JP.eucJP");
    EXPECT_EQ(string("x"), "G 10 20 M 1 -1 scale(x)qsdjushow g\n");
    useFont("fixed");
    EXPECT_EQ(string("x"), "G 10 20 M 1 -1 scale(x)qsdjshow g\n");
}

TEST_F(Text, OpaqueStringFillsTheBoxOfItsGlyphs)
{
    EXPECT_EQ(opaque("Hi"), " G n 10 20 M 1 -1 scale(Hi)\n"
                            "G dup true charpath pathbbox n 4 2 roll 2 copy M\n"
                            "3 index exch L 3 -1 roll 2 index L exch L c 1 setgray\n"
                            " fill g qsdshow g\n");
    EXPECT_EQ(opaque("Hi", QsdPositionRight), " G n 10 20 M 1 -1 scale(Hi)dup stringwidth pop -1 mul 0 rM \n"
                                              "G dup true charpath pathbbox n 4 2 roll 2 copy M\n"
                                              "3 index exch L 3 -1 roll 2 index L exch L c 1 setgray\n"
                                              " fill g qsdshow g\n");
}

TEST_F(Text, OpaqueStringInShiftJISStartsDifferently)
{
    use("ja_JP.SJIS");
    useFont("mincho", QsdFontUnderlined);
    EXPECT_EQ(opaque("A"), "G 10 20 M 1 -1 scale(\\101)\n"
                           "G dup true charpath pathbbox n 4 2 roll 2 copy M\n"
                           "3 index exch L 3 -1 roll 2 index L exch L c 1 setgray\n"
                           " fill g qsdjushow g\n");
}

TEST_F(Text, VerticalFontsAreTurned)
{
    use("ja_JP.SJIS");
    useFont("@mincho");
    const QsdFont& font = *open.palette->font();
    const unsigned y = 20U - font.ascent() + ((font.ascent() + font.descent()) >> 1);
    const std::string anchor = "G 10 " + std::to_string(y) + " M[0 1 -1 0 0 0]concat\n 1 -1 scale(\\101)";
    EXPECT_EQ(string("A"), anchor + "qsdjshow g\n");
    EXPECT_EQ(opaque("A").substr(0, anchor.size()), anchor);
}

TEST_F(Text, VerticalOrdinateAboveThePageIsWrittenUnsigned)
{
    use("ja_JP.SJIS");
    useFont("@mincho");
    EXPECT_EQ(string("A", QsdPositionNone, {10, -100}).substr(0, 10), "G 10 42949");
}

TEST_F(Text, AtSignsMatterInShiftJISAlone)
{
    useFont("@mincho");
    EXPECT_EQ(string("A"), "G 10 20 M 1 -1 scale(A)qsdshow g\n");
    use("ja_JP.eucJP");
    EXPECT_EQ(string("A"), "G 10 20 M 1 -1 scale(A)qsdjshow g\n");
    EXPECT_EQ(opaque("A").find(" G n 10 20 M 1 -1 scale(A)\n"), 0U);
    EXPECT_NE(transformed("A", QsdTransformer()).find("0 0 M[1 0 0 1 0 0]concat\n"), std::string::npos);
}

/// A font whose ascent and descent add up to an odd number.
class OddFont : public QsdFont {
public:
    OddFont() : QsdFont("@odd", QsdFontPlain, 12, 10, 3) {}
};

TEST_F(Text, VerticalFontsOfAnOddHeight)
{
    use("ja_JP.SJIS");
    const auto font = QsdHandle<QsdFont>::Adopt(new OddFont);
    open.palette->setFont(font.get());
    EXPECT_EQ(string("A"), "G 10 16 M[0 1 -1 0 0 0]concat\n 1 -1 scale(\\101)qsdjshow g\n");
    EXPECT_EQ(transformed("A", QsdTransformer(1, 0, 0, 1, 100, 200)),
              " G \n110 193.5 M[0 1 -1 0 0 0]concat\n0 10 rM 1 -1 scale(\\101)qsdjshow g\n");
}

TEST_F(Text, TransformedString)
{
    const unsigned ascent = open.palette->font()->ascent();
    EXPECT_EQ(transformed("Hi", QsdTransformer(1, 2, 3, 4, 5.5, 6)),
              " G \n5.5 6 M[1 3 2 4 0 0]concat\n0 " + std::to_string(ascent) + " rM 1 -1 scale(Hi)qsdshow g\n");
    useFont("helvetica", QsdFontUnderlined);
    EXPECT_TRUE(transformed("Hi", QsdTransformer()).ends_with("(Hi)qsdushow g\n"));
}

TEST_F(Text, EmptyTransformedStringWritesNothing)
{
    OpenDevice fresh;
    fresh.device.drawTransformedString(fresh.palette.get(), static_cast<const char*>(nullptr), -1, QsdTransformer(),
                                       nullptr);
    fresh.device.drawTransformedString(fresh.palette.get(), "text", 0, QsdTransformer(), nullptr);
    fresh.device.drawTransformedString(fresh.palette.get(), "", -1, QsdTransformer(), nullptr);
    EXPECT_EQ(fresh.device.taken(), "");
}

TEST_F(Text, TransformedStringIsClippedForItsCallAlone)
{
    const QsdRegion clip(QsdRect{1, 2, 30, 40});
    const std::string text = transformed("Hi", QsdTransformer(), &clip);
    EXPECT_EQ(text.find(" G \n rc gsave  n 30 40 1 2 rect clip n\n0 0 M["), 0U);
    EXPECT_TRUE(text.ends_with("(Hi)qsdshow g\n rc gsave\n"));
}

TEST_F(Text, ClipBeforeATransformedStringComesBack)
{
    open.palette->setClipRegion(QsdRegion(QsdRect{0, 0, 50, 50}));
    const QsdRegion clip(QsdRect{10, 10, 100, 100});
    const std::string text = transformed("Hi", QsdTransformer(), &clip);
    EXPECT_NE(text.find(" rc gsave  n 40 40 10 10 rect clip n\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with(" rc gsave\n rc gsave  n 50 50 0 0 rect clip n\n"));
}

TEST_F(Text, ClipComesBackWhenAnExceptionPasses)
{
    class Throwing : public TestDevice {
    public:
        using QsdPSDevice::clip;
        using TestDevice::TestDevice;
        void clip(const QsdRegion* region) const override
        {
            QsdPSDevice::clip(region);
            if (region != nullptr && region->boundingRect() == QsdRect{1, 1, 2, 2}) {
                throw std::runtime_error("no");
            }
        }
    };
    Throwing device(&open.display);
    device.initDevice("unused", nullptr);
    const QsdRegion clip(QsdRect{1, 1, 2, 2});
    EXPECT_THROW(device.drawTransformedString(open.palette.get(), "x", -1, QsdTransformer(), &clip),
                 std::runtime_error);
    EXPECT_TRUE(device.taken().ends_with(" rc gsave  n 2 2 1 1 rect clip n\n rc gsave\n"));
    device.end();
}

TEST_F(Text, WideStringsAreConverted)
{
    open.settle();
    open.device.drawWChar(open.palette.get(), {1, 2}, L"ab", 2, QsdPositionNone);
    EXPECT_EQ(open.device.taken(), "G 1 2 M 1 -1 scale(ab)qsdshow g\n");
    open.device.drawIWChar(open.palette.get(), {1, 2}, L"ab", 2, QsdPositionNone);
    EXPECT_EQ(open.device.taken().find(" G n 1 2 M 1 -1 scale(ab)\n"), 0U);
}

TEST_F(Text, WideStringsThatCannotBeConvertedDrawNothing)
{
    open.settle();
    open.device.drawWChar(open.palette.get(), {1, 2}, L"ab", 0, QsdPositionNone);
    open.device.drawWChar(open.palette.get(), {1, 2}, L"ab", -1, QsdPositionNone);
    open.device.drawIWChar(open.palette.get(), {1, 2}, L"ab", 0, QsdPositionNone);
    open.device.drawWChar(open.palette.get(), {1, 2}, L"", 1, QsdPositionNone);
    open.device.drawWChar(open.palette.get(), {1, 2}, L"\x3042", 1, QsdPositionNone);
    EXPECT_EQ(open.device.taken(), "");
}

TEST_F(Text, WideStringsFillTheBytesOfTheirLengthAndOneMore)
{
    const auto wide = [&](const wchar_t* text, int length) {
        open.settle();
        open.device.drawWChar(open.palette.get(), {1, 2}, text, length, QsdPositionNone);
        return open.device.taken();
    };
    EXPECT_EQ(wide(L"abcdef", 2), "G 1 2 M 1 -1 scale(abc)qsdshow g\n");
    EXPECT_EQ(wide(L"abcdef", 6), "G 1 2 M 1 -1 scale(abcdef)qsdshow g\n");
    EXPECT_EQ(wide(L"abc", INT_MAX), "G 1 2 M 1 -1 scale(abc)qsdshow g\n");
    use("ja_JP.eucJP");
    EXPECT_EQ(wide(L"abcdefgh", 1), "G 1 2 M 1 -1 scale(abcdef)qsdjshow g\n");
    open.device.drawIWChar(open.palette.get(), {1, 2}, L"abcdefgh", 1, QsdPositionNone);
    EXPECT_EQ(open.device.taken().find(" G n 1 2 M 1 -1 scale(abcdef)\n"), 0U);
}

TEST_F(Text, WideStringsEndBeforeACharacterThatDoesNotFit)
{
    if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) {
        GTEST_SKIP() << "no locale of several-byte characters";
    }
    const auto wide = [&](const wchar_t* text, int length) {
        open.settle();
        open.device.drawWChar(open.palette.get(), {1, 2}, text, length, QsdPositionNone);
        return open.device.taken();
    };
    EXPECT_EQ(wide(L"\u00E9\u00E9\u00E9", 1), "G 1 2 M 1 -1 scale(\\303\\251)qsdshow g\n");
    EXPECT_EQ(wide(L"a\u00E9\u00E9", 1), "G 1 2 M 1 -1 scale(a)qsdshow g\n");
    EXPECT_EQ(wide(L"\u3042", 1), "");
    // What does not come into the text is not converted either.
    EXPECT_EQ(wide(L"ab\xD800", 1), "G 1 2 M 1 -1 scale(ab)qsdshow g\n");
    EXPECT_EQ(wide(L"a\xD800", 2), "");
    std::setlocale(LC_CTYPE, "C");
}

TEST_F(Text, BidirectionalStringsAreNotDrawn)
{
    OpenDevice fresh;
    const QsdBidiString text(L"abc", QsdBidiString::LeftToRight);
    fresh.device.drawString(fresh.palette.get(), {0, 0}, &text, 3, QsdPositionNone);
    fresh.device.drawIString(fresh.palette.get(), {0, 0}, &text, 3, QsdPositionNone);
    fresh.device.drawTransformedString(fresh.palette.get(), &text, 3, QsdTransformer(), nullptr);
    EXPECT_EQ(fresh.device.taken(), "");
}

TEST_F(Text, OpaqueStringsInEveryShowProcedure)
{
    const std::string box = "G dup true charpath pathbbox n 4 2 roll 2 copy M\n"
                            "3 index exch L 3 -1 roll 2 index L exch L c 1 setgray\n";
    useFont("helvetica", QsdFontUnderlined);
    EXPECT_EQ(opaque("Hi"), " G n 10 20 M 1 -1 scale(Hi)\n" + box + " fill g qsdushow g\n");
    use("ja_JP.eucJP");
    useFont("fixed");
    EXPECT_EQ(opaque("Hi"), " G n 10 20 M 1 -1 scale(Hi)\n" + box + " fill g qsdjshow g\n");
}

TEST_F(Text, TransformedUnderlinedStringOfSeveralByteCharacters)
{
    use("ja_JP.eucJP");
    useFont("fixed", QsdFontUnderlined);
    const std::string ascent = std::to_string(open.palette->font()->ascent());
    EXPECT_EQ(transformed("Hi", QsdTransformer()),
              " G \n0 0 M[1 0 0 1 0 0]concat\n0 " + ascent + " rM 1 -1 scale(Hi)qsdjushow g\n");
}

TEST_F(Text, TransformedVerticalString)
{
    use("ja_JP.SJIS");
    useFont("@mincho");
    ASSERT_EQ(open.palette->font()->ascent(), 11);
    ASSERT_EQ(open.palette->font()->descent(), 3);
    EXPECT_EQ(transformed("A", QsdTransformer(2, 0, 0, 3, 10, 20)),
              " G \n32 -1 M[0 3 -2 0 0 0]concat\n0 11 rM 1 -1 scale(\\101)qsdjshow g\n");
}

TEST_F(Text, TransformedStringOfNoLengthIsNotLookedAt)
{
    const auto* const unreadable = reinterpret_cast<const char*>(std::uintptr_t{1});
    EXPECT_EQ(transformed(unreadable, QsdTransformer(), nullptr, 0), "");
}

/// Takes everything; the flush of the line that is told fails.
class FailingBuffer : public std::streambuf {
public:
    int failAt = -1;

private:
    int_type overflow(int_type c) override { return c; }
    int sync() override { return failAt-- == 0 ? -1 : 0; }
};

/// A device on such a buffer, whose stream throws when it fails.
class ThrowingDevice : public QsdPSDevice {
public:
    explicit ThrowingDevice(QsdDisplay* display) : QsdPSDevice(display, QsdPSRGB) {}
    std::ostream* openStream(const char*) override
    {
        auto* const stream = new std::ostream(&buffer);
        stream->exceptions(std::ios_base::badbit);
        return stream;
    }

    FailingBuffer buffer;
};

TEST_F(Text, NumberConventionsComeBackWhenTheStreamThrows)
{
    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) {
        GTEST_SKIP() << "no locale with a decimal comma";
    }
    use("ja_JP.SJIS");
    useFont("@mincho");
    for (const bool isTransformed : {false, true}) {
        ThrowingDevice device(&open.display);
        device.initDevice("unused", nullptr);
        device.setCurrentPalette(open.palette.get());
        device.buffer.failAt = isTransformed ? 1 : 0;
        if (isTransformed) {
            EXPECT_THROW(device.drawTransformedString(open.palette.get(), "A", -1, QsdTransformer(), nullptr),
                         std::ios_base::failure);
        } else {
            EXPECT_THROW(device.drawString(open.palette.get(), {1, 2}, "A", -1, QsdPositionNone),
                         std::ios_base::failure);
        }
        EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    }
    std::setlocale(LC_NUMERIC, "C");
}

TEST_F(Text, TransformedStringUnderAClipOfTwoRectangles)
{
    QsdRegion two;
    two.add({0, 0, 10, 10});
    two.add({20, 0, 5, 5});
    open.palette->setClipRegion(two);
    const std::string both = " rc gsave  n 10 10 0 0 rect 5 5 20 0 rect clip n\n";
    EXPECT_EQ(transformed("Hi", QsdTransformer()).find(" G \n0 0 M["), 0U);
    QsdRegion given;
    given.add({5, 0, 3, 3});
    given.add({21, 0, 2, 2});
    const std::string text = transformed("Hi", QsdTransformer(), &given);
    EXPECT_EQ(text.find(" G \n rc gsave  n 5 3 5 0 rect 3 3 20 0 rect clip n\n0 0 M["), 0U);
    EXPECT_TRUE(text.ends_with("(Hi)qsdshow g\n rc gsave\n" + both));
}

} // namespace
