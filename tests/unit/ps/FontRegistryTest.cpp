#include "ps/QsdPSFonts_.h"

#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace {

const std::string Mincho = "\x1B\x24\x42\x23\x4D\x23\x53\x4C\x40\x44\x2B\x1B\x28\x4A";
const std::string Gothic = "\x1B\x24\x42\x23\x4D\x23\x53\x25\x34\x25\x37\x25\x43\x25\x2F\x1B\x28\x4A";

QsdPSFontNames_* record(QsEncoding encoding, const char* family, const char* name = "Name")
{
    return new QsdPSFontNames_(encoding, family, name, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

struct Row {
    QsEncoding encoding;
    std::string family;
    const char* normal;
    const char* bold;
    const char* italic;
    const char* boldItalic;
    bool isDefault;
};

TEST(FontNames, CopiesEveryText)
{
    char text[] = "abc";
    QsdPSFontNames_ names(QsEncodingLatin1, text, text, text, text, text, text, text, text, text);
    text[0] = 'x';
    for (const char* const copy : {names.family(), names.normalName(), names.boldName(), names.italicName(),
                                   names.boldItalicName(), names.normalDownloadFileName(), names.boldDownloadFileName(),
                                   names.italicDownloadFileName(), names.boldItalicDownloadFileName()}) {
        EXPECT_STREQ(copy, "abc");
    }
    EXPECT_FALSE(names.isDefault());
}

TEST(FontNames, SettersReplaceAndTakeNull)
{
    QsdPSFontNames_ names(QsEncodingLatin1, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                          nullptr);
    using Setter = void (QsdPSFontNames_::*)(const char*);
    using Getter = const char* (QsdPSFontNames_::*)() const;
    const std::pair<Setter, Getter> fields[] = {
        {&QsdPSFontNames_::setFamily, &QsdPSFontNames_::family},
        {&QsdPSFontNames_::setNormalName, &QsdPSFontNames_::normalName},
        {&QsdPSFontNames_::setBoldName, &QsdPSFontNames_::boldName},
        {&QsdPSFontNames_::setItalicName, &QsdPSFontNames_::italicName},
        {&QsdPSFontNames_::setBoldItalicName, &QsdPSFontNames_::boldItalicName},
        {&QsdPSFontNames_::setNormalDownloadFileName, &QsdPSFontNames_::normalDownloadFileName},
        {&QsdPSFontNames_::setBoldDownloadFileName, &QsdPSFontNames_::boldDownloadFileName},
        {&QsdPSFontNames_::setItalicDownloadFileName, &QsdPSFontNames_::italicDownloadFileName},
        {&QsdPSFontNames_::setBoldItalicDownloadFileName, &QsdPSFontNames_::boldItalicDownloadFileName}};
    for (const auto& [set, get] : fields) {
        EXPECT_EQ((names.*get)(), nullptr);
        (names.*set)("one");
        (names.*set)("second");
        EXPECT_STREQ((names.*get)(), "second");
        (names.*set)(nullptr);
        EXPECT_EQ((names.*get)(), nullptr);
    }
}

TEST(FontNames, DownloadedMarksAreOneToAFace)
{
    QsdPSFontNames_ names(QsEncodingLatin1, "f", "n", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
    names.setDownloaded(QsdPSFace::Italic);
    EXPECT_FALSE(names.isDownloaded(QsdPSFace::Normal));
    EXPECT_FALSE(names.isDownloaded(QsdPSFace::Bold));
    EXPECT_TRUE(names.isDownloaded(QsdPSFace::Italic));
    EXPECT_FALSE(names.isDownloaded(QsdPSFace::BoldItalic));
    names.resetDownloaded();
    EXPECT_FALSE(names.isDownloaded(QsdPSFace::Italic));
}

// A build with the thread sanitizer tells of reading that writes.
TEST(FontRegistry, IsReadByThreadsAtOnce)
{
    constexpr int Threads = 4;
    std::vector<int> found(Threads);
    std::vector<std::thread> threads;
    for (int& count : found) {
        threads.emplace_back([&count] {
            for (int i = 0; i < 1000; ++i) {
                const QsdPSFonts_& registry = *QsdPSFonts_::GetInstance();
                const QsdPSFontNames_* const names = registry.getPSFontNames(QsEncodingCP1252, "TIMES");
                count += names != nullptr && registry.getPSFontNames(names) >= 0 &&
                                 registry.getDefaultFontNames(QsEncodingEUCJP) != nullptr
                             ? 1
                             : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(found, std::vector<int>(Threads, 1000));
}

TEST(FontRegistry, HoldsTheBuiltInTable)
{
    const char* const times[] = {"Times-Roman", "Times-Bold", "Times-Italic", "Times-BoldItalic"};
    const char* const ryumin = "Ryumin-Light-QSD-H";
    const char* const gothic = "GothicBBB-Medium-QSD-H";
    const char* const hei = "MHeiGB-Medium";
    const auto code = [](unsigned value) { return static_cast<QsEncoding>(value); };
    const Row rows[] = {
        {code(2), "helvetica", "Helvetica", nullptr, nullptr, nullptr, true},
        {code(23), "helvetica", "Helvetica", nullptr, nullptr, nullptr, true},
        {code(2), "courier", "Courier", nullptr, nullptr, nullptr, false},
        {code(23), "courier", "Courier", nullptr, nullptr, nullptr, false},
        {code(2), "times", times[0], times[1], times[2], times[3], false},
        {code(23), "times", times[0], times[1], times[2], times[3], false},
        {code(2), "symbol", "Symbol", "Symbol", "Symbol", "Symbol", false},
        {code(23), "symbol", "Symbol", "Symbol", "Symbol", "Symbol", false},
        {code(13), Mincho, "Ryumin-Light-RKSJ-H", nullptr, nullptr, nullptr, true},
        {code(13), Gothic, "GothicBBB-Medium-RKSJ-H", nullptr, nullptr, nullptr, false},
        {code(12), "fixed", ryumin, ryumin, ryumin, ryumin, true},
        {code(12), "gothic medium bbb", gothic, gothic, gothic, gothic, false},
        {code(15), "fixed", hei, hei, hei, hei, true},
        {code(37), "fixed", hei, hei, hei, hei, true},
    };
    const QsdPSFonts_ registry(20);
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_EQ(registry.capacity(), 20U);
    int index = 0;
    for (const Row& row : rows) {
        const QsdPSFontNames_* const names = registry.getPSFontNames(row.encoding, row.family.c_str());
        ASSERT_NE(names, nullptr) << index;
        EXPECT_EQ(registry.getPSFontNames(names), index++);
        EXPECT_STREQ(names->family(), row.family.c_str());
        EXPECT_STREQ(names->normalName(), row.normal);
        EXPECT_STREQ(names->boldName(), row.bold);
        EXPECT_STREQ(names->italicName(), row.italic);
        EXPECT_STREQ(names->boldItalicName(), row.boldItalic);
        EXPECT_EQ(names->normalDownloadFileName(), nullptr);
        EXPECT_EQ(registry.getDefaultFontNames(row.encoding) == names, row.isDefault);
    }
}

TEST(FontRegistry, LookupIgnoresCaseAndKeepsEncodingsApart)
{
    const QsdPSFonts_ registry(20);
    EXPECT_EQ(registry.getPSFontNames(registry.getPSFontNames(QsEncodingLatin1, "HELVETICA")), 0);
    EXPECT_EQ(registry.getPSFontNames(registry.getPSFontNames(QsEncodingCP1252, "Helvetica")), 1);
    EXPECT_EQ(registry.getPSFontNames(QsEncodingShiftJIS, "helvetica"), nullptr);
    EXPECT_EQ(registry.getPSFontNames(QsEncodingASCII, "helvetica"), nullptr);
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingASCII), nullptr);
}

TEST(FontRegistry, NullFamilyMeansTheFirst)
{
    const QsdPSFonts_ registry(20);
    const QsdPSFontNames_* const first = registry.getPSFontNames(QsEncodingEUCJP, nullptr);
    ASSERT_NE(first, nullptr);
    EXPECT_STREQ(first->family(), "fixed");
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingEUCJP), first);
}

TEST(FontRegistry, AddRegardsCase)
{
    QsdPSFonts_ registry(20);
    QsdPSFontNames_* const capital = record(QsEncodingLatin1, "Times");
    registry.add(capital, false);
    EXPECT_EQ(registry.count(), 15U);
    EXPECT_STREQ(registry.getPSFontNames(QsEncodingLatin1, "Times")->family(), "times");
    EXPECT_EQ(registry.getPSFontNames(capital), 14);
}

TEST(FontRegistry, AddLeavesDuplicatesToTheCaller)
{
    QsdPSFonts_ registry(20);
    QsdPSFontNames_* const duplicate = record(QsEncodingLatin1, "courier");
    registry.add(duplicate, false);
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_STREQ(registry.getPSFontNames(QsEncodingLatin1, "courier")->normalName(), "Courier");
    registry.add(duplicate, true);
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), duplicate);
    delete duplicate;
}

TEST(FontRegistry, AddOrReplaceKeepsThePosition)
{
    QsdPSFonts_ registry(20);
    QsdPSFontNames_* const courier = record(QsEncodingLatin1, "courier", "Mine");
    registry.addOrReplace(courier, true);
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_EQ(registry.getPSFontNames(courier), 2);
    EXPECT_EQ(registry.getPSFontNames(QsEncodingLatin1, "courier"), courier);
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), courier);
}

TEST(FontRegistry, ReplacingADefaultEndsIt)
{
    QsdPSFonts_ registry(20);
    registry.addOrReplace(record(QsEncodingLatin1, "helvetica", "Mine"), false);
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), nullptr);
    EXPECT_NE(registry.getDefaultFontNames(QsEncodingCP1252), nullptr);
    registry.addOrReplace(record(QsEncodingLatin1, "new", "New"), true);
    EXPECT_STREQ(registry.getDefaultFontNames(QsEncodingLatin1)->normalName(), "New");
    EXPECT_EQ(registry.count(), 15U);
}

TEST(FontRegistry, GrowsByDoubling)
{
    QsdPSFonts_ registry(20);
    for (int i = 15; i <= 41; ++i) {
        registry.add(record(QsEncodingLatin1, ("family" + std::to_string(i)).c_str()), false);
        EXPECT_EQ(registry.capacity(), i <= 20 ? 20U : i <= 40 ? 40U : 80U) << i;
    }
    for (int i = 15; i <= 41; ++i) {
        const std::string family = "family" + std::to_string(i);
        EXPECT_EQ(registry.getPSFontNames(registry.getPSFontNames(QsEncodingLatin1, family.c_str())), i - 1);
    }
}

TEST(FontRegistry, ResetClearsEveryMark)
{
    QsdPSFonts_ registry(20);
    QsdPSFontNames_* const names = registry.getPSFontNames(QsEncodingLatin1, "times");
    for (const QsdPSFace face : {QsdPSFace::Normal, QsdPSFace::Bold, QsdPSFace::Italic, QsdPSFace::BoldItalic}) {
        names->setDownloaded(face);
    }
    registry.resetDownloaded();
    for (const QsdPSFace face : {QsdPSFace::Normal, QsdPSFace::Bold, QsdPSFace::Italic, QsdPSFace::BoldItalic}) {
        EXPECT_FALSE(names->isDownloaded(face));
    }
}

TEST(FontRegistry, IsOneToAProcess)
{
    EXPECT_EQ(QsdPSFonts_::GetInstance(), QsdPSFonts_::GetInstance());
    EXPECT_EQ(QsdPSFonts_::GetInstance()->capacity(), 20U);
}

TEST(FontRegistry, RecordsWithoutAFamilyAreHarmless)
{
    QsdPSFonts_ registry(20);
    registry.add(record(QsEncodingLatin1, nullptr), false);
    EXPECT_NE(registry.getPSFontNames(QsEncodingLatin1, "times"), nullptr);
    EXPECT_EQ(registry.getPSFontNames(QsEncodingLatin1, "nobody"), nullptr);
}

TEST(FontNames, SettersTakeTheirOwnText)
{
    const char text[] = "a text long enough to be freed for good";
    QsdPSFontNames_ names(QsEncodingLatin1, text, text, text, text, text, text, text, text, text);
    names.setFamily(names.family());
    names.setNormalName(names.normalName());
    names.setBoldName(names.boldName());
    names.setItalicName(names.italicName());
    names.setBoldItalicName(names.boldItalicName());
    names.setNormalDownloadFileName(names.normalDownloadFileName());
    names.setBoldDownloadFileName(names.boldDownloadFileName());
    names.setItalicDownloadFileName(names.italicDownloadFileName());
    names.setBoldItalicDownloadFileName(names.boldItalicDownloadFileName());
    for (const char* const copy : {names.family(), names.normalName(), names.boldName(), names.italicName(),
                                   names.boldItalicName(), names.normalDownloadFileName(), names.boldDownloadFileName(),
                                   names.italicDownloadFileName(), names.boldItalicDownloadFileName()}) {
        EXPECT_STREQ(copy, text);
    }
    names.setFamily(names.family() + 2);
    EXPECT_STREQ(names.family(), text + 2);
}

TEST(FontRegistry, ARecordMayBeEnteredAgain)
{
    QsdPSFonts_ registry(20);
    QsdPSFontNames_* const courier = registry.getPSFontNames(QsEncodingLatin1, "courier");
    registry.addOrReplace(courier, true);
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_EQ(registry.getPSFontNames(courier), 2);
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), courier);
    registry.addOrReplace(courier, false);
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), nullptr);
    EXPECT_STREQ(registry.getPSFontNames(QsEncodingLatin1, "courier")->normalName(), "Courier");
}

TEST(FontRegistry, ValuesMayGoIntoAnEnteredRecord)
{
    QsdPSFonts_ registry(20);
    QsdPSFontNames_* const courier = registry.getPSFontNames(QsEncodingLatin1, "courier");
    char family[] = "Family";
    char name[] = "NormalName";
    char value[] = "Mine";
    EXPECT_TRUE(registry.loadValue(courier, family, value));
    EXPECT_TRUE(registry.loadValue(courier, name, value));
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_EQ(registry.getPSFontNames(QsEncodingLatin1, "mine"), courier);
    EXPECT_STREQ(courier->normalName(), "Mine");
    EXPECT_EQ(courier->boldName(), nullptr);
}

} // namespace
