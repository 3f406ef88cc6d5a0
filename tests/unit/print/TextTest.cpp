// Texts, dashes and arcs that need care: fonts with encodings of their own, vertical families, and what interpreters
// stop at.
#include "ps/QsdPSFonts_.h"
#include "tests/unit/print/PrintDevice.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace {

QsdHandle<QsdFont> fontOf(const char* family, std::uint16_t size = 12, std::uint16_t style = QsdFontPlain)
{
    return QsdHandle<QsdFont>::Adopt(new QsdFont(family, style, size));
}

void drawText(PrintPage& page, const char* family, std::uint16_t size = 12)
{
    page.palette->setFont(fontOf(family, size).get());
    page.device.drawString(page.palette.get(), {100, 100}, "text", 4, QsdPositionNone);
}

std::string setupWith(const char* family, const char* normalName, bool own)
{
    auto* const names = new QsdPSFontNames_(QsEncodingLatin1, family, normalName, nullptr, nullptr, nullptr, nullptr,
                                            nullptr, nullptr, nullptr);
    names->setOwnEncoding(own);
    QsdPSFonts_::GetInstance()->addOrReplace(names, false);
    PrintPage page;
    drawText(page, family);
    return page.between("%%BeginSetup\n", "%%EndSetup\n");
}

TEST(PrintText, FontsOfSymbolsKeepTheirEncoding)
{
    PrintPage page;
    drawText(page, "symbol");
    drawText(page, "times");
    const std::string setup = page.between("%%BeginSetup\n", "%%EndSetup\n");
    EXPECT_NE(setup.find("\n/F1/Symbol findfont def\n"), std::string::npos) << setup;
    EXPECT_NE(setup.find("\n/F2/Times-Roman-Qsd/Times-Roman enc\n"), std::string::npos) << setup;
    EXPECT_NE(setupWith("signs", "ZapfDingbats", false).find("\n/F1/ZapfDingbats findfont def\n"), std::string::npos);
}

TEST(PrintText, FontsOfAMapKeepTheirEncodingWhereItSaysSo)
{
    EXPECT_NE(setupWith("music", "Notes", true).find("\n/F1/Notes findfont def\n"), std::string::npos);
    EXPECT_NE(setupWith("music", "Notes", false).find("\n/F1/Notes-Qsd/Notes enc\n"), std::string::npos);
}

TEST(PrintText, AFontMayBeTakenBothWays)
{
    static_cast<void>(setupWith("music", "Notes", true));
    auto* const letters = new QsdPSFontNames_(QsEncodingLatin1, "letters", "Notes", nullptr, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, nullptr);
    QsdPSFonts_::GetInstance()->addOrReplace(letters, false);
    PrintPage page;
    drawText(page, "music");
    drawText(page, "letters");
    const std::string setup = page.between("%%BeginSetup\n", "%%EndSetup\n");
    EXPECT_NE(setup.find("\n/F1/Notes findfont def\n/F2/Notes-Qsd/Notes enc\n"), std::string::npos) << setup;
}

TEST(PrintText, OnlyShiftJISFamiliesAreVertical)
{
    const auto boxOf = [](const char* family) {
        PrintPage page;
        drawText(page, family);
        return page.between("%%PageBoundingBox: ", "\n");
    };
    EXPECT_EQ(boxOf("@helvetica"), boxOf("helvetica"));
    const auto transformedBoxOf = [](const char* family) {
        PrintPage page;
        page.palette->setFont(fontOf(family).get());
        page.device.drawTransformedString(page.palette.get(), "text", 4, QsdTransformer(1, 0, 0, 1, 100, 100), nullptr);
        return page.between("%%PageBoundingBox: ", "\n");
    };
    EXPECT_EQ(transformedBoxOf("@helvetica"), transformedBoxOf("helvetica"));
}

TEST(PrintText, UnderAFlatMatrixIsNotDrawn)
{
    const double nan = std::nan("");
    for (const QsdTransformer& t :
         {QsdTransformer(0, 0, 0, 0, 5, 5), QsdTransformer(1, 0, 0, 0, 5, 5), QsdTransformer(0.1, 0.2, 0.3, 0.6, 0, 0),
          QsdTransformer(100, 100.0004, 100, 100, 0, 0), QsdTransformer(1, 0, 0, nan, 0, 0),
          QsdTransformer(1e-30, 0, 0, 1e-30, 0, 0)}) {
        PrintPage page;
        page.device.drawTransformedString(page.palette.get(), "text", 4, t, nullptr);
        page.device.setTransformer(t);
        drawText(page, "times");
        page.device.drawIString(page.palette.get(), {1, 1}, "text", 4, QsdPositionCenter);
        page.device.setTransformer(QsdTransformer());
        EXPECT_EQ(page.whole().find("(text)"), std::string::npos);
    }
    for (const QsdTransformer& t : {QsdTransformer(1, 0, 0, 0.001, 5, 5), QsdTransformer(0, 1, -1, 0, 5, 5),
                                    QsdTransformer(1000, 999, 999, 1000, 0, 0)}) {
        PrintPage page;
        page.device.drawTransformedString(page.palette.get(), "text", 4, t, nullptr);
        EXPECT_NE(page.whole().find("(text)"), std::string::npos);
    }
}

TEST(PrintText, OfNoSizeIsNotDrawn)
{
    class OneUnit : public QsdFont {
    public:
        OneUnit() : QsdFont("times", QsdFontPlain, 0, 1, 0) {}
    };
    PrintPage page;
    page.palette->setFont(QsdHandle<QsdFont>::Adopt(new OneUnit).get());
    page.device.drawString(page.palette.get(), {5, 5}, "text", 4, QsdPositionNone);
    EXPECT_EQ(page.whole().find("(text)"), std::string::npos);
}

TEST(PrintDashes, OfNoLengthAreASolidLine)
{
    PrintPage page;
    const unsigned char zeros[] = {0, 0};
    const unsigned char dashes[] = {0, 3};
    const auto styleOf = [](const unsigned char* lengths) {
        return QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(2, lengths));
    };
    const auto drawWith = [&](const QsdLineStyle* style) {
        page.palette->setLineStyle(style, 1);
        page.device.drawLine(page.palette.get(), {0, 0}, {9, 9});
    };
    drawWith(styleOf(zeros).get());
    drawWith(nullptr);
    drawWith(styleOf(zeros).get());
    drawWith(styleOf(dashes).get());
    drawWith(styleOf(zeros).get());
    const std::string drawing = PrintPage::drawing(page.whole());
    std::string lines;
    for (std::size_t at = drawing.find('['); at != std::string::npos; at = drawing.find('[', at + 1)) {
        lines += drawing.substr(at, drawing.find('\n', at) - at) + ";";
    }
    EXPECT_EQ(lines, "[] 0 setdash;[0 3 ] 2 setdash;[] 0 setdash;");
}

TEST(PrintArcs, OfManyTurnsTakeFewAndStayTheSame)
{
    const auto arcOf = [](float start, float range) {
        PrintPage page;
        page.device.drawArc(page.palette.get(), {0, 0, 20, 20}, start, range);
        const std::string drawing = PrintPage::drawing(page.whole());
        const std::size_t at = drawing.find("0 0 1 ") + 6;
        return drawing.substr(at, drawing.find(" arc") - at);
    };
    const float endless = std::numeric_limits<float>::infinity();
    EXPECT_EQ(arcOf(0, 720), "0 720");
    EXPECT_EQ(arcOf(0, 36000), "0 720");
    EXPECT_EQ(arcOf(0, 36360), "0 1080");
    EXPECT_EQ(arcOf(36010, 90), "10 100");
    EXPECT_EQ(arcOf(0, endless), "0 720");
    EXPECT_EQ(arcOf(-endless, 90), "0 90");
    EXPECT_EQ(arcOf(5, std::nanf("")), "5 5");
}

TEST(PrintTransformers, HoldNumbersThatInterpretersRead)
{
    PrintPage page;
    page.device.setTransformer(QsdTransformer(1e300, 0, 1e-300, 1, -1e300, 0));
    page.device.drawLine(page.palette.get(), {0, 0}, {9, 9});
    const std::string text = page.whole();
    EXPECT_NE(text.find("[1e+20 0 0 1 -1e+20 0] concat\n"), std::string::npos) << text;
}

} // namespace
