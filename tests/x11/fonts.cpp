// Texts and fonts of the server.
#include "tests/x11/support.h"

#include "tests/unit/ps/TestDevice.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/graphics/QsdBidiString.h"
#include "toolkit/x11/QsdXFont.h"

#include <clocale>
#include <cstdlib>
#include <string>

namespace {

constexpr QsdRGB Black{};
constexpr QsdRGB Red{255, 0, 0};
constexpr QsdRGB White{255, 255, 255};

/// From where to where there are pixels of a colour.
struct Ink {
    int left = 10000;
    int top = 10000;
    int right = -1;
    int bottom = -1;
    int count = 0;
};

Ink inkOf(const QsdSystemPort& port, QsdRGB color)
{
    const std::vector<QsdRGB> colors = colorsOf(port, areaOf(port));
    const int width = static_cast<int>(port.width());
    Ink ink;
    for (int i = 0; i < static_cast<int>(colors.size()); ++i) {
        if (colors[static_cast<std::size_t>(i)] == color) {
            ink.left = std::min(ink.left, i % width);
            ink.right = std::max(ink.right, i % width);
            ink.top = std::min(ink.top, i / width);
            ink.bottom = std::max(ink.bottom, i / width);
            ++ink.count;
        }
    }
    return ink;
}

class FontTest : public XTest {
protected:
    void SetUp() override
    {
        XTest::SetUp();
        port = std::make_unique<QsdXPixmap>(display.get(), 200, 100, std::uint16_t{0});
        palette = paletteOf(*display);
        setColors(*palette, Black, White);
        port->clear(palette.get());
    }
    void TearDown() override
    {
        port.reset();
        palette = {};
        XTest::TearDown();
    }
    [[nodiscard]] QsdHandle<QsdFont> fontOf(const char* family, std::uint16_t style, std::uint16_t size)
    {
        return QsdHandle<QsdFont>::Adopt(display->createFont(family, style, size));
    }
    [[nodiscard]] static std::string nameOf(const QsdFont& font)
    {
        const std::vector<QsString> names = font.windowSystemNames();
        return names.size() == 1 ? names.front().c_str() : std::to_string(names.size()) + " names";
    }
    [[nodiscard]] std::vector<QsdRGB> pixels() const { return colorsOf(*port, areaOf(*port)); }

    std::unique_ptr<QsdXPixmap> port;
    QsdHandle<QsdPalette> palette;
};

TEST_F(FontTest, FindsFontsByFamilyStyleAndSize)
{
    EXPECT_EQ(nameOf(*fontOf("helvetica", QsdFontPlain, 12)).find("-Adobe-Helvetica-Medium-R-Normal--12-"), 0U)
        << nameOf(*fontOf("helvetica", QsdFontPlain, 12));
    EXPECT_NE(nameOf(*fontOf("times", QsdFontBold | QsdFontItalic, 18)).find("-Times-Bold-I-Normal--18-"),
              std::string::npos);
    EXPECT_NE(nameOf(*fontOf("courier", QsdFontItalic | QsdFontUnderlined, 14)).find("-Courier-Medium-O-Normal--14-"),
              std::string::npos);
    // A family without a style keeps to itself.
    EXPECT_NE(nameOf(*fontOf("symbol", QsdFontBold, 14)).find("-Symbol-Medium-R-Normal--14-"), std::string::npos);
    const QsdHandle<QsdFont> font = fontOf("times", QsdFontBold, 18);
    EXPECT_STREQ(font->getFamily(), "times");
    EXPECT_EQ(font->style(), QsdFontBold);
    EXPECT_EQ(font->size(), 18);
    EXPECT_GT(font->ascent(), 10);
    EXPECT_LT(font->ascent() + font->descent(), 30);
}

TEST_F(FontTest, UnknownFamiliesAreTakenForTheUsualOne)
{
    EXPECT_NE(nameOf(*fontOf("nobody has this", QsdFontBold, 12)).find("-Helvetica-Bold-"), std::string::npos);
    EXPECT_NE(nameOf(*fontOf("times-*-*,fixed", QsdFontPlain, 12)).find("-Helvetica-Medium-"), std::string::npos);
    EXPECT_NE(nameOf(*fontOf(nullptr, QsdFontPlain, 12)).find("-Helvetica-Medium-"), std::string::npos);
    // Sizes that would cost the server dear have no font of its own.
    EXPECT_EQ(nameOf(*fontOf("times", QsdFontPlain, 60000)), "0 names");
}

TEST_F(FontTest, MeasuresAsTheServerDraws)
{
    const QsdHandle<QsdFont> fixed = fontOf("6x13", QsdFontByXName, 99);
    EXPECT_EQ(fixed->stringWidth("12345", -1), 30);
    EXPECT_EQ(fixed->stringWidth("12345", 2), 12);
    EXPECT_EQ(fixed->stringWidth(nullptr, 3), 0);
    EXPECT_EQ(fixed->stringWidth(std::string(100000, 'x').c_str(), -1), 600000);
    EXPECT_EQ(fixed->ascent() + fixed->descent(), 13);
    EXPECT_EQ(fixed->size(), 0);
}

TEST_F(FontTest, DocumentsFindFontsByTheirXNames)
{
    const QsdHandle<QsdFont> font = fontOf("-*-times-bold-r-normal--14-*-iso8859-1", QsdFontByXName, 0);
    EXPECT_EQ(font->style(), QsdFontByXName);
    ASSERT_NE(nameOf(*font).find("-Times-Bold-R-"), std::string::npos) << nameOf(*font);
    palette->setFont(font.get());
    TestDevice device(display.get());
    device.initDevice("unused", nullptr);
    device.taken();
    device.drawString(palette.get(), {10, 20}, "Hi", -1, QsdPositionLeft);
    const std::string document = device.taken();
    EXPECT_NE(document.find(std::to_string(font->ascent() + font->descent() - 1) + "/Times-Roman qsdsf\n"),
              std::string::npos)
        << document;
    device.end();
    // One that the server does not have has no names to go by.
    EXPECT_EQ(nameOf(*fontOf("-*-no such font-*", QsdFontByXName, 0)), "0 names");
}

TEST_F(FontTest, AlignsTexts)
{
    palette->setFont(fontOf("6x13", QsdFontByXName, 0).get());
    port->drawString(palette.get(), {100, 50}, "HHHH", -1, QsdPositionLeft);
    const Ink left = inkOf(*port, Black);
    EXPECT_GE(left.left, 100);
    EXPECT_LE(left.right, 123);
    EXPECT_LE(left.bottom, 50);
    port->clear(palette.get());
    port->drawString(palette.get(), {100, 50}, "HHHH", -1, QsdPositionRight);
    const Ink right = inkOf(*port, Black);
    EXPECT_EQ(right.left, left.left - 24);
    EXPECT_EQ(right.count, left.count);
    port->clear(palette.get());
    port->drawString(palette.get(), {100, 50}, "HHHHabc", 4, QsdPositionCenter);
    EXPECT_EQ(inkOf(*port, Black).left, left.left - 12);
    EXPECT_EQ(inkOf(*port, Black).count, left.count);
}

TEST_F(FontTest, OpaqueTextsStandOnABox)
{
    palette->setFont(fontOf("6x13", QsdFontByXName, 0).get());
    setColors(*palette, Black, Red);
    port->drawIString(palette.get(), {50, 40}, "abc", -1, QsdPositionLeft);
    const Ink box = inkOf(*port, Red);
    const int ascent = palette->font()->ascent();
    EXPECT_EQ(box.left, 50);
    EXPECT_EQ(box.right, 50 + 18 - 1);
    EXPECT_EQ(box.top, 40 - ascent);
    EXPECT_EQ(box.bottom, 40 - ascent + 13 - 1);
    EXPECT_GT(inkOf(*port, Black).count, 10);
}

TEST_F(FontTest, UnderlinesTexts)
{
    palette->setFont(fontOf("helvetica", QsdFontPlain, 12).get());
    port->drawString(palette.get(), {10, 40}, "nnnn", -1, QsdPositionLeft);
    const Ink plain = inkOf(*port, Black);
    palette->setFont(fontOf("helvetica", QsdFontUnderlined, 12).get());
    port->drawString(palette.get(), {10, 40}, "nnnn", -1, QsdPositionLeft);
    const Ink underlined = inkOf(*port, Black);
    EXPECT_GT(underlined.bottom, plain.bottom);
    EXPECT_GE(underlined.count, plain.count + static_cast<int>(palette->font()->stringWidth("nnnn", -1)));
}

TEST_F(FontTest, TextsKeepToTheClip)
{
    palette->setFont(fontOf("6x13", QsdFontByXName, 0).get());
    palette->setClipRegion(QsdRegion({110, 0, 5, 100}));
    setColors(*palette, Black, Red);
    port->drawIString(palette.get(), {100, 50}, "HHHHHH", -1, QsdPositionLeft);
    EXPECT_EQ(inkOf(*port, Red).left, 110);
    EXPECT_EQ(inkOf(*port, Red).right, 114);
}

TEST_F(FontTest, LongTextsMayBeginFarOutside)
{
    palette->setFont(fontOf("6x13", QsdFontByXName, 0).get());
    const std::string text = std::string(20000, ' ') + "HH" + std::string(20000, ' ');
    port->drawString(palette.get(), {-120000 + 30, 50}, text.c_str(), -1, QsdPositionLeft);
    const Ink ink = inkOf(*port, Black);
    EXPECT_GE(ink.left, 30);
    EXPECT_LE(ink.right, 41);
    EXPECT_GT(ink.count, 20);
    // Beyond the numbers of X nothing comes around.
    port->clear(palette.get());
    port->drawString(palette.get(), {65536 + 30, 50}, "HH", -1, QsdPositionLeft);
    port->drawString(palette.get(), {30, 65536 + 50}, "HH", -1, QsdPositionLeft);
    EXPECT_EQ(inkOf(*port, Black).count, 0);
}

TEST_F(FontTest, ATransformerMovesTurnsAndStretchesTexts)
{
    palette->setFont(fontOf("6x13", QsdFontByXName, 0).get());
    port->drawString(palette.get(), {20, 40}, "HH", -1, QsdPositionLeft);
    const Ink plain = inkOf(*port, Black);
    port->clear(palette.get());
    port->setTransformer(QsdTransformer(1, 0, 0, 1, 5, 7));
    port->drawString(palette.get(), {20, 40}, "HH", -1, QsdPositionLeft);
    const Ink moved = inkOf(*port, Black);
    EXPECT_EQ(moved.left, plain.left + 5);
    EXPECT_EQ(moved.bottom, plain.bottom + 7);
    EXPECT_EQ(moved.count, plain.count);
    port->clear(palette.get());
    port->setTransformer(QsdTransformer(2, 0, 0, 2, 0, 0));
    port->drawString(palette.get(), {20, 40}, "HH", -1, QsdPositionLeft);
    const Ink doubled = inkOf(*port, Black);
    EXPECT_EQ(doubled.left, plain.left * 2);
    EXPECT_EQ(doubled.top, plain.top * 2);
    EXPECT_EQ(doubled.bottom, plain.bottom * 2 + 1);
    EXPECT_EQ(doubled.count, plain.count * 4);
    port->clear(palette.get());
    setColors(*palette, Black, Red);
    port->drawIString(palette.get(), {20, 40}, "HH", -1, QsdPositionLeft);
    EXPECT_EQ(inkOf(*port, Red).left, 40);
    EXPECT_EQ(inkOf(*port, Red).right, 40 + 2 * 12 - 1);
    port->setTransformer({});
}

TEST_F(FontTest, LargerTextsAreDrawnInTheLargerFont)
{
    palette->setFont(fontOf("times", QsdFontItalic, 24).get());
    palette->setClipRegion(QsdRegion({20, 0, 60, 100}));
    setColors(*palette, Black, Red);
    port->drawIString(palette.get(), {50, 60}, "Tq", -1, QsdPositionCenter);
    port->drawTransformedString(palette.get(), "Tq", -1, QsdTransformer(1, 0, 0, 1, 30, 70), nullptr);
    const std::vector<QsdRGB> expected = pixels();
    EXPECT_GT(inkOf(*port, Black).count, 50);
    port->clear(paletteOf(*display).get());
    port->setTransformer(QsdTransformer(2, 0, 0, 2, 10, 20));
    palette->setFont(fontOf("times", QsdFontItalic, 12).get());
    palette->setClipRegion(QsdRegion({5, -10, 30, 50}));
    port->drawIString(palette.get(), {20, 20}, "Tq", -1, QsdPositionCenter);
    port->drawTransformedString(palette.get(), "Tq", -1, QsdTransformer(1, 0, 0, 1, 10, 25), nullptr);
    port->setTransformer({});
    EXPECT_EQ(pixels(), expected);
}

TEST_F(FontTest, TransformedTextsHangFromTheOrigin)
{
    palette->setFont(fontOf("6x13", QsdFontByXName, 0).get());
    port->drawString(palette.get(), {50, 50 + palette->font()->ascent()}, "HH", -1, QsdPositionLeft);
    const std::vector<QsdRGB> upright = pixels();
    port->clear(palette.get());
    port->drawTransformedString(palette.get(), "HH", -1, QsdTransformer(1, 0, 0, 1, 50, 50), nullptr);
    EXPECT_EQ(pixels(), upright);
    const Ink plain = inkOf(*port, Black);
    // A quarter turn clockwise makes what went to the right go down, and what went down go to the left.
    port->clear(palette.get());
    port->drawTransformedString(palette.get(), "HH", -1, QsdTransformer(0, -1, 1, 0, 50, 50), nullptr);
    const Ink turned = inkOf(*port, Black);
    EXPECT_EQ(turned.top, plain.left);
    EXPECT_EQ(turned.right, 99 - plain.top);
    EXPECT_EQ(turned.count, plain.count);
    const QsdRegion limit({0, 0, 200, 55});
    port->clear(palette.get());
    port->drawTransformedString(palette.get(), "HH", -1, QsdTransformer(0, -1, 1, 0, 50, 50), &limit);
    EXPECT_EQ(inkOf(*port, Black).bottom, 54);
}

TEST_F(FontTest, WithoutAFontTextsLookLikeThoseOfBitmaps)
{
    palette->setFont(QsdHandle<QsdFont>::Adopt(new QsdFont("times", QsdFontPlain, 600)).get());
    setColors(*palette, Black, Red);
    const QsdBitmap bitmap(display.get(), 200, 100, 0);
    bitmap.drawBitmap(palette.get(), port.get(), areaOf(*port), {0, 0});
    port->drawIString(palette.get(), {0, 90}, "A", -1, QsdPositionLeft);
    bitmap.drawIString(palette.get(), {0, 90}, "A", -1, QsdPositionLeft);
    EXPECT_GT(inkOf(*port, Black).count, 100);
    EXPECT_GT(inkOf(*port, Red).count, 100);
    EXPECT_EQ(pixels(), colorsOf(bitmap, areaOf(bitmap)));
    const QsdTransformer t(0.8, 0, 0, 0.8, 20, -60);
    port->drawTransformedString(palette.get(), "B", -1, t, nullptr);
    bitmap.drawTransformedString(palette.get(), "B", -1, t, nullptr);
    EXPECT_EQ(pixels(), colorsOf(bitmap, areaOf(bitmap)));
}

TEST_F(FontTest, WideAndDirectedTextsAreTextsToo)
{
    palette->setFont(fontOf("helvetica", QsdFontPlain, 14).get());
    port->drawString(palette.get(), {20, 40}, "Text", -1, QsdPositionCenter);
    const std::vector<QsdRGB> narrow = pixels();
    EXPECT_GT(inkOf(*port, Black).count, 20);
    port->clear(palette.get());
    port->drawWChar(palette.get(), {20, 40}, L"Texts", 4, QsdPositionCenter);
    EXPECT_EQ(pixels(), narrow);
    port->clear(palette.get());
    const QsdBidiString directed(L"Text", QsdBidiString::LeftToRight);
    port->drawString(palette.get(), {20, 40}, &directed, -1, QsdPositionCenter);
    EXPECT_EQ(pixels(), narrow);
    port->clear(palette.get());
    port->drawIString(palette.get(), {20, 40}, &directed, -1, QsdPositionCenter);
    EXPECT_EQ(pixels(), narrow);
    port->clear(palette.get());
    port->drawIWChar(palette.get(), {20, 40}, L"Text", 4, QsdPositionCenter);
    EXPECT_EQ(pixels(), narrow);
}

TEST_F(FontTest, FontsOutliveTheDisplay)
{
    std::unique_ptr<QsdXDisplay> other = QsdXDisplay::Open();
    const QsdHandle<QsdFont> font = QsdHandle<QsdFont>::Adopt(other->createFont("6x13", QsdFontByXName, 0));
    other.reset();
    EXPECT_EQ(font->stringWidth("ab", -1), 12);
    // It draws nothing on another connection, which has one of its own.
    palette->setFont(font.get());
    port->drawString(palette.get(), {20, 40}, "ab", -1, QsdPositionLeft);
    EXPECT_GT(inkOf(*port, Black).count, 5);
}

/// The Japanese locale of an encoding as long as it lives, if the machine can make it.
class JapaneseLocale {
public:
    JapaneseLocale(const char* charmap, const char* name, QsEncoding encoding)
    {
        const std::string folder = std::getenv("HOME");
        const std::string make = "localedef --no-warnings=ascii -i ja_JP -f " + std::string(charmap) + " '" + folder +
                                 "/" + name + "' >/dev/null 2>&1";
        setenv("LOCPATH", folder.c_str(), 1);
        // NOLINTNEXTLINE(concurrency-mt-unsafe)
        _there = std::system(make.c_str()) == 0 && std::setlocale(LC_CTYPE, name) != nullptr;
        QsdGlobalContext::GetInstance().setLocale(QsLocale(name, encoding));
    }
    JapaneseLocale(const JapaneseLocale&) = delete;
    JapaneseLocale& operator=(const JapaneseLocale&) = delete;
    ~JapaneseLocale()
    {
        std::setlocale(LC_CTYPE, "C");
        unsetenv("LOCPATH");
        QsdGlobalContext::GetInstance().setLocale(QsLocale());
    }
    [[nodiscard]] bool isThere() const { return _there; }

private:
    bool _there;
};

/// Draws two characters of two bytes and one of one in a set of fonts.
void drawJapanese(QsdXPixmap& port, QsdPalette& palette, QsdXDisplay& display, const char* text)
{
    const auto font = QsdHandle<QsdFont>::Adopt(display.createFont("fixed", QsdFontPlain, 14));
    const std::vector<QsString> names = font->windowSystemNames();
    ASSERT_GE(names.size(), 2U);
    const bool japanese = std::any_of(names.begin(), names.end(), [](const QsString& name) {
        return name.view().find("JISX0208") != std::string_view::npos;
    });
    EXPECT_TRUE(japanese);
    EXPECT_EQ(font->stringWidth(text, -1), 14 + 14 + 7);
    palette.setFont(font.get());
    port.drawString(&palette, {20, 40}, text, -1, QsdPositionLeft);
    const Ink ink = inkOf(port, Black);
    EXPECT_GE(ink.left, 20);
    EXPECT_LT(ink.right, 55);
    EXPECT_GT(ink.count, 60);
}

TEST_F(FontTest, SetsOfFontsDrawJapaneseEuc)
{
    const JapaneseLocale locale("EUC-JP", "ja_JP.eucJP", QsEncodingEUCJP);
    if (!locale.isThere()) {
        GTEST_SKIP() << "no Japanese locale can be made here";
    }
    drawJapanese(*port, *palette, *display, "\xB4\xC1\xBB\xFA\x41");
}

TEST_F(FontTest, SetsOfFontsDrawShiftJis)
{
    const JapaneseLocale locale("SHIFT_JIS", "ja_JP.SJIS", QsEncodingShiftJIS);
    if (!locale.isThere()) {
        GTEST_SKIP() << "no Japanese locale can be made here";
    }
    drawJapanese(*port, *palette, *display, "\x8A\xBF\x8E\x9A\x41");
}

TEST_F(FontTest, WithoutTheLocaleOfTheTextsThereIsNoSet)
{
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP.eucJP", QsEncodingEUCJP));
    EXPECT_EQ(nameOf(*fontOf("fixed", QsdFontPlain, 14)), "0 names");
    palette->setFont(QsdHandle<QsdFont>::Adopt(new QsdFont("fixed", QsdFontPlain, 14)).get());
    port->drawString(palette.get(), {20, 40}, "\xB4\xC1", -1, QsdPositionLeft);
    QsdGlobalContext::GetInstance().setLocale(QsLocale());
    // Boxes stand for what cannot be drawn.
    EXPECT_GT(inkOf(*port, Black).count, 10);
}

} // namespace
