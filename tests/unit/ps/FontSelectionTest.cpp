#include "tests/unit/ps/TestDevice.h"

#include "ps/QsdPSFonts_.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"

#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

namespace {

/// A font known by the names of a window system.
class NamedFont : public QsdFont {
public:
    explicit NamedFont(std::vector<QsString> names)
        : QsdFont(nullptr, QsdFontByXName, 14, 10, 3), _names(std::move(names))
    {
    }
    std::vector<QsString> windowSystemNames() const override { return _names; }

private:
    std::vector<QsString> _names;
};

class BareFont : public QsdFont {
public:
    BareFont() : QsdFont("helvetica", QsdFontPlain, 0, 10, 3) {}
};

class FontSelection : public ::testing::Test {
protected:
    std::string selected(const QsdFont* font)
    {
        const auto held = QsdHandle<const QsdFont>::Adopt(font);
        open.palette->setFont(font);
        open.device.setFont(open.palette.get());
        return open.device.taken();
    }
    std::string selected(const char* family, std::uint16_t style = QsdFontPlain)
    {
        return selected(open.display.createFont(family, style, 12));
    }
    std::string named(std::vector<QsString> names) { return selected(new NamedFont(std::move(names))); }
    void use(QsEncoding encoding)
    {
        QsdGlobalContext::GetInstance().setLocale(QsLocale("test", encoding));
        open.device.end();
        open.device.initDevice("unused", nullptr);
        open.device.taken();
    }
    /// Enters a record into the registry of the process, for another of its family where there is one.
    static void enter(QsdPSFontNames_* names) { QsdPSFonts_::GetInstance()->addOrReplace(names, false); }
    static void add(const char* family, const char* file)
    {
        enter(new QsdPSFontNames_(QsEncodingLatin1, family, "Mine", nullptr, nullptr, nullptr, file, nullptr, nullptr,
                                  nullptr));
    }

    OpenDevice open;
};

TEST_F(FontSelection, NamesOfTheRecord)
{
    EXPECT_EQ(selected("times"), "12/Times-Roman qsdsf\n");
    EXPECT_EQ(selected("times", QsdFontBold), "12/Times-Bold qsdsf\n");
    EXPECT_EQ(selected("times", QsdFontItalic), "12/Times-Italic qsdsf\n");
    EXPECT_EQ(selected("times", QsdFontBold | QsdFontItalic), "12/Times-BoldItalic qsdsf\n");
    EXPECT_EQ(selected("TIMES", QsdFontUnderlined), "12/Times-Roman qsdsf\n");
    EXPECT_EQ(selected("symbol", QsdFontBold), "12/Symbol qsdsf\n");
}

TEST_F(FontSelection, NamesThatAreNoneAreMadeOfStrings)
{
    enter(new QsdPSFontNames_(QsEncodingLatin1, "mine", "A b)c/d", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                              nullptr));
    EXPECT_EQ(selected("mine", QsdFontBold), "12(A b\\)c/d-Bold)cvn qsdsf\n");
}

TEST_F(FontSelection, DerivedNames)
{
    EXPECT_EQ(selected("courier", QsdFontItalic), "12/Courier-Oblique qsdsf\n");
    EXPECT_EQ(selected("helvetica", QsdFontBold), "12/Helvetica-Bold qsdsf\n");
    EXPECT_EQ(selected("courier", QsdFontBold | QsdFontItalic), "12/Courier-BoldOblique qsdsf\n");
}

TEST_F(FontSelection, UnknownFamiliesGetTheDefault)
{
    EXPECT_EQ(selected("no such family", QsdFontBold), "12/Helvetica-Bold qsdsf\n");
    EXPECT_EQ(selected(nullptr, QsdFontPlain), "12/Helvetica qsdsf\n");
    EXPECT_EQ(selected(nullptr, QsdFontBold), "12/Helvetica-Bold qsdsf\n");
    EXPECT_EQ(selected(nullptr, QsdFontBold | QsdFontItalic), "12/Helvetica-BoldOblique qsdsf\n");
}

TEST_F(FontSelection, EncodingsWithoutRecordsFallBack)
{
    use(static_cast<QsEncoding>(99));
    EXPECT_EQ(selected("no such family", QsdFontBold), "12/Helvetica qsdsf\n");
    EXPECT_EQ(selected("times", QsdFontBold), "12/Times-Bold qsdsf\n");
    EXPECT_EQ(selected(nullptr, QsdFontPlain), "12/Helvetica qsdsf\n");
}

TEST_F(FontSelection, SizeZeroIsTakenFromTheMetrics)
{
    EXPECT_EQ(selected(new BareFont), "12/Helvetica qsdsf\n");
}

TEST_F(FontSelection, JapaneseFontsAreNotReencoded)
{
    use(QsEncodingEUCJP);
    EXPECT_EQ(selected("fixed"), "12/Ryumin-Light-QSD-H qsdjsf\n");
    EXPECT_EQ(selected("gothic medium bbb", QsdFontBold), "12/GothicBBB-Medium-QSD-H qsdjsf\n");
    EXPECT_EQ(selected("times"), "12/Ryumin-Light-QSD-H qsdjsf\n");
    use(QsEncodingShiftJIS);
    EXPECT_EQ(selected("anything", QsdFontBold), "12/Ryumin-Light-RKSJ-H-Bold qsdjsf\n");
}

TEST_F(FontSelection, WindowSystemNamesAreParsed)
{
    EXPECT_EQ(named({"-adobe-times-medium-r-normal--14-"}), "14/Times-Roman qsdsf\n");
    EXPECT_EQ(named({"-adobe-courier"}), "14/Courier qsdsf\n");
    EXPECT_EQ(named({"fixed", "-x-nothing-", "-adobe-courier-bold"}), "14/Courier qsdsf\n");
    EXPECT_EQ(named({"times"}), "14/Helvetica qsdsf\n");
    EXPECT_EQ(named({"-times"}), "14/Helvetica qsdsf\n");
    EXPECT_EQ(named({"", "-", "--", "--times"}), "14/Times-Roman qsdsf\n");
    EXPECT_EQ(named({}), "14/Helvetica qsdsf\n");
}

class FontFile : public FontSelection {
protected:
    /// Tests run side by side, each with a file of its own.
    FontFile()
        : path(::testing::TempDir() + "dravonset-font-file-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name())
    {
    }
    ~FontFile() override { std::remove(path.c_str()); }

    const std::string path;
};

TEST_F(FontFile, IsCopiedOncePerDocument)
{
    const std::string content("%!PS\n\0\r\xFF binary", 15);
    std::ofstream(path, std::ios::binary) << content;
    add("mine", path.c_str());
    const std::string copied = "\n%%BeginFont: Mine\n" + content + "\n%%EndFont\n12/Mine qsdsf\n";
    EXPECT_EQ(selected("mine"), copied);
    EXPECT_EQ(selected("mine"), "12/Mine qsdsf\n");
    EXPECT_EQ(selected("mine", QsdFontBold), "12/Mine-Bold qsdsf\n");
    open.device.end();
    open.device.initDevice("unused", nullptr);
    open.device.taken();
    EXPECT_EQ(selected("mine"), copied);
}

TEST_F(FontFile, MissingIsWarnedAboutOncePerDocument)
{
    std::vector<std::string> warnings;
    QsdSetWarningHandler(
        [](const char* message, void* data) { static_cast<std::vector<std::string>*>(data)->push_back(message); },
        &warnings);
    add("mine", path.c_str());
    add("other", "/");
    EXPECT_EQ(selected("mine"), "12/Mine qsdsf\n");
    EXPECT_EQ(selected("mine"), "12/Mine qsdsf\n");
    EXPECT_EQ(selected("other"), "12/Mine qsdsf\n");
    EXPECT_EQ(warnings, (std::vector<std::string>{"Couldn't open font file " + path, "Couldn't open font file /"}));
    QsdSetWarningHandler(nullptr, nullptr);
}

TEST_F(FontFile, EmptyIsCopiedEmpty)
{
    std::ofstream(path, std::ios::binary).flush();
    add("mine", path.c_str());
    EXPECT_EQ(selected("mine"), "\n%%BeginFont: Mine\n\n%%EndFont\n12/Mine qsdsf\n");
}

TEST_F(FontSelection, FacesWithANameOfTheirOwnNeedNoNormalOne)
{
    enter(new QsdPSFontNames_(QsEncodingLatin1, "mine", nullptr, "Heavy", nullptr, nullptr, nullptr, nullptr, nullptr,
                              nullptr));
    EXPECT_EQ(selected("mine", QsdFontBold), "12/Heavy qsdsf\n");
    EXPECT_EQ(selected("mine"), "12/Helvetica qsdsf\n");
    EXPECT_EQ(selected("mine", QsdFontBold | QsdFontItalic), "12/Helvetica qsdsf\n");
}

TEST_F(FontSelection, FontsOfAWindowSystemFallBackToTheirFamilyToo)
{
    use(static_cast<QsEncoding>(99));
    EXPECT_EQ(selected("times", QsdFontByXName), "12/Times-Roman qsdsf\n");
}

TEST_F(FontSelection, LatinRecordsStayLatinAmongSeveralByteCharacters)
{
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP.eucJP"));
    EXPECT_EQ(selected("times"), "12/Times-Roman qsdsf\n");
}

TEST_F(FontSelection, WithoutADefaultTheFirstRecordServes)
{
    const auto record = [](const char* name) {
        return new QsdPSFontNames_(QsEncodingGBK, "fixed", name, name, name, name, nullptr, nullptr, nullptr, nullptr);
    };
    QsdPSFonts_& registry = *QsdPSFonts_::GetInstance();
    registry.addOrReplace(record("Mine"), false);
    ASSERT_EQ(registry.getDefaultFontNames(QsEncodingGBK), nullptr);
    use(QsEncodingGBK);
    EXPECT_EQ(selected("no such family"), "12/Mine qsdjsf\n");
    registry.addOrReplace(record("MHeiGB-Medium"), true);
}

TEST_F(FontFile, ThatNeverEndsIsNotCopied)
{
    std::vector<std::string> warnings;
    QsdSetWarningHandler(
        [](const char* message, void* data) { static_cast<std::vector<std::string>*>(data)->push_back(message); },
        &warnings);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    add("mine", path.c_str());
    add("other", "/dev/zero");
    EXPECT_EQ(selected("mine"), "12/Mine qsdsf\n");
    EXPECT_EQ(selected("other"), "12/Mine qsdsf\n");
    EXPECT_EQ(warnings,
              (std::vector<std::string>{"Couldn't open font file " + path, "Couldn't open font file /dev/zero"}));
    QsdSetWarningHandler(nullptr, nullptr);
}

TEST_F(FontSelection, OnlyAStyleThatIsTheXNameAloneMeansOne)
{
    EXPECT_EQ(selected("times", QsdFontByXName | QsdFontBold), "12/Times-Bold qsdsf\n");
    EXPECT_EQ(selected("times", QsdFontByXName | QsdFontItalic), "12/Times-Italic qsdsf\n");
    EXPECT_EQ(selected("times", QsdFontByXName), "12/Helvetica qsdsf\n");
}

/// A record with a name and a file of its own for each face, and the files.
class FaceFiles : public FontSelection {
protected:
    FaceFiles()
    {
        for (const std::string& file : files) {
            std::ofstream(file, std::ios::binary) << "%!" << file;
        }
    }
    ~FaceFiles() override
    {
        for (const std::string& file : files) {
            std::remove(file.c_str());
        }
    }
    static std::string fileOf(const char* face)
    {
        return ::testing::TempDir() + "dravonset-face-" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name() + face;
    }
    static std::string copied(const std::string& file, const std::string& name)
    {
        return "\n%%BeginFont: " + name + "\n%!" + file + "\n%%EndFont\n12/" + name + " qsdsf\n";
    }
    void enterFiles(const char* bold, const char* italic, const char* boldItalic)
    {
        enter(new QsdPSFontNames_(QsEncodingLatin1, "mine", "Mine", bold, italic, boldItalic, files[0].c_str(),
                                  files[1].c_str(), files[2].c_str(), files[3].c_str()));
    }

    const std::string files[4] = {fileOf("normal"), fileOf("bold"), fileOf("italic"), fileOf("bold-italic")};
    static constexpr std::uint16_t Styles[4] = {QsdFontPlain, QsdFontBold, QsdFontItalic, QsdFontBold | QsdFontItalic};
};

TEST_F(FaceFiles, AreCopiedOnceEachUnderTheirNames)
{
    enterFiles("Heavy", "Leaning", "HeavyLeaning");
    const std::string names[] = {"Mine", "Heavy", "Leaning", "HeavyLeaning"};
    for (const unsigned face : {3U, 1U, 0U, 2U}) {
        EXPECT_EQ(selected("mine", Styles[face]), copied(files[face], names[face]));
        EXPECT_EQ(selected("mine", Styles[face]), "12/" + names[face] + " qsdsf\n");
    }
}

TEST_F(FaceFiles, WithoutANameAreCopiedUnderTheDerivedOne)
{
    enterFiles(nullptr, nullptr, nullptr);
    const std::string names[] = {"Mine", "Mine-Bold", "Mine-Oblique", "Mine-BoldOblique"};
    for (const unsigned face : {1U, 2U, 3U, 0U}) {
        EXPECT_EQ(selected("mine", Styles[face]), copied(files[face], names[face]));
        EXPECT_EQ(selected("mine", Styles[face]), "12/" + names[face] + " qsdsf\n");
    }
}

} // namespace
