#include "command/command_line.h"

#include <gtest/gtest.h>

using namespace qsdps;

TEST(CommandLine, SlipsFindTheWordThatWasMeant)
{
    const std::vector<std::string> known = {"color", "compress", "title", "text", "fit", "format", "width", "a4"};
    const auto nearest = [&](const char* word) { return nearestTo(word, known); };
    EXPECT_EQ(nearest("colour"), "color");
    EXPECT_EQ(nearest("colro"), "color");
    EXPECT_EQ(nearest("compression"), "");
    EXPECT_EQ(nearest("compres"), "compress");
    EXPECT_EQ(nearest("comp"), "compress") << "a beginning";
    EXPECT_EQ(nearest("tilte"), "title");
    EXPECT_EQ(nearest("fti"), "fit");
    EXPECT_EQ(nearest("widht"), "width");
    EXPECT_EQ(nearest("nosuch"), "");
    EXPECT_EQ(nearest("x"), "");
    EXPECT_EQ(nearest(""), "");
}
