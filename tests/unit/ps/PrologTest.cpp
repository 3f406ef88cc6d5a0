#include "tests/unit/ps/GoldenFile.h"
#include "tests/unit/ps/TestDevice.h"

#include "tests/unit/ps/RecordingEncoder.h"
#include "toolkit/base/QsdGlobalContext.h"

#include <gtest/gtest.h>

namespace {

class Prolog : public ::testing::Test {
protected:
    std::string document(QsdRect* bbox = nullptr)
    {
        device.initDevice("unused", bbox);
        device.end();
        return device.taken();
    }
    void use(const char* locale) { QsdGlobalContext::GetInstance().setLocale(QsLocale(locale)); }

    QsdMemoryDisplay display;
    TestDevice device{&display};
};

TEST_F(Prolog, LevelTwo)
{
    EXPECT_EQ(document(), goldenFile("empty-level2.ps"));
}

TEST_F(Prolog, LevelOne)
{
    device.setPostScriptLevel(1);
    EXPECT_EQ(document(), goldenFile("empty-level1.ps"));
}

TEST_F(Prolog, Encapsulated)
{
    QsdRect bbox{10, 20, 100, 50};
    EXPECT_EQ(document(&bbox), goldenFile("empty-eps.ps"));
}

TEST_F(Prolog, JapaneseEUC)
{
    use("ja_JP.eucJP");
    EXPECT_EQ(document(), goldenFile("empty-euc.ps"));
}

TEST_F(Prolog, ShiftJIS)
{
    use("ja_JP.SJIS");
    EXPECT_EQ(document(), goldenFile("empty-sjis.ps"));
}

TEST_F(Prolog, EncodersTextIsInsertedTwice)
{
    std::string recorded;
    device.setEncoder(new RecordingEncoder(recorded));
    const std::string text = document();
    EXPECT_NE(text.find("\n mul string currentfile /Recorded filter exch readstring pop /p exch def } bind def\n"),
              std::string::npos);
    EXPECT_NE(text.find("\n        currentfile /Recorded filter        } bind def\n"), std::string::npos);
}

TEST_F(Prolog, FontScales)
{
    use("ja_JP.eucJP");
    display.setResource("PSFontScale", "150");
    display.setResource("PSEUCFontScale", "70");
    const TestDevice scaling(&display);
    const std::string text = document();
    EXPECT_NE(text.find("\n/qsdsf{Latin1Encoding qsdreencode exch 150 100 div mul scalefont setfont}bind def\n"),
              std::string::npos);
    EXPECT_NE(text.find("\n/qsdjsf {findfont exch 150 100 div mul scalefont setfont}bind def\n"), std::string::npos);
    EXPECT_NE(text.find("\n[/Helvetica findfont 70 100 div scalefont\n /Ryumin-Light-H findfont\n"), std::string::npos);
    EXPECT_NE(text.find("\n[/Helvetica findfont 70 100 div scalefont\n /GothicBBB-Medium-H findfont\n"),
              std::string::npos);
}

TEST_F(Prolog, LevelThreeIsThatOfLevelTwo)
{
    device.setPostScriptLevel(3);
    EXPECT_EQ(document(), goldenFile("empty-level2.ps"));
}

TEST_F(Prolog, MayBeWrittenByItself)
{
    device.initFile();
    EXPECT_EQ(device.taken(), "");
    device.initDevice("unused", nullptr);
    const std::string text = device.taken();
    device.initFile();
    const std::string again = device.taken();
    EXPECT_EQ(again.find("%%BeginProlog\n80 dict begin\n"), 0U);
    EXPECT_TRUE(again.ends_with("/Courier findfont setfont\n%%EndPageSetup\n"));
    EXPECT_TRUE(text.ends_with(again + " gsave\n"));
    device.end();
}

TEST_F(Prolog, MayBeReplaced)
{
    class Bare : public TestDevice {
    public:
        using TestDevice::TestDevice;
        void initFile() override { send("% no prolog"); }
    };
    Bare bare(&display);
    bare.initDevice("unused", nullptr);
    EXPECT_TRUE(bare.taken().ends_with("\n%%Pages: (atend)\n% no prolog\n gsave\n"));
    bare.end();
}

} // namespace
