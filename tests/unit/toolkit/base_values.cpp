#include "toolkit/base/QsMalloc.h"
#include "toolkit/base/QsString.h"
#include "toolkit/base/Qs_AList.h"
#include "toolkit/base/QsdDate.h"
#include "toolkit/base/QsdNumbers.h"
#include "toolkit/base/QsdVersion.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace {

TEST(String, NullIsEmpty)
{
    const QsString none(static_cast<const char*>(nullptr));
    EXPECT_TRUE(none.isEmpty());
    EXPECT_STREQ(none.c_str(), "");
    EXPECT_EQ(none, QsString());
}

TEST(String, AppendsAndCompares)
{
    QsString text("ab");
    text += "cd";
    EXPECT_EQ(text, QsString("abcd"));
    EXPECT_EQ(text.length(), 4U);
    std::ostringstream out;
    out << text;
    EXPECT_EQ(out.str(), "abcd");
}

TEST(AssociationList, FindsReplacesAndRemoves)
{
    int keys[2] = {};
    int values[3] = {};
    Qs_AList list;
    EXPECT_EQ(list.get(&keys[0]), nullptr);
    EXPECT_FALSE(list.replace(&keys[0], &values[0]));
    list.append(&keys[0], &values[0]);
    list.append(&keys[1], &values[1]);
    EXPECT_EQ(list.get(&keys[0]), &values[0]);
    EXPECT_TRUE(list.replace(&keys[0], &values[2]));
    EXPECT_EQ(list.get(&keys[0]), &values[2]);
    EXPECT_FALSE(list.remove(&keys[0], &values[0]));
    EXPECT_TRUE(list.remove(&keys[0], &values[2]));
    EXPECT_EQ(list.get(&keys[0]), nullptr);
    EXPECT_EQ(list.length(), 1U);
}

TEST(Malloc, KeepsContentWhenResized)
{
    char* block = static_cast<char*>(QsMalloc(4));
    std::memcpy(block, "abc", 4);
    block = static_cast<char*>(QsRealloc(block, 1000));
    EXPECT_STREQ(block, "abc");
    QsFree(block);
    QsFree(nullptr);
    void* const empty = QsMalloc(0);
    EXPECT_NE(empty, nullptr);
    QsFree(empty);
}

TEST(Version, IsANumberAndAText)
{
    EXPECT_EQ(std::to_string(QsdGetVersion() / 100) + "." + std::to_string(QsdGetVersion() % 100),
              std::string(QsdGetVersionString()).substr(0, std::string(QsdGetVersionString()).rfind('.')));
}

TEST(Date, HonoursTheSourceDate)
{
    ::setenv("SOURCE_DATE_EPOCH", "951782400", 1);
    EXPECT_EQ(QsdGetCurrentDate(), QsString("2000-02-29T00:00:00Z"));
    ::setenv("SOURCE_DATE_EPOCH", "253402300799", 1);
    EXPECT_EQ(QsdGetCurrentDate(), QsString("9999-12-31T23:59:59Z"));
}

TEST(Date, IgnoresWhatIsNoDate)
{
    for (const char* const text : {"", "x", "-1", "12x", "999999999999999999999"}) {
        ::setenv("SOURCE_DATE_EPOCH", text, 1);
        EXPECT_GE(std::string(QsdGetCurrentDate().c_str()), "2024") << text;
        EXPECT_EQ(QsdGetCurrentDate().length(), 20U);
    }
}

class NumberLocale : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
            GTEST_SKIP() << "no locale with a decimal comma";
        }
    }
    ~NumberLocale() override { std::setlocale(LC_ALL, "C"); }
    static std::string point() { return std::localeconv()->decimal_point; }
};

TEST_F(NumberLocale, IsClassicInsideAndBackAfterTheOutermost)
{
    const std::string outside = point();
    ASSERT_EQ(outside, ",");
    QsdSetLocaleC(true);
    QsdSetLocaleC(true);
    EXPECT_EQ(point(), ".");
    QsdSetLocaleC(false);
    EXPECT_EQ(point(), ".");
    QsdSetLocaleC(false);
    EXPECT_EQ(point(), outside);
    QsdSetLocaleC(false);
    EXPECT_EQ(point(), outside);
    QsdSetLocaleC(true);
    EXPECT_EQ(point(), ".");
    QsdSetLocaleC(false);
}

TEST(Separator, IsABlank)
{
    EXPECT_STREQ(QsdSpc(), " ");
}

} // namespace
