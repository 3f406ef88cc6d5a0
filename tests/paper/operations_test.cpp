// Each operation alone, on a bitmap in memory and on paper.
#include "paper.h"
#include "verdict.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

/// Pages of one operation: different calls.
constexpr unsigned Rounds = 24;

/// The number of an operation, and whether it is drawn on a QsdPSDevice.
class OperationTest : public testing::TestWithParam<std::tuple<std::size_t, bool>> {
protected:
    [[nodiscard]] static const Operation& operation() { return operations()[std::get<0>(GetParam())]; }
    [[nodiscard]] static bool onClassic() { return std::get<1>(GetParam()); }

    /// Each operation of the printing device has one of the levels, so that all are used.
    [[nodiscard]] static Printing printing()
    {
        const unsigned long level = onClassic() ? operation().classicLevel : std::get<0>(GetParam()) % 3 + 1;
        return {onClassic() ? "classic" : "screen", level, operation().kind == Kind::Line};
    }
};

TEST_P(OperationTest, LooksOnPaperAsOnTheScreen)
{
    std::vector<Scene> scenes;
    for (unsigned seed = 0; seed < Rounds; ++seed) {
        scenes.push_back({Call(operation(), seed)});
    }
    const Pages pages = onPaper(scenes, printing());
    ASSERT_EQ(pages.messages, "");
    const Match& match = operation().match(onClassic());
    unsigned beyondUsual = 0;
    for (unsigned i = 0; i < Rounds; ++i) {
        const Picture screen = onBitmap(scenes[i]);
        const std::string verdict = mismatch(screen, pages.pictures[i], match);
        EXPECT_EQ(verdict, "") << told(scenes[i]);
        beyondUsual += mismatch(screen, pages.pictures[i], Usual).empty() ? 0 : 1;
    }
    // A difference that is gone does not stay in the table.
    if (*match.reason != '\0') {
        EXPECT_NE(beyondUsual, 0U) << match.reason;
    }
}

std::string nameOf(const testing::TestParamInfo<OperationTest::ParamType>& parameter)
{
    std::string name = operations()[std::get<0>(parameter.param)].name;
    for (char& c : name) {
        c = c == ' ' ? '_' : c;
    }
    return name + (std::get<1>(parameter.param) ? "_classic" : "_print");
}

INSTANTIATE_TEST_SUITE_P(Paper, OperationTest,
                         testing::Combine(testing::Range(std::size_t{0}, operations().size()), testing::Bool()),
                         nameOf);

} // namespace
