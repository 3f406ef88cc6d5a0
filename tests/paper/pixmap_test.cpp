// Calls on a pixmap of an X server and on paper.
#include "paper.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXPixmap.h"
#include "verdict.h"

#include <gtest/gtest.h>

namespace {

/// A test on the server of the environment variable DISPLAY, whose pixels are of direct colour.
class PixmapTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_NE(_display, nullptr);
        ASSERT_GT(_display->screenDepth(), 16);
        _pixmap = std::make_unique<QsdXPixmap>(_display.get(), PageWidth, PageHeight, std::uint16_t{0});
        ASSERT_FALSE(_pixmap->isBad());
    }

    void compare(const std::vector<Scene>& scenes, const Printing& printing, const Match& match)
    {
        const Pages pages = onPaper(scenes, printing);
        ASSERT_EQ(pages.messages, "") << told(scenes.front());
        for (std::size_t i = 0; i < scenes.size(); ++i) {
            EXPECT_EQ(mismatch(onScreen(*_pixmap, scenes[i]), pages.pictures[i], match), "") << told(scenes[i]);
        }
    }

private:
    std::unique_ptr<QsdXDisplay> _display = QsdXDisplay::Open();
    std::unique_ptr<QsdXPixmap> _pixmap;
};

TEST_F(PixmapTest, OperationsLookOnPaperAsOnTheServer)
{
    constexpr unsigned Rounds = 12;
    for (const Operation& operation : operations()) {
        std::vector<Scene> scenes;
        for (unsigned seed = 0; seed < Rounds; ++seed) {
            scenes.push_back({Call(operation, seed)});
        }
        compare(scenes, {"screen", 2, operation.kind == Kind::Line}, operation.print);
    }
}

TEST_F(PixmapTest, RandomPagesLookOnPaperAsOnTheServer)
{
    constexpr unsigned PageCount = 40;
    constexpr std::size_t CallsPerPage = 8;
    std::vector<Scene> scenes;
    for (unsigned seed = 1; seed <= PageCount; ++seed) {
        scenes.push_back(randomScene(seed, CallsPerPage, [](const Operation& o) { return o.mixes; }));
    }
    compare(scenes, {"screen", 3}, OfManyCalls);
}

} // namespace
