#include "page/faces.h"

#include <gtest/gtest.h>

using namespace qsdps;

namespace {

Face faceOf(const std::vector<std::string>& families, bool bold = false)
{
    return faceFor(families, bold, [](const std::string& name) { return name == "Installed Mono"; });
}

} // namespace

TEST(Faces, PrintersHaveTheUsualOnes)
{
    EXPECT_STREQ(faceOf({"Arial"}).family, "helvetica");
    EXPECT_STREQ(faceOf({"Times New Roman"}).family, "times");
    EXPECT_STREQ(faceOf({"Courier New"}).family, "courier");
    EXPECT_EQ(faceOf({"ARIAL"}).likeness, Face::Likeness::Same);
    EXPECT_EQ(faceOf({"Arial"}).advances, nullptr);
}

TEST(Faces, TheFirstThatIsThereDecides)
{
    EXPECT_STREQ(faceOf({"Nowhere Sans", "Times"}).family, "times");
    EXPECT_EQ(faceOf({"Nowhere Sans", "Times"}).likeness, Face::Likeness::Same);
    EXPECT_STREQ(faceOf({"Installed Mono", "Times"}).family, "courier");
    EXPECT_EQ(faceOf({"Installed Mono", "Times"}).likeness, Face::Likeness::Another);
    EXPECT_STREQ(faceOf({"Times", "Installed Mono"}).family, "times");
}

TEST(Faces, MappedFamiliesComeBeforeAllElse)
{
    const FindMapped findMapped = [](const std::string& name) {
        return name == "Palatino" || name == "Installed Mono" || name == "serif" ? "mapped" : nullptr;
    };
    const auto mapped = [&](const std::vector<std::string>& families) {
        return faceFor(
            families, false, [](const std::string& name) { return name == "Installed Mono"; }, findMapped);
    };
    for (const char* const family : {"Palatino", "Installed Mono", "serif"}) {
        const Face face = mapped({"Nowhere", family});
        EXPECT_STREQ(face.family, "mapped") << family;
        EXPECT_EQ(face.likeness, Face::Likeness::Same) << family;
        EXPECT_EQ(face.advances, nullptr) << family;
    }
    EXPECT_STREQ(mapped({"Arial", "Palatino"}).family, "helvetica") << "the first that is there decides";
}

TEST(Faces, KindsAreMadeAsWideAsTheyUsuallyAre)
{
    const Face sans = faceOf({"sans-serif"});
    EXPECT_STREQ(sans.family, "helvetica");
    EXPECT_EQ(sans.likeness, Face::Likeness::Kind);
    ASSERT_NE(sans.advances, nullptr);
    EXPECT_EQ((*sans.advances)['A' - 32], 684);
    EXPECT_EQ((*faceOf({"sans-serif"}, true).advances)['A' - 32], 774);
    EXPECT_EQ((*faceOf({"serif"}).advances)['A' - 32], 722);
    EXPECT_EQ(faceOf({"monospace"}).advances, nullptr);
}

TEST(Faces, OthersAreToldBySound)
{
    EXPECT_STREQ(faceOf({"Nowhere Mono"}).family, "courier");
    EXPECT_STREQ(faceOf({"Garamond"}).family, "times");
    EXPECT_STREQ(faceOf({"Nowhere"}).family, "helvetica");
    EXPECT_EQ(faceOf({"Nowhere"}).likeness, Face::Likeness::Another);
    EXPECT_EQ(faceOf({}).likeness, Face::Likeness::Another);
    EXPECT_LT(faceOf({"Arial Narrow"}).narrowing, 1);
    EXPECT_EQ(faceOf({"Arial Narrow"}).likeness, Face::Likeness::Another);
}
