#include "images/exif.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace qsdps;
using namespace std::string_view_literals;

namespace {

int orientationOf(std::string_view segment)
{
    return exifOrientation(reinterpret_cast<const std::uint8_t*>(segment.data()), segment.size());
}

} // namespace

TEST(Exif, ReadsBothByteOrders)
{
    EXPECT_EQ(orientationOf("Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0"sv), 6);
    EXPECT_EQ(orientationOf("Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x08\0\0\0\0\0\0\0"sv), 8);
}

TEST(Exif, LooksBehindOtherTags)
{
    EXPECT_EQ(orientationOf("Exif\0\0MM\0*\0\0\0\x08\0\x02\x01\0\0\x03\0\0\0\x01\0\x05\0\0"
                            "\x01\x12\0\x03\0\0\0\x01\0\x03\0\0\0\0\0\0"sv),
              3);
}

TEST(Exif, AnythingElseIsUpright)
{
    EXPECT_EQ(orientationOf(""sv), 1);
    EXPECT_EQ(orientationOf("Exif"sv), 1);
    EXPECT_EQ(orientationOf("http://ns.example/"sv), 1);
    EXPECT_EQ(orientationOf("Exif\0\0MM\0*\xFF\xFF\xFF\xFF"sv), 1) << "a directory beyond the end";
    EXPECT_EQ(orientationOf("Exif\0\0MM\0*\0\0\0\x08\xFF\xFF\x01\x13"sv), 1) << "more tags than there are";
    EXPECT_EQ(orientationOf("Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x09\0\0"sv), 1) << "no such one";
}
