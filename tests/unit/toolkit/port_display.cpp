// Settings, messages, files and shared palettes of a display.
#include "toolkit/base/QsMalloc.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// Two folders on the data path, gone with the test.
class DisplayFiles : public testing::Test {
protected:
    void SetUp() override
    {
        std::string name = (fs::temp_directory_path() / "displayXXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        _root = name;
        fs::create_directories(_root / "a" / "sub");
        fs::create_directories(_root / "b");
        std::string folders(":");
        folders.append(path("a")).append("::").append(path("b"));
        setenv("QSDPATH", folders.c_str(), 1);
    }
    void TearDown() override
    {
        unsetenv("QSDPATH");
        fs::remove_all(_root);
    }
    void write(const char* name, const std::string& text) const { std::ofstream(_root / name) << text; }
    [[nodiscard]] std::string path(const char* name) const { return (_root / name).string(); }

    fs::path _root;
};

TEST_F(DisplayFiles, ResourcesComeFromTheFile)
{
    write("a/qsdresources", "! a comment\n"
                            "plain: value with blanks \t\n"
                            "*starred:1\n"
                            "Name.Part :  x\\\n  y\\ny\\\\\\101\\t.\n"
                            "no colon\n"
                            "# another comment: 1\n"
                            "empty:\n"
                            ": nameless\n"
                            "last: 1\n"
                            "last: 2");
    const QsdMemoryDisplay display;
    EXPECT_STREQ(display.getResource("plain", nullptr), "value with blanks");
    EXPECT_STREQ(display.getResource("starred", nullptr), "1");
    EXPECT_STREQ(display.getResource("Name.Part", nullptr), "x  y\ny\\A\t.");
    EXPECT_STREQ(display.getResource("empty", "fallback"), "");
    EXPECT_STREQ(display.getResource("last", nullptr), "2");
    EXPECT_STREQ(display.getResource("no colon", "fallback"), "fallback");
    EXPECT_EQ(display.getResource("", nullptr), nullptr);
    EXPECT_EQ(display.getResource(nullptr, nullptr), nullptr);
}

TEST_F(DisplayFiles, TheProgramsResourcesComeFirst)
{
    write("b/qsdresources", "name: file\n");
    QsdMemoryDisplay display;
    display.setResource("name", "program");
    EXPECT_STREQ(display.getResource("name", nullptr), "program");
    display.setResource("name", nullptr);
    EXPECT_STREQ(display.getResource("name", nullptr), "file");
}

TEST_F(DisplayFiles, TheEnvironmentGoesBeforeResources)
{
    QsdMemoryDisplay display;
    display.setResource("name", "resource");
    EXPECT_STREQ(display.getEnvOrResource("QSD_NO_SUCH_VARIABLE", "name", "fallback"), "resource");
    EXPECT_STREQ(display.getEnvOrResource("QSD_NO_SUCH_VARIABLE", "other", "fallback"), "fallback");
    setenv("QSD_TEST_VARIABLE", "environment", 1);
    EXPECT_STREQ(display.getEnvOrResource("QSD_TEST_VARIABLE", "name", "fallback"), "environment");
    unsetenv("QSD_TEST_VARIABLE");
}

TEST_F(DisplayFiles, TheFirstFileOnThePathIsReadOnce)
{
    write("a/qsdresources", "name: a\n");
    write("b/qsdresources", "name: b\nother: b\n");
    const QsdMemoryDisplay display;
    EXPECT_STREQ(display.getResource("name", nullptr), "a");
    EXPECT_EQ(display.getResource("other", nullptr), nullptr);
    write("a/qsdresources", "name: changed\n");
    EXPECT_STREQ(display.getResource("name", nullptr), "a");
}

TEST_F(DisplayFiles, MessagesAreTranslatedWhenTheirArgumentsAgree)
{
    write("a/qsdmessages", "&QsdMsg015100: Kann die Datei %s nicht %% schreiben\n"
                           "&QsdMsg015101: %s %n\n"
                           "&unknown: text\n");
    const QsdMemoryDisplay display;
    EXPECT_STREQ(display.getMessage("&QsdMsg015100"), "Kann die Datei %s nicht %% schreiben");
    EXPECT_EQ(std::string(display.getMessage("&QsdMsg015101")).find('%'), std::string::npos);
    EXPECT_STREQ(display.getMessage("&unknown"), "&unknown");
}

TEST_F(DisplayFiles, MessagesAreBuiltIn)
{
    const QsdMemoryDisplay display;
    EXPECT_STREQ(display.getMessage("&QsdMsg015100"), "Cannot open the PostScript output file %s");
    EXPECT_STRNE(display.getMessage("&QsdMsg015101"), "&QsdMsg015101");
}

TEST_F(DisplayFiles, FilesAreFoundInOrder)
{
    write("a/first", "");
    write("b/first", "");
    write("b/second", "");
    write("a/sub/third", "");
    const QsdMemoryDisplay display;
    EXPECT_EQ(display.findInPath("first", false), QsString(path("a/first")));
    EXPECT_EQ(display.findInPath("second", false), QsString(path("b/second")));
    EXPECT_EQ(display.findInPath("sub/third", false), QsString(path("a/sub/third")));
    EXPECT_EQ(display.findInPath(path("b/second").c_str(), false), QsString(path("b/second")));
    EXPECT_TRUE(display.findInPath("sub", false).isEmpty());
    EXPECT_TRUE(display.findInPath("../b/second", false).isEmpty());
    EXPECT_TRUE(display.findInPath("", false).isEmpty());
    EXPECT_TRUE(display.findInPath(nullptr, false).isEmpty());
}

TEST_F(DisplayFiles, MissingFilesAreReportedOnRequest)
{
    std::vector<std::string> warnings;
    QsdSetWarningHandler(
        [](const char* message, void* data) { static_cast<std::vector<std::string>*>(data)->emplace_back(message); },
        &warnings);
    const QsdMemoryDisplay display;
    EXPECT_TRUE(display.findInPath("nowhere", false).isEmpty());
    EXPECT_TRUE(warnings.empty());
    EXPECT_TRUE(display.findInPath("nowhere", true).isEmpty());
    ASSERT_EQ(warnings.size(), 1U);
    EXPECT_NE(warnings.front().find("nowhere"), std::string::npos);
    QsdSetWarningHandler(nullptr, nullptr);
}

QsdHandle<QsdPalette> ofWidth(const QsdDisplay& display, unsigned short width)
{
    return QsdHandle<QsdPalette>::Adopt(
        display.getPalette(nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, width, 0, 0, 0, 65535, 0));
}

TEST(DisplayPalettes, AreShared)
{
    const QsdMemoryDisplay display;
    const auto first = ofWidth(display, 3);
    EXPECT_EQ(first->lineWidth(), 3);
    EXPECT_EQ(first->foreground(), display.black());
    EXPECT_EQ(ofWidth(display, 3).get(), first.get());
    EXPECT_NE(ofWidth(display, 4).get(), first.get());
    EXPECT_EQ(first->references(), 2U);
}

TEST(DisplayPalettes, AreForgottenOneByOne)
{
    const QsdMemoryDisplay display;
    const auto first = ofWidth(display, 0);
    for (unsigned short width = 1; width < 200; ++width) {
        EXPECT_EQ(ofWidth(display, width)->lineWidth(), width);
    }
    EXPECT_EQ(first->references(), 1U);
    EXPECT_EQ(ofWidth(display, 0)->lineWidth(), 0);
}

TEST(DisplayPalettes, ThatWereChangedAreNotHandedOutAgain)
{
    const QsdMemoryDisplay display;
    const auto changed = ofWidth(display, 3);
    changed->setClipRegion(QsdRegion());
    EXPECT_NE(ofWidth(display, 3).get(), changed.get());
}

std::vector<unsigned> patternOf(const QsdDisplay& display)
{
    QsdRGBBitmapData data(2, 1);
    data.setPixel(0, 0, {250, 250, 250});
    data.setPixel(1, 0, {1, 2, 3});
    const auto pattern = QsdHandle<QsdColorPattern>::Adopt(display.createColorPattern(data));
    EXPECT_EQ(pattern->width(), 2);
    EXPECT_EQ(pattern->height(), 1);
    EXPECT_EQ(pattern->depth(), display.screenDepth());
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> bytes(pattern->getBitmapData(size));
    return {bytes.get(), bytes.get() + size};
}

TEST(DisplayColorPattern, HasTheLayoutOfTheDisplay)
{
    EXPECT_EQ(patternOf(QsdMemoryDisplay(24)), (std::vector<unsigned>{0, 250, 250, 250, 0, 1, 2, 3}));
    EXPECT_EQ(patternOf(QsdMemoryDisplay(8)), (std::vector<unsigned>{255, 0}));
    EXPECT_EQ(patternOf(QsdMemoryDisplay(1))[0] & 0xC0U, 0x80U);
}

} // namespace
