#include "tests/unit/ps/TestDevice.h"

#include "ps/QsdPSMatrix.h"

#include <array>
#include <clocale>
#include <gtest/gtest.h>
#include <locale>

namespace {

std::array<double, 6> valuesOf(const QsdTransformer& t)
{
    std::array<double, 6> v{};
    t.getValues(v[0], v[1], v[2], v[3], v[4], v[5]);
    return v;
}

std::string sent(const QsdTransformer& t)
{
    std::ostringstream out;
    SendTransformer(out, t);
    return out.str();
}

/// Groups digits by threes and writes a decimal comma.
class CommaPunct : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Geometry, DefaultPageTransformerFlipsThePaper)
{
    QsdMemoryDisplay display;
    const TestDevice device(&display);
    EXPECT_EQ(valuesOf(device.getPageTransformer()), (std::array<double, 6>{1, 0, 0, -1, 0, 842}));
    EXPECT_EQ(device.width(), 595U);
    EXPECT_EQ(device.height(), 842U);
}

TEST(Geometry, HeightResetsThePageTransformerAndWidthDoesNot)
{
    QsdMemoryDisplay display;
    TestDevice device(&display);
    const QsdTransformer custom(2, 0, 0, -2, 5, 700);
    device.setPageTransformer(custom);
    device.setPaperWidth(612);
    EXPECT_EQ(valuesOf(device.getPageTransformer()), valuesOf(custom));
    EXPECT_EQ(device.width(), 612U);
    device.setPaperHeight(792);
    EXPECT_EQ(valuesOf(device.getPageTransformer()), (std::array<double, 6>{1, 0, 0, -1, 0, 792}));
    EXPECT_EQ(device.height(), 792U);
    device.setPageTransformer(custom);
    EXPECT_EQ(valuesOf(device.getPageTransformer()), valuesOf(custom));
}

TEST(Geometry, PageTransformerIsFrozenIntoTheProlog)
{
    QsdMemoryDisplay display;
    TestDevice device(&display);
    device.setPaperHeight(792);
    device.initDevice("unused", nullptr);
    EXPECT_NE(device.taken().find("\n/realmatrix { [1 0 0 -1 0 792] imtrx matrix concatmatrix } bind def\n"),
              std::string::npos);
    device.end();
    device.setPageTransformer(QsdTransformer(1, 2, 3, 4, 5, 6));
    device.taken();
    device.initDevice("unused", nullptr);
    EXPECT_NE(device.taken().find("\n/realmatrix { [1 3 2 4 5 6] imtrx matrix concatmatrix } bind def\n"),
              std::string::npos);
    device.end();
}

TEST(Geometry, TransformersAreWrittenRelativeToThePage)
{
    OpenDevice open;
    open.device.setTransformer(QsdTransformer());
    EXPECT_EQ(open.device.taken(), "realmatrix setmatrix \n[1 0 0 1 0 0] concat\n");
    open.device.setTransformer(QsdTransformer(1, 0, 0, 1, 10.5, 20));
    EXPECT_EQ(open.device.taken(), "realmatrix setmatrix \n[1 0 0 1 10.5 20] concat\n");
    open.device.setTransformer(QsdTransformer(1, 0, 0, 1, 10.5, 20));
    EXPECT_EQ(open.device.taken(), "realmatrix setmatrix \n[1 0 0 1 10.5 20] concat\n");
}

TEST(Geometry, ColumnsComeFirst)
{
    EXPECT_EQ(sent(QsdTransformer(1, 2, 3, 4, 5, 6)), "realmatrix setmatrix \n[1 3 2 4 5 6] concat\n");
}

TEST(Geometry, SixSignificantDigits)
{
    EXPECT_EQ(sent(QsdTransformer(0.1234567, 1e-7, 1234567, 100000, -0.5, 1e20)),
              "realmatrix setmatrix \n[0.123457 1.23457e+06 1e-07 100000 -0.5 1e+20] concat\n");
}

TEST(Geometry, NoLocaleChangesANumber)
{
    const std::string plain = sent(QsdTransformer(0.25, 1234567, 0, 1, 1.5, 0));
    const std::locale old = std::locale::global(std::locale(std::locale::classic(), new CommaPunct));
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    std::ostringstream out;
    out.imbue(std::locale());
    out << std::hex << std::showpos;
    out.width(20);
    SendTransformer(out, QsdTransformer(0.25, 1234567, 0, 1, 1.5, 0));
    EXPECT_EQ(out.str(), plain);
    std::setlocale(LC_ALL, "C");
    std::locale::global(old);
}

TEST(Geometry, ClosedDeviceKeepsTheTransformerAndWritesNothing)
{
    QsdMemoryDisplay display;
    TestDevice device(&display);
    device.setTransformer(QsdTransformer(2, 0, 0, 2, 0, 0));
    EXPECT_EQ(device.taken(), "");
}

} // namespace
