// Calls on a pixmap of an X server and on paper.
#include "paper.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXPixmap.h"
#include "verdict.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

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

    /// `matches` tells of each scene how far screen and paper may differ.
    void compare(const std::vector<Scene>& scenes, const Printing& printing, const std::vector<Match>& matches)
    {
        const Pages pages = onPaper(scenes, printing);
        if (!pages.messages.empty()) {
            FAIL() << pages.messages << "\n" << told(scenes[std::min(pages.pictures.size(), scenes.size() - 1)]);
        }
        for (std::size_t i = 0; i < scenes.size(); ++i) {
            EXPECT_EQ(mismatch(onScreen(*_pixmap, scenes[i]), pages.pictures[i], matches[i]), "") << told(scenes[i]);
        }
    }

private:
    std::unique_ptr<QsdXDisplay> _display = QsdXDisplay::Open();
    std::unique_ptr<QsdXPixmap> _pixmap;
};

TEST_F(PixmapTest, OperationsLookOnPaperAsOnTheServer)
{
    constexpr unsigned Rounds = 12;
    for (const bool lines : {true, false}) {
        std::vector<Scene> scenes;
        std::vector<Match> matches;
        for (const Operation& operation : operations()) {
            if ((operation.kind == Kind::Line) != lines) {
                continue;
            }
            for (unsigned seed = 0; seed < Rounds; ++seed) {
                scenes.push_back({Call(operation, seed)});
                matches.push_back(operation.print);
            }
        }
        compare(scenes, {"screen", 2, lines}, matches);
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
    compare(scenes, {"screen", 3}, std::vector<Match>(PageCount, OfManyCalls));
}

} // namespace
