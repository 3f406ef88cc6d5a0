// The viewer on a screen of 24 bits: what its window shows, and what keys and buttons do.
#include "tests/x11/viewer_session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t Red = 0xFF0000;
constexpr std::uint32_t White = 0xFFFFFF;
constexpr std::uint32_t Blue = 0x0000FF;
constexpr std::uint32_t DeskGrey = 0x808080;

std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

/// Works in a folder of its own with two drawings and a picture.
class ViewerTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_NE(mkdtemp(_folder), nullptr);
        fs::current_path(_folder);
        std::ofstream("left.svg") << "<svg xmlns='http://www.w3.org/2000/svg' width='200' height='120'>"
                                     "<rect width='100' height='120' fill='red'/></svg>";
        std::ofstream("right.svg") << "<svg xmlns='http://www.w3.org/2000/svg' width='200' height='120'>"
                                      "<rect x='100' width='100' height='120' fill='blue'/></svg>";
        std::ofstream picture("picture.ppm", std::ios::binary);
        picture << "P6\n200 120\n255\n";
        for (int y = 0; y < 120; ++y) {
            for (int x = 0; x < 200; ++x) {
                picture << static_cast<char>(x) << static_cast<char>(y) << static_cast<char>(x * y);
            }
        }
    }
    void TearDown() override
    {
        fs::current_path("/");
        fs::remove_all(_folder);
    }

    const std::string viewer = QSDVIEW;
    const std::string printer = QSDPS;

private:
    char _folder[32] = "/tmp/qsdview-test-XXXXXX";
};

TEST_F(ViewerTest, KeysTurnPages)
{
    ViewerSession session(viewer, {"left.svg", "right.svg", "picture.ppm"});
    ASSERT_TRUE(session.isShown()) << contentOf("messages");
    EXPECT_TRUE(session.waitForTitle("left.svg (1/3) 100%")) << session.title();
    EXPECT_TRUE(session.waitForColor(50, 60, Red));
    EXPECT_EQ(session.screenshot().at(150, 60), White);
    session.press("n");
    EXPECT_TRUE(session.waitForTitle("right.svg (2/3) 100%")) << session.title();
    EXPECT_TRUE(session.waitForColor(150, 60, Blue));
    EXPECT_EQ(session.screenshot().at(50, 60), White);
    session.press("space");
    EXPECT_TRUE(session.waitForTitle("picture.ppm (3/3) 100%")) << session.title();
    session.press("Next");
    session.press("Prior");
    EXPECT_TRUE(session.waitForTitle("right.svg (2/3) 100%")) << session.title();
    session.press("p");
    session.press("p");
    EXPECT_TRUE(session.waitForTitle("left.svg (1/3) 100%")) << session.title();
    session.press("End");
    EXPECT_TRUE(session.waitForTitle("picture.ppm (3/3) 100%")) << session.title();
    session.press("Home");
    EXPECT_TRUE(session.waitForColor(50, 60, Red));
    session.press("q");
    EXPECT_EQ(session.waitForEnd(), 0);
    EXPECT_EQ(contentOf("messages"), "");
}

TEST_F(ViewerTest, PicturesAreShownPixelByPixel)
{
    ViewerSession session(viewer, {"picture.ppm", "--geometry", "200x120"});
    ASSERT_TRUE(session.isShown());
    ASSERT_TRUE(session.waitForTitle("picture.ppm 100%"));
    EXPECT_TRUE(session.waitForColor(199, 119, 199U << 16 | 119U << 8 | (199U * 119U & 255)));
    const Screenshot shot = session.screenshot();
    unsigned wrong = 0;
    for (unsigned y = 0; y < 120; ++y) {
        for (unsigned x = 0; x < 200; ++x) {
            wrong += shot.at(static_cast<int>(x), static_cast<int>(y)) == (x << 16 | y << 8 | (x * y & 255)) ? 0 : 1;
        }
    }
    EXPECT_EQ(wrong, 0U);
}

TEST_F(ViewerTest, ZoomsAndScrolls)
{
    ViewerSession session(viewer, {"left.svg", "--geometry", "200x120+30+40"});
    ASSERT_TRUE(session.isShown());
    ASSERT_TRUE(session.waitForColor(99, 60, Red));
    EXPECT_EQ(session.screenshot().at(100, 60), White) << "as large as on the page";
    for (int i = 0; i < 4; ++i) {
        session.press("plus");
    }
    EXPECT_TRUE(session.waitForTitle("left.svg 244%")) << session.title();
    EXPECT_TRUE(session.waitForColor(99, 60, Red)) << "the middle stays";
    EXPECT_EQ(session.screenshot().at(101, 60), White);
    // A drag to the left brings what lies on the right.
    session.pressButton(1, 100, 60);
    session.movePointer(60, 60);
    EXPECT_TRUE(session.waitForColor(62, 60, White));
    EXPECT_EQ(session.screenshot().at(58, 60), Red);
    session.releaseButton(1, 60, 60);
    session.movePointer(160, 60);
    session.press("Left");
    EXPECT_TRUE(session.waitForColor(78, 60, Red)) << "a tenth of the window";
    EXPECT_EQ(session.screenshot().at(82, 60), White) << "no button, no drag";
    // The wheel, sideways.
    session.pressButton(4, 80, 60, WithShift);
    EXPECT_TRUE(session.waitForColor(126, 60, Red));
    EXPECT_EQ(session.screenshot().at(130, 60), White);
    // And around the pointer.
    session.pressButton(5, 128, 60, WithControl);
    EXPECT_TRUE(session.waitForTitle("left.svg 195%")) << session.title();
    EXPECT_TRUE(session.waitForColor(125, 60, Red));
    EXPECT_TRUE(session.waitForColor(131, 60, White));
    session.press("1");
    EXPECT_TRUE(session.waitForTitle("left.svg 100%")) << session.title();
    session.press("minus");
    EXPECT_TRUE(session.waitForTitle("left.svg 80%")) << session.title();
    EXPECT_TRUE(session.waitForColor(10, 60, DeskGrey)) << "beside the page";
    session.press("f");
    EXPECT_TRUE(session.waitForTitle("left.svg 100%")) << session.title();
    session.resize(400, 240);
    EXPECT_TRUE(session.waitForTitle("left.svg 200%")) << session.title();
    EXPECT_TRUE(session.waitForColor(198, 200, Red));
    EXPECT_EQ(session.screenshot().at(202, 200), White);
    session.askToClose();
    EXPECT_EQ(session.waitForEnd(), 0);
}

TEST_F(ViewerTest, PrintsWhatQsdpsPrints)
{
    // The name of a document of several files stands in it.
    fs::create_directory("expected");
    ASSERT_EQ(runProgram({printer, "left.svg", "picture.ppm", "-o", "expected/left.ps"}), 0);
    const std::string expected = contentOf("expected/left.ps");
    ViewerSession session(viewer, {"left.svg", "picture.ppm"});
    ASSERT_TRUE(session.isShown());
    session.press("P");
    EXPECT_TRUE(session.waitForTitle("left.svg (1/2) 100%, printed to left.ps")) << session.title();
    EXPECT_TRUE(contentOf("left.ps") == expected);
    session.press("n");
    EXPECT_TRUE(session.waitForTitle("picture.ppm (2/2) 100%")) << "the viewer goes on";
    session.press("q");
    EXPECT_EQ(session.waitForEnd(), 0);
    EXPECT_EQ(contentOf("messages"), "qsdview: printed to left.ps\n");
    fs::remove("left.ps");
    EXPECT_EQ(runProgram({"env", "-u", "DISPLAY", viewer, "left.svg", "picture.ppm", "--print-to", "left.ps"}), 0);
    EXPECT_TRUE(contentOf("left.ps") == expected);
    ASSERT_EQ(runProgram({printer, "left.svg", "-o", "expected.eps"}), 0);
    EXPECT_EQ(runProgram({viewer, "--print-to", "got.eps", "left.svg"}), 0);
    EXPECT_TRUE(contentOf("got.eps") == contentOf("expected.eps"));
    EXPECT_GT(contentOf("got.eps").size(), 1000U);
}

TEST_F(ViewerTest, DoesNotPrintOverWhatItShows)
{
    fs::rename("picture.ppm", "picture.ps");
    const std::string picture = contentOf("picture.ps");
    ViewerSession session(viewer, {"picture.ps"});
    ASSERT_TRUE(session.isShown());
    session.press("P");
    EXPECT_TRUE(session.waitForTitle("picture.ps 100%, not printed")) << session.title();
    EXPECT_EQ(contentOf("picture.ps"), picture);
    const std::string drawing = contentOf("left.svg");
    fs::create_hard_link("left.svg", "hard.ps");
    for (const char* output : {"left.svg", "./left.svg", "hard.ps", "other.svg"}) {
        EXPECT_NE(runProgram({viewer, "left.svg", "--print-to", output}), 0) << output;
        EXPECT_NE(contentOf("messages").find("not written"), std::string::npos) << contentOf("messages");
    }
    EXPECT_EQ(contentOf("left.svg"), drawing);
    EXPECT_FALSE(fs::exists("other.svg"));
}

TEST_F(ViewerTest, AsksBeforeItReplacesADocument)
{
    std::ofstream("left.ps") << "old";
    ViewerSession session(viewer, {"left.svg"});
    ASSERT_TRUE(session.isShown());
    const std::string question = "left.svg 100%, left.ps is there; P again replaces it";
    session.press("P");
    EXPECT_TRUE(session.waitForTitle(question)) << session.title();
    session.press("n");
    EXPECT_TRUE(session.waitForTitle("left.svg 100%")) << session.title();
    session.press("P");
    EXPECT_TRUE(session.waitForTitle(question)) << "another key is no answer: " << session.title();
    EXPECT_EQ(contentOf("left.ps"), "old");
    session.press("Shift_L");
    session.press("P");
    EXPECT_TRUE(session.waitForTitle("left.svg 100%, printed to left.ps")) << session.title();
    EXPECT_EQ(contentOf("left.ps").substr(0, 4), "%!PS");
    session.press("q");
    EXPECT_EQ(session.waitForEnd(), 0);
}

TEST_F(ViewerTest, TellsWhenThereIsNoRoomForTheDocument)
{
    std::ofstream("left.ps") << "old";
    const std::string run = "trap '' XFSZ; ulimit -f 100; exec \"$@\"";
    EXPECT_EQ(runProgram({"sh", "-c", run, "sh", viewer, "picture.ppm", "picture.ppm", "picture.ppm", "picture.ppm",
                          "--print-to", "left.ps"}),
              1);
    EXPECT_NE(contentOf("messages").find("left.ps: cannot be written"), std::string::npos) << contentOf("messages");
    EXPECT_EQ(contentOf("left.ps"), "old");
}

TEST_F(ViewerTest, KeepsMessagesOutOfTheDocument)
{
    std::ofstream("strange.svg") << "<svg width='9' height='9'><foreignObject width='9' height='9'/></svg>";
    ASSERT_EQ(runProgram({viewer, "strange.svg", "--print-to", "open.ps"}), 0);
    EXPECT_NE(contentOf("messages"), "");
    ASSERT_EQ(runProgram({"sh", "-c", "exec \"$@\" 2>&-", "sh", viewer, "strange.svg", "--print-to", "shut.ps"}), 0);
    EXPECT_EQ(contentOf("shut.ps"), contentOf("open.ps"));
}

TEST_F(ViewerTest, TellsWhatItCannotShow)
{
    EXPECT_EQ(runProgram({viewer}), 2);
    EXPECT_EQ(runProgram({viewer, "left.svg", "--geometry", "none"}), 2);
    EXPECT_EQ(runProgram({viewer, "missing.svg"}), 1);
    EXPECT_EQ(contentOf("messages"), "qsdview: missing.svg: No such file or directory\n");
    EXPECT_EQ(runProgram({viewer, "-"}), 1);
    EXPECT_EQ(contentOf("messages"), "qsdview: standard input: cannot be read again and again, as a window needs it\n");
    EXPECT_EQ(runProgram({viewer, "left.svg", "--display", ":32765"}), 1);
    EXPECT_NE(contentOf("messages").find("Cannot open the X display :32765"), std::string::npos);
    EXPECT_EQ(runProgram({viewer, "missing.svg", "left.svg", "--print-to", "some.ps"}), 1);
    EXPECT_TRUE(fs::exists("some.ps"));

    ViewerSession session(viewer, {"missing.svg", "picture.ppm", "left.svg"});
    ASSERT_TRUE(session.isShown());
    EXPECT_TRUE(session.waitForTitle("picture.ppm (1/2) 100%")) << session.title();
    fs::remove("picture.ppm");
    session.press("plus");
    EXPECT_TRUE(session.waitForTitle("picture.ppm (1/2) 125%, No such file or directory")) << session.title();
    session.press("n");
    EXPECT_TRUE(session.waitForTitle("left.svg (2/2) 125%")) << session.title();
    session.press("Escape");
    EXPECT_EQ(session.waitForEnd(), 1) << "a file is missing";
}

/// The window shows what an interpreter makes of the printed page, but for the letters and the edges.
TEST_F(ViewerTest, ShowsWhatIsPrinted)
{
    const std::string drawing = OVERVIEW;
    ASSERT_EQ(runProgram({viewer, drawing, "--print-to", "page.ps"}), 0);
    ASSERT_EQ(runProgram({"gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=ppmraw", "-r96", "-g640x440",
                          "-sOutputFile=page.ppm", "page.ps"}),
              0);
    const std::string page = contentOf("page.ppm");
    const std::size_t pixelBytes = std::size_t{3} * 640 * 440;
    ASSERT_GT(page.size(), pixelBytes);
    ViewerSession session(viewer, {drawing, "--geometry", "640x440"});
    ASSERT_TRUE(session.isShown());
    ASSERT_TRUE(session.waitForTitle("overview.svg 100%"));
    EXPECT_TRUE(session.waitForColor(545, 70, 0xF7C948));
    const Screenshot shot = session.screenshot();
    ASSERT_EQ(shot.pixels.size() * 3, pixelBytes);
    std::size_t different = 0;
    for (std::size_t i = 0; i < shot.pixels.size(); ++i) {
        const auto* const rgb =
            reinterpret_cast<const unsigned char*>(page.data()) + (page.size() - pixelBytes) + 3 * i;
        const std::uint32_t printed = std::uint32_t{rgb[0]} << 16 | std::uint32_t{rgb[1]} << 8 | rgb[2];
        different += shot.pixels[i] == printed ? 0 : 1;
    }
    EXPECT_LT(static_cast<double>(different) / static_cast<double>(shot.pixels.size()), 0.03);
}

} // namespace
