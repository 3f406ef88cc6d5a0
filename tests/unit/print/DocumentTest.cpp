#include "tests/unit/print/PrintDevice.h"

#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"

#include <fstream>

namespace {

TEST(PrintDocument, HeaderTellsAll)
{
    PrintPage page;
    page.device.drawLine(page.palette.get(), {10, 20}, {110, 20});
    page.device.newPage();
    page.device.fillRectangle(page.palette.get(), {200, 300, 50, 40});
    EXPECT_EQ(PrintPage::part(page.whole(), "", "%%BeginProlog"),
              "%!PS-Adobe-3.0\n"
              "%%BoundingBox: 9 502 250 823\n"
              "%%HiResBoundingBox: 9.5 502 250 822.5\n"
              "%%Title: page.ps\n"
              "%%Creator: Dravonset\n"
              "%%CreationDate: 2023-11-14T22:13:20Z\n"
              "%%DocumentData: Clean7Bit\n"
              "%%LanguageLevel: 2\n"
              "%%Pages: 2\n"
              "%%PageOrder: Ascend\n"
              "%%DocumentMedia: A4 595 842 0 () ()\n"
              "%%Orientation: Portrait\n"
              "%%DocumentSuppliedResources: procset QsdPrint 1.0 0\n"
              "%%EndComments\n");
}

TEST(PrintDocument, EachPageIsASaveLevelWithItsOwnMatrix)
{
    PrintPage page;
    page.device.fillRectangle(page.palette.get(), {1, 2, 3, 4});
    page.device.newPage();
    page.device.drawString(page.palette.get(), {10, 20}, "x", 1, QsdPositionNone);
    EXPECT_EQ(PrintPage::part(page.whole(), "%%EndSetup\n", "%%EOF"), "%%Page: 1 1\n"
                                                                      "%%PageBoundingBox: 1 836 4 840\n"
                                                                      "%%PageHiResBoundingBox: 1 836 4 840\n"
                                                                      "%%BeginPageSetup\n"
                                                                      "QsdPrintDict begin 1 836 4 840 bp\n"
                                                                      "gsave\n"
                                                                      "gsave\n"
                                                                      "%%EndPageSetup\n"
                                                                      "0 sg\n"
                                                                      "n 3 4 1 2 rect eofill\n"
                                                                      "%%PageTrailer\n"
                                                                      "ep showpage\n"
                                                                      "%%Page: 2 2\n"
                                                                      "%%PageBoundingBox: 7 816 19 836\n"
                                                                      "%%PageHiResBoundingBox: 7.9 816.9 18.6 835.1\n"
                                                                      "%%PageResources: font Helvetica\n"
                                                                      "%%BeginPageSetup\n"
                                                                      "QsdPrintDict begin 7 816 19 836 bp\n"
                                                                      "gsave\n"
                                                                      "gsave\n"
                                                                      "%%EndPageSetup\n"
                                                                      "F1 12 sf\n"
                                                                      "0 sg\n"
                                                                      "[] 0 setdash\n"
                                                                      "G 10 20 M 1 -1 scale(x)qsdshow g\n"
                                                                      "%%PageTrailer\n"
                                                                      "ep showpage\n"
                                                                      "%%Trailer\n");
}

TEST(PrintDocument, EncapsulatedOneHasItsBoxAndNoPageDevice)
{
    QsdRect box{10, 20, 300, 400};
    PrintPage page(2, QsdPSRGB, 24, &box);
    page.device.fillRectangle(page.palette.get(), {0, 0, 1000, 1000});
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::part(text, "", "%%Title"), "%!PS-Adobe-3.0 EPSF-3.0\n"
                                                    "%%BoundingBox: 10 422 310 822\n"
                                                    "%%HiResBoundingBox: 10 422 310 822\n");
    EXPECT_EQ(text.find("setpagedevice"), std::string::npos);
    EXPECT_NE(text.find("%%PageBoundingBox: 10 422 310 822\n"), std::string::npos);
    EXPECT_EQ(PrintPage::part(text, "QsdPrintDict begin bp\n", "%%EndPageSetup"), "gsave\n"
                                                                                  "n 300 400 10 20 rect clip n\n"
                                                                                  "gsave\n");
}

TEST(PrintDocument, WithASecondPageIsNotEncapsulated)
{
    QsdRect box{10, 20, 300, 400};
    PrintPage page(2, QsdPSRGB, 24, &box);
    EXPECT_TRUE(page.device.newPage());
    const std::string text = page.whole();
    EXPECT_EQ(text.substr(0, 15), "%!PS-Adobe-3.0\n");
    EXPECT_NE(text.find("%%Pages: 2\n"), std::string::npos);
}

TEST(PrintDocument, EmptyOneHasAnEmptyBox)
{
    PrintPage page;
    EXPECT_NE(page.whole().find("%%BoundingBox: 0 0 0 0\n"), std::string::npos);
}

TEST(PrintDocument, TitleCannotLeaveItsComment)
{
    PrintPage page;
    page.device.setTitle("a) b\n%%EOF\nshowpage \\ \xFC");
    EXPECT_EQ(page.between("%%Title: ", "\n%%Creator"), "a) b %%EOF showpage \\ \\374");
}

TEST(PrintDocument, NullTitleMeansTheFile)
{
    PrintPage page;
    page.device.setTitle("other");
    page.device.setTitle(nullptr);
    EXPECT_EQ(page.between("%%Title: ", "\n%%Creator"), "page.ps");
}

TEST(PrintDocument, EmptyTitleMeansNone)
{
    PrintPage page;
    page.device.setTitle("");
    EXPECT_EQ(page.whole().find("%%Title"), std::string::npos);
}

TEST(PrintDocument, LevelsBeyondTheKnownAreTheThird)
{
    for (const unsigned long level : {3UL, 4UL, 0UL, 99UL}) {
        PrintPage page(level);
        EXPECT_NE(page.whole().find("%%LanguageLevel: 3\n"), std::string::npos) << level;
    }
    PrintPage first(1);
    const std::string text = first.whole();
    EXPECT_NE(text.find("%%LanguageLevel: 1\n%%Extensions: CMYK\n"), std::string::npos);
    // Dictionaries in angle brackets are of later levels.
    EXPECT_EQ(text.find("<<"), std::string::npos);
}

TEST(PrintDocument, ClipGoesOnOnTheNextPage)
{
    PrintPage page;
    QsdTransformer t;
    t.translate(5, 6);
    page.device.setTransformer(t);
    const QsdRect rect{1, 2, 30, 40};
    page.device.clip(&rect);
    page.device.newPage();
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::part(text.substr(text.find("%%Page: 2 2")), "bp\n", "%%EndPageSetup"),
              "gsave\n"
              "gsave\n"
              "realmatrix setmatrix \n"
              "[1 0 0 1 5 6] concat\n"
              "n 30 40 1 2 rect clip n\n"
              "realmatrix setmatrix\n");
}

TEST(PrintDocument, InitialClipTakesTheOuterSaveLevel)
{
    PrintPage page;
    page.device.initClip({1, 2, 30, 40});
    page.device.newPage();
    const std::string text = page.whole();
    EXPECT_EQ(PrintPage::drawing(text), "rc rc gsave\nn 30 40 1 2 rect clip n\ngsave\n");
    EXPECT_EQ(PrintPage::part(text.substr(text.find("%%Page: 2 2")), "bp\n", "%%EndPageSetup"),
              "gsave\nn 30 40 1 2 rect clip n\ngsave\n");
}

TEST(PrintDocument, LineWidthModeGoesOnOnTheNextPage)
{
    PrintPage page;
    page.device.setZoomableLineWidths(false);
    page.device.newPage();
    page.device.setZoomableLineWidths(true);
    page.device.newPage();
    const std::string text = page.whole();
    EXPECT_NE(text.find("%%Page: 2 2\n%%PageBoundingBox: 0 0 0 0\n%%PageHiResBoundingBox: 0 0 0 0\n"
                        "%%BeginPageSetup\nQsdPrintDict begin 0 0 0 0 bp\n/qsdlw false def\ngsave\n"),
              std::string::npos);
    EXPECT_NE(text.find("%%Page: 3 3\n%%PageBoundingBox: 0 0 0 0\n%%PageHiResBoundingBox: 0 0 0 0\n"
                        "%%BeginPageSetup\nQsdPrintDict begin 0 0 0 0 bp\ngsave\n"),
              std::string::npos);
}

TEST(PrintDocument, NextDocumentStartsAnew)
{
    PrintPage page;
    page.device.setZoomableLineWidths(false);
    const QsdRect rect{1, 2, 30, 40};
    page.device.clip(&rect);
    page.device.drawString(page.palette.get(), {10, 20}, "x", 1, QsdPositionNone);
    page.whole();
    page.device.initDevice("second", nullptr);
    const std::string text = page.whole();
    EXPECT_NE(text.find("%%Title: second\n"), std::string::npos);
    EXPECT_EQ(text.find("Helvetica"), std::string::npos);
    EXPECT_EQ(PrintPage::part(text, " bp\n", "%%EndPageSetup"), "gsave\ngsave\n");
}

TEST(PrintDocument, NothingIsWrittenBeforeTheEnd)
{
    PrintPage page;
    page.device.drawLine(page.palette.get(), {0, 0}, {10, 10});
    EXPECT_EQ(page.device.document(), "");
    EXPECT_NE(page.whole(), "");
}

TEST(PrintDocument, DrawingWithoutADocumentIsHarmless)
{
    QsdMemoryDisplay display;
    PrintDevice device(&display);
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    int reports = 0;
    QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &reports);
    device.drawLine(palette.get(), {0, 0}, {10, 10});
    device.drawPoint(palette.get(), {0, 0});
    device.drawRectangle(palette.get(), {0, 0, 5, 5});
    device.fillRectangle(palette.get(), {0, 0, 5, 5});
    device.drawString(palette.get(), {0, 0}, "x", 1, QsdPositionNone);
    device.setTransformer(QsdTransformer());
    device.newPage();
    device.initClip({0, 0, 1, 1});
    device.end();
    QsdSetFatalErrorHandler(nullptr, nullptr);
    EXPECT_EQ(reports, 5);
    EXPECT_EQ(device.document(), "");
}

TEST(PrintDocument, FailedOutputIsReported)
{
    class Full : public PrintDevice {
    public:
        using PrintDevice::PrintDevice;
        std::ostream* openStream(const char*) override
        {
            _file.open("/dev/full");
            return &_file;
        }

    private:
        std::ofstream _file;
    };
    QsdMemoryDisplay display;
    Full device(&display);
    ASSERT_TRUE(device.initDevice("unused", nullptr));
    int reports = 0;
    QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &reports);
    device.end();
    QsdSetFatalErrorHandler(nullptr, nullptr);
    EXPECT_EQ(reports, 1);
    EXPECT_TRUE(device.writeFailed());
}

TEST(PrintDocument, ManyPagesAndMuchTextComeInOrder)
{
    constexpr int Pages = 200;
    const auto mark = [](int number) { return std::string("% ").append(std::to_string(number)); };
    const std::string filler = "%" + std::string(200, 'x');
    PrintPage page;
    for (int i = 1; i <= Pages; ++i) {
        page.device.send(mark(i).c_str());
        for (int n = 0; n < 20; ++n) {
            page.device.send(filler.c_str());
        }
        if (i != Pages) {
            page.device.newPage();
        }
    }
    const std::string text = page.whole();
    for (int i = 1; i <= Pages; ++i) {
        const std::string drawing = PrintPage::drawing(text, i);
        EXPECT_EQ(drawing.substr(0, drawing.find('\n')), mark(i));
    }
}

TEST(PrintDocument, OwnCompositeFontsNeedTheirParts)
{
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP.eucJP"));
    PrintPage page;
    const auto font = QsdHandle<QsdFont>::Adopt(page.display.createFont("fixed", QsdFontPlain, 12));
    page.palette->setFont(font.get());
    page.device.drawString(page.palette.get(), {1, 2}, "x", -1, QsdPositionNone);
    EXPECT_NE(page.whole().find("%%DocumentNeededResources: font Helvetica\n"
                                "%%+ font Ryumin-Light-H\n%%+ font Ryumin-Light.Hankaku\n"),
              std::string::npos);
}

} // namespace
