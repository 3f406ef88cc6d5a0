#include "toolkit/base/QsdGlobalContext.h"

#include <gtest/gtest.h>

namespace {

TEST(Locale, EncodingNames)
{
    EXPECT_EQ(QsLocale::GetQsEncoding("ISO8859-1"), 2U);
    EXPECT_EQ(QsLocale::GetQsEncoding("iso-8859-1"), 2U);
    EXPECT_EQ(QsLocale::GetQsEncoding("EUC-JP"), 12U);
    EXPECT_EQ(QsLocale::GetQsEncoding("Shift_JIS"), 13U);
    EXPECT_EQ(QsLocale::GetQsEncoding("GB2312"), 15U);
    EXPECT_EQ(QsLocale::GetQsEncoding("CP1252"), 23U);
    EXPECT_EQ(QsLocale::GetQsEncoding("GBK"), 37U);
    EXPECT_EQ(QsLocale::GetQsEncoding("US-ASCII"), 1U);
    EXPECT_EQ(QsLocale::GetQsEncoding("ANSI_X3.4-1968"), 1U);
    EXPECT_EQ(QsLocale::GetQsEncoding("KOI8-R"), QsEncodingUnknown);
    EXPECT_EQ(QsLocale::GetQsEncoding(""), QsEncodingUnknown);
    EXPECT_EQ(QsLocale::GetQsEncoding(nullptr), QsEncodingUnknown);
}

TEST(Locale, OfEncodingNamesOnlyCaseBlanksAndDashesDoNotCount)
{
    for (const char* const name : {"ISO8859-1", "iso_8859_1", " ISO 8859 - 1 ", "-i-s-o-8_8_5_9 1"}) {
        EXPECT_EQ(QsLocale::GetQsEncoding(name), QsEncodingLatin1) << name;
    }
    for (const char* const name : {"ISO8859.1", "ISO:8859-1", "ISO8859-1\t", "(latin1)", "latin1\xE9", "e.u.c.j.p",
                                   "ANSI_X34-1968", "GB2312?"}) {
        EXPECT_EQ(QsLocale::GetQsEncoding(name), QsEncodingUnknown) << name;
    }
}

TEST(Locale, NamesLeadBackToTheirEncodings)
{
    for (const unsigned number : {1U, 2U, 12U, 13U, 15U, 23U, 37U}) {
        const auto encoding = static_cast<QsEncoding>(number);
        EXPECT_EQ(QsLocale::GetQsEncoding(QsLocale::GetEncodingName(encoding)), encoding);
    }
    EXPECT_EQ(QsLocale::GetEncodingName(QsEncodingUnknown), nullptr);
    EXPECT_EQ(QsLocale::GetEncodingName(static_cast<QsEncoding>(3)), nullptr);
}

TEST(Locale, EncodingsOfLocaleNames)
{
    const struct {
        const char* name;
        QsEncoding encoding;
    } cases[] = {{"C", QsEncodingASCII},
                 {"POSIX", QsEncodingASCII},
                 {"", QsEncodingASCII},
                 {nullptr, QsEncodingASCII},
                 {"de_DE", QsEncodingLatin1},
                 {"de_DE.ISO8859-1@euro", QsEncodingLatin1},
                 {"en_GB.UTF-8", QsEncodingLatin1},
                 {"ja_JP", QsEncodingEUCJP},
                 {"ja_JP.eucJP", QsEncodingEUCJP},
                 {"ja_JP.SJIS", QsEncodingShiftJIS},
                 {"zh_CN", QsEncodingGB2312},
                 {"zh_CN.GBK", QsEncodingGBK}};
    for (const auto& c : cases) {
        EXPECT_EQ(QsLocale(c.name).getEncoding(), c.encoding) << (c.name == nullptr ? "null" : c.name);
    }
}

TEST(Locale, LargestCharacters)
{
    EXPECT_EQ(QsLocale("C").getMaxCharSize(), 1);
    EXPECT_EQ(QsLocale("de_DE").getMaxCharSize(), 1);
    EXPECT_EQ(QsLocale("ja_JP.SJIS").getMaxCharSize(), 2);
    EXPECT_EQ(QsLocale("ja_JP.eucJP").getMaxCharSize(), 3);
    EXPECT_EQ(QsLocale("zh_CN.GBK").getMaxCharSize(), 2);
}

TEST(Locale, Compatibility)
{
    const QsLocale japanese("ja_JP.eucJP");
    const QsLocale latin("de_DE");
    for (const QsEncoding encoding : {QsEncodingASCII, QsEncodingLatin1, QsEncodingCP1252}) {
        EXPECT_TRUE(japanese.isEncodingCompatible(encoding));
        EXPECT_TRUE(latin.isEncodingCompatible(encoding));
    }
    EXPECT_TRUE(japanese.isEncodingCompatible(QsEncodingEUCJP));
    EXPECT_FALSE(japanese.isEncodingCompatible(QsEncodingShiftJIS));
    EXPECT_FALSE(latin.isEncodingCompatible(QsEncodingEUCJP));
    EXPECT_FALSE(latin.isEncodingCompatible(QsEncodingUnknown));
    EXPECT_FALSE(QsLocale("x", QsEncodingUnknown).isEncodingCompatible(QsEncodingUnknown));
}

TEST(GlobalContext, StartsInTheCLocale)
{
    EXPECT_STREQ(QsdGlobalContext::GetInstance().getLocale().getName(), "C");
    EXPECT_EQ(_QsdGetMaxCharSize(), 1);
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP"));
    EXPECT_EQ(_QsdGetMaxCharSize(), 3);
}

} // namespace
