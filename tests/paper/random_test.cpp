// Pages of many calls, on a bitmap in memory and on paper. PAPER_SEED and PAPER_PAGES in the environment try others.
#include "minimise.h"
#include "paper.h"
#include "verdict.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

constexpr std::size_t CallsPerPage = 8;

unsigned setting(const char* name, unsigned fallback)
{
    const char* const text = std::getenv(name);
    return text == nullptr ? fallback : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

std::string verdictOn(const Scene& scene, const Printing& printing)
{
    const Pages pages = onPaper({scene}, printing);
    return pages.messages.empty() ? mismatch(onBitmap(scene), pages.pictures.front(), OfManyCalls) : pages.messages;
}

void compare(const Printing& printing)
{
    const bool onClassic = printing.device == "classic";
    const unsigned first = setting("PAPER_SEED", 1);
    const auto wanted = [onClassic](const Operation& operation) {
        return operation.mixes && operation.match(onClassic).look == Look::Pixels;
    };
    std::vector<Scene> scenes;
    for (unsigned i = 0; i < setting("PAPER_PAGES", 40); ++i) {
        scenes.push_back(randomScene(first + i, CallsPerPage, wanted));
    }
    const Pages pages = onPaper(scenes, printing);
    ASSERT_EQ(pages.messages, "") << "first seed " << first;
    for (std::size_t i = 0; i < scenes.size(); ++i) {
        const std::string verdict = mismatch(onBitmap(scenes[i]), pages.pictures[i], OfManyCalls);
        if (!verdict.empty()) {
            const Scene least = minimised(scenes[i], [&](const Scene& s) { return !verdictOn(s, printing).empty(); });
            ADD_FAILURE() << "seed " << first + i << ": " << verdict << "\n"
                          << told(scenes[i]) << "the same with fewer calls: " << verdictOn(least, printing) << "\n"
                          << told(least);
        }
    }
}

TEST(RandomPages, LookAlikeOnTheClassicDevice)
{
    compare({"classic", 2});
}

TEST(RandomPages, LookAlikeAtLevel1)
{
    compare({"screen", 1});
}

TEST(RandomPages, LookAlikeAtLevel2)
{
    compare({"screen", 2});
}

TEST(RandomPages, LookAlikeAtLevel3)
{
    compare({"screen", 3});
}

TEST(RandomPages, AreMinimisedToTheCallsThatFail)
{
    const auto any = [](const Operation&) { return true; };
    const Scene scene = randomScene(5, 13, any);
    const std::string one = scene[3].told();
    const std::string other = scene[11].told();
    const Scene least = minimised(scene, [&](const Scene& s) {
        const std::string text = told(s);
        return text.find(one) != std::string::npos && text.find(other) != std::string::npos;
    });
    EXPECT_EQ(told(least), one + "\n" + other + "\n");
}

} // namespace
