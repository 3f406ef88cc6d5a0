// The check itself: a document that is right has no fault, and each kind of damage is found.
#include "tests/unit/print/PrintDevice.h"

namespace {

std::string rightDocument(QsdRect* bbox = nullptr)
{
    PrintPage page(2, QsdPSRGB, 24, bbox);
    page.device.drawString(page.palette.get(), {50, 50}, "x", 1, QsdPositionNone);
    return page.whole();
}

std::string replaced(std::string text, const std::string& what, const std::string& with)
{
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
}

TEST(StructureCheck, FindsEachKindOfDamage)
{
    const std::string right = rightDocument();
    EXPECT_TRUE(structureFaults(right).empty());
    const std::pair<const char*, const char*> damages[] = {
        {"%!PS-Adobe-3.0", "%!PS-Adobe-2.0"},
        {"%%Creator: Dravonset\n", ""},
        {"%%Pages: 1\n", "%%Pages: 2\n"},
        {"%%Pages: 1\n", "%%Pages: (atend)\n"},
        {"%%BoundingBox: ", "%%BoundingBox: (atend)"},
        {"%%LanguageLevel: 2\n", "%%LanguageLevel: 2\n%%LanguageLevel: 2\n"},
        {"%%EndProlog\n", ""},
        {"%%EndResource\n", ""},
        {"%%EndSetup\n", "%%EndSetup\n%%EndSetup\n"},
        {"%%Page: 1 1\n", "%%Page: 2 2\n"},
        {"%%PageTrailer\n", ""},
        {"%%PageBoundingBox: ", "%%PageBoundingBox: -"},
        {"%%HiResBoundingBox: ", "%%LowResBoundingBox: "},
        {"%%HiResBoundingBox: ", "%%HiResBoundingBox: 1"},
        {"%%PageHiResBoundingBox: ", "%%PageLowResBoundingBox: "},
        {"%%PageHiResBoundingBox: ", "%%PageHiResBoundingBox: 1"},
        {"(x)", "(\x04)"},
        {"%%IncludeResource: font Helvetica\n", ""},
        {"%%PageResources: font Helvetica\n", "%%PageResources: font Other\n"},
        {"%%BeginResource: procset QsdPrint 1.0 0\n", "%%BeginResource: procset Other 1.0 0\n"},
        {"%%EOF\n", ""},
        {"%%EOF\n", "%%EOF"},
        {"qsdshow g\n", "qsdshow g\r\n"},
        {"(x)", "(\xFC)"},
    };
    for (const auto& [what, with] : damages) {
        EXPECT_FALSE(structureFaults(replaced(right, what, with)).empty()) << what << " -> " << with;
    }
    EXPECT_FALSE(structureFaults(replaced(right, "(x)", "(" + std::string(300, 'x') + ")")).empty());
    EXPECT_FALSE(structureFaults("").empty());
}

TEST(StructureCheck, FindsOperatorsThatSpoilThePageAround)
{
    QsdRect box{0, 0, 100, 100};
    const std::string right = rightDocument(&box);
    EXPECT_TRUE(structureFaults(right).empty());
    EXPECT_FALSE(structureFaults(replaced(right, "ep showpage", "initclip ep showpage")).empty());
    EXPECT_TRUE(structureFaults(replaced(right, "ep showpage", "initclipper ep showpage")).empty());
}

} // namespace
