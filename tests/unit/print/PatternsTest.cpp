#include "tests/unit/print/PrintDevice.h"

#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"

#include <stdexcept>
#include <utility>

namespace {

const unsigned char Stripes[] = {0xF0, 0x0F};

QsdHandle<QsdPattern> stripes()
{
    return QsdHandle<QsdPattern>::Adopt(new QsdPattern(8, 2, Stripes));
}

TEST(PrintPatterns, AreDefinedOnceHoweverOftenUsed)
{
    PrintPage page;
    page.palette->setFillStyle(QsdFillMaskPattern);
    for (int i = 0; i < 3; ++i) {
        page.palette->setPattern(stripes().get());
        page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
        page.device.newPage();
    }
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::part(text, "QsdPrintDict begin\n/P1s", "end\n"),
              "[\n"
              "2 string currentfile /ASCII85Decode filter rs\n"
              "n.,~>\n"
              "]def\n"
              "/P1{/pi 0 def 8 2 true[-1 0 0 -1 0 1]{P1s pn}imagemask}bd\n");
    for (int number = 1; number <= 3; ++number) {
        EXPECT_EQ(PrintPage::drawing(text, number), "0 sg\nn 30 40 1 2 rect /P1 load 8 2 true ft\n");
    }
}

TEST(PrintPatterns, OpaqueOnesFillTheirBackgroundFirst)
{
    PrintPage page(1);
    page.palette->setPattern(stripes().get());
    page.palette->setFillRule(QsdWindingRule);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::drawing(text), "0 sg\nn 30 40 1 2 rect G 1 sg\nfill g\n/P1 load 8 2 false ft\n");
    EXPECT_EQ(PrintPage::part(text, "QsdPrintDict begin\n/P1s", "/P1{"), "[\n2 rh\nf00f\n]def\n");
}

TEST(PrintPatterns, OnesOfAWindowLieFromTheOrigin)
{
    PrintPage page;
    page.device.setScreenPatterns(true);
    page.palette->setPattern(stripes().get());
    page.palette->setFillStyle(QsdFillMaskPattern);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::drawing(text), "0 sg\nn 30 40 1 2 rect /P1 load 8 2 true fo\n");
    EXPECT_NE(text.find("/P1{/pi 0 def 8 2 true[1 0 0 -1 0 0]{P1s pn}imagemask}bd\n"), std::string::npos);
}

TEST(PrintPatterns, OnesOfAWindowAreOthersThanThoseOfThePage)
{
    PrintPage page;
    page.palette->setPattern(stripes().get());
    page.palette->setFillStyle(QsdFillMaskPattern);
    std::string expected = "0 sg\n";
    for (const bool onScreen : {false, true, true, false}) {
        page.device.setScreenPatterns(onScreen);
        page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
        expected += std::string("n 30 40 1 2 rect ") + (onScreen ? "/P2 load 8 2 true fo\n" : "/P1 load 8 2 true ft\n");
    }
    EXPECT_EQ(PrintPage::drawing(page.whole()), expected);
}

TEST(PrintPatterns, ColouredOnesAreOfTheModel)
{
    for (const auto model : {QsdPSRGB, QsdPSGrey}) {
        PrintPage page(2, model);
        QsdRGBBitmapData data(2, 1);
        data.setPixel(0, 0, {255, 0, 0});
        page.palette->setColorPattern(QsdHandle<QsdColorPattern>::Adopt(page.display.createColorPattern(data)).get());
        page.palette->setFillStyle(QsdFillColorPattern);
        page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
        const std::string text = page.whole();
        EXPECT_EQ(PrintPage::part(text, "/P1{", "}bd"), model == QsdPSRGB
                                                            ? "/pi 0 def 2 1 8[1 0 0 -1 0 0]{P1s pn}false 3 colorimage"
                                                            : "/pi 0 def 2 1 8[-1 0 0 -1 0 1]{P1s pn}image");
        EXPECT_NE(text.find(model == QsdPSRGB ? "6 string" : "2 string"), std::string::npos);
    }
}

TEST(PrintPatterns, OnesTakenAsColourAndAsGreyAreTwo)
{
    PrintPage page;
    QsdRGBBitmapData data(2, 1);
    page.palette->setColorPattern(QsdHandle<QsdColorPattern>::Adopt(page.display.createColorPattern(data)).get());
    page.palette->setFillStyle(QsdFillColorPattern);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    page.device.setColorModel(QsdPSGrey);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\nn 30 40 1 2 rect /P1 load 2 1 true ft\n"
                                                "n 30 40 1 2 rect /P2 load 2 1 true ft\n");
}

TEST(PrintPatterns, LargeOnesAreSeveralStrings)
{
    PrintPage page;
    QsdRGBBitmapData data(200, 150);
    page.palette->setColorPattern(QsdHandle<QsdColorPattern>::Adopt(page.display.createColorPattern(data)).get());
    page.palette->setFillStyle(QsdFillColorPattern);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    const std::string text = page.whole();
    EXPECT_NE(text.find("/P1s[\n60000 string currentfile /ASCII85Decode filter rs\n"), std::string::npos);
    EXPECT_NE(text.find("~>\n30000 string currentfile /ASCII85Decode filter rs\n"), std::string::npos);
}

TEST(PrintPatterns, OneThatCannotBeWrittenIsDefinedNextTime)
{
    class Once : public QsdASCII85Encoder {
    public:
        Once() : QsdASCII85Encoder(nullptr) {}
        void endData() override
        {
            if (!std::exchange(_thrown, true)) {
                throw std::runtime_error("encoder");
            }
            QsdASCII85Encoder::endData();
        }

    private:
        bool _thrown = false;
    };
    PrintPage page;
    page.device.setEncoder(new Once);
    page.palette->setPattern(stripes().get());
    page.palette->setFillStyle(QsdFillMaskPattern);
    EXPECT_THROW(page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40}), std::runtime_error);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::part(text, "%%EndFeature\nQsdPrintDict begin\n", "P2{"),
              "/P2s[\n"
              "2 string currentfile /ASCII85Decode filter rs\n"
              "n.,~>\n"
              "]def\n/");
}

TEST(PrintPatterns, AMissingOnePaintsNothing)
{
    PrintPage page;
    page.palette->setFillStyle(QsdFillColorPattern);
    page.device.fillRectangle(page.palette.get(), {1, 2, 30, 40});
    EXPECT_EQ(PrintPage::drawing(page.whole()), "0 sg\nn 30 40 1 2 rect n\n");
}

} // namespace
