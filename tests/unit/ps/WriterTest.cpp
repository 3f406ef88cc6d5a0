#include "ps/text/QsdPSComponent_p.h"
#include "ps/text/QsdPSWriter_p.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

std::string written(double value)
{
    std::ostringstream out;
    QsdPSWriter(&out) << value;
    return out.str();
}

std::string defaultForm(double value)
{
    std::ostringstream out;
    out << value;
    return out.str();
}

TEST(Writer, FloatsHaveTheStreamsDefaultForm)
{
    for (const double value : {0.0, -0.0, 1.0, -1.5, 0.1, 123456.0, 1234567.0, 1e-4, 1e-5, 999999.5, 1e300, 5e-324}) {
        EXPECT_EQ(written(value), defaultForm(value));
    }
}

TEST(Writer, RandomFloatsHaveTheStreamsDefaultForm)
{
    std::mt19937_64 random(20);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::ldexp(static_cast<double>(random()) - 9e18, static_cast<int>(random() % 200) - 100);
        ASSERT_EQ(written(value), defaultForm(value));
    }
}

TEST(Writer, ComponentsAreTheQuotientsOfAll)
{
    for (unsigned component = 0; component <= 65535; ++component) {
        ASSERT_EQ(QsdPSComponent(static_cast<std::uint16_t>(component)).view(), written(component / 65535.0));
    }
}

TEST(Writer, IntegersAreDecimal)
{
    std::ostringstream out;
    out << std::hex << std::showbase;
    QsdPSWriter(&out) << INT32_MIN << QsdSpc() << UINT32_MAX << QsdSpc() << INT64_MIN << QsdSpc() << UINT64_MAX
                      << QsdSpc() << std::int16_t{-7};
    EXPECT_EQ(out.str(), "-2147483648 4294967295 -9223372036854775808 18446744073709551615 -7");
}

TEST(Writer, IntegersOfEveryLengthAreDecimal)
{
    const auto check = [](std::int64_t value) {
        std::ostringstream out;
        QsdPSWriter(&out) << value << QsdPoint{static_cast<std::int32_t>(value), static_cast<std::int32_t>(-value)};
        ASSERT_EQ(out.str(), std::to_string(value) + std::to_string(value) + " " + std::to_string(-value));
    };
    for (std::int64_t value = -1100; value <= 1100; ++value) {
        check(value);
        check(value * 997);
    }
    for (const std::int64_t power : {10000, 100000, 1000000, 10000000, 1000000000}) {
        check(power - 1);
        check(power);
        check(power + 1);
    }
}

TEST(Writer, LongTextsPassThrough)
{
    std::ostringstream out;
    const std::string text(5000, 'x');
    QsdPSWriter(&out) << "a" << text << "b";
    EXPECT_EQ(out.str(), "a" + text + "b");
}

TEST(Writer, ManyShortTextsFillTheBufferInOrder)
{
    std::ostringstream out;
    std::string expected;
    {
        QsdPSWriter writer(&out);
        for (int i = 0; i < 1000; ++i) {
            writer << i << QsdSpc();
            expected += std::to_string(i) + " ";
        }
    }
    EXPECT_EQ(out.str(), expected);
}

/// Counts flushes; fails where it is told to.
class FlushCounter : public std::stringbuf {
public:
    int sync() override
    {
        if (throws) {
            throw std::runtime_error("no");
        }
        ++flushes;
        return fails ? -1 : 0;
    }

    int flushes = 0;
    bool fails = false;
    bool throws = false;
};

TEST(Writer, EachLineIsFlushed)
{
    FlushCounter buffer;
    std::ostream out(&buffer);
    QsdPSWriter(&out) << "one" << EOL << "two" << EOL << "rest";
    EXPECT_EQ(buffer.flushes, 2);
    EXPECT_EQ(buffer.str(), "one\ntwo\nrest");
}

TEST(Writer, FailedFlushesMakeTheStreamBad)
{
    FlushCounter buffer;
    std::ostream out(&buffer);
    buffer.fails = true;
    QsdPSWriter(&out) << "one" << EOL << "two" << EOL;
    EXPECT_TRUE(out.bad());
    EXPECT_EQ(buffer.str(), "one\n");
}

TEST(Writer, WhatABufferThrowsStaysInside)
{
    FlushCounter buffer;
    std::ostream out(&buffer);
    buffer.throws = true;
    QsdPSWriter(&out) << "one" << EOL;
    EXPECT_TRUE(out.bad());
}

TEST(Writer, AStreamThatThrowsWhenItFailsDoesNotEndTheProgram)
{
    FlushCounter buffer;
    std::ostream out(&buffer);
    out.exceptions(std::ios_base::badbit);
    buffer.fails = true;
    EXPECT_THROW(QsdPSWriter(&out) << "one" << EOL, std::ios_base::failure);
    EXPECT_TRUE(out.bad());
}

TEST(Writer, NullAndFailedStreamsTakeNothing)
{
    QsdPSWriter(nullptr) << "one" << 2 << EOL << std::string(5000, 'x');
    std::ostringstream out;
    out.setstate(std::ios_base::failbit);
    QsdPSWriter(&out) << "one" << EOL;
    EXPECT_EQ(out.str(), "");
}

TEST(Writer, NumbersThatAreNoneBecomeZero)
{
    std::ostringstream out;
    QsdPSWriter(&out) << std::numeric_limits<double>::quiet_NaN() << "," << std::numeric_limits<double>::infinity()
                      << "," << -std::numeric_limits<double>::infinity();
    EXPECT_EQ(out.str(), "0,0,0");
}

} // namespace
