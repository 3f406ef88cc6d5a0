#include "ps/QsdPSFonts_.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"

#include <clocale>
#include <gtest/gtest.h>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string Header = "// QsdPSFonts 1.0\n// Encoding: ISO8859-1\n";

class FontMap : public ::testing::Test {
protected:
    FontMap()
    {
        QsdSetWarningHandler(
            [](const char* message, void* data) { static_cast<FontMap*>(data)->warnings.push_back(message); }, this);
    }
    ~FontMap() override { QsdSetWarningHandler(nullptr, nullptr); }

    bool read(const std::string& text)
    {
        std::istringstream stream(text);
        return registry.read(stream, "QsdPSFonts::read");
    }
    QsdPSFontNames_* find(const char* family) { return registry.getPSFontNames(QsEncodingLatin1, family); }
    std::vector<std::string> taken() { return std::exchange(warnings, {}); }

    QsdPSFonts_ registry{20};
    std::vector<std::string> warnings;
};

using Warnings = std::vector<std::string>;
const Warnings InvalidHeader = {"QsdPSFonts::readHeader Invalid header"};
const Warnings MissingEncoding = {"QsdPSFonts::readHeader Invalid header, missing encoding"};
const Warnings WrongEncoding = {"QsdPSFonts::readHeader Invalid header, encoding not compatible"};

TEST_F(FontMap, ReadsEveryKey)
{
    EXPECT_TRUE(read(Header + "Family mine\nNormalName N\nBoldName B\nItalicName I\nBoldItalicName BI\n"
                              "NormalFontFile n.pfa\nBoldFontFile b.pfa\nItalicFontFile i.pfa\n"
                              "BoldItalicFontFile \"bold italic.pfa\" ignored\nAsDefault yes\n"));
    const QsdPSFontNames_* const names = find("mine");
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(names->encoding(), QsEncodingLatin1);
    EXPECT_STREQ(names->normalName(), "N");
    EXPECT_STREQ(names->boldName(), "B");
    EXPECT_STREQ(names->italicName(), "I");
    EXPECT_STREQ(names->boldItalicName(), "BI");
    EXPECT_STREQ(names->normalDownloadFileName(), "n.pfa");
    EXPECT_STREQ(names->boldDownloadFileName(), "b.pfa");
    EXPECT_STREQ(names->italicDownloadFileName(), "i.pfa");
    EXPECT_STREQ(names->boldItalicDownloadFileName(), "bold italic.pfa");
    EXPECT_FALSE(names->isDefault());
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), names);
    EXPECT_EQ(taken(), Warnings());
}

TEST_F(FontMap, EachFamilyStartsAfresh)
{
    using Getter = const char* (QsdPSFontNames_::*)() const;
    const std::pair<std::string, Getter> fields[] = {
        {"NormalName", &QsdPSFontNames_::normalName},
        {"BoldName", &QsdPSFontNames_::boldName},
        {"ItalicName", &QsdPSFontNames_::italicName},
        {"BoldItalicName", &QsdPSFontNames_::boldItalicName},
        {"NormalFontFile", &QsdPSFontNames_::normalDownloadFileName},
        {"BoldFontFile", &QsdPSFontNames_::boldDownloadFileName},
        {"ItalicFontFile", &QsdPSFontNames_::italicDownloadFileName},
        {"BoldItalicFontFile", &QsdPSFontNames_::boldItalicDownloadFileName}};
    std::string text = Header + "Family one\nAsDefault yes\n";
    for (const auto& [key, get] : fields) {
        text += key + " its-" + key + "\n";
    }
    EXPECT_TRUE(read(text + "Family two\nFamily three\nNormalName M\n"));
    for (const auto& [key, get] : fields) {
        EXPECT_EQ((find("one")->*get)(), "its-" + key);
        EXPECT_EQ((find("two")->*get)(), nullptr) << key;
    }
    EXPECT_STREQ(find("three")->normalName(), "M");
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), find("one"));
    EXPECT_EQ(registry.count(), 17U);
}

TEST_F(FontMap, MarksForTheDefault)
{
    for (const char* const value : {"true", "TRUE", "yes", "YES", "1"}) {
        QsdPSFonts_ fresh(20);
        std::istringstream stream(Header + "Family one\nNormalName N\nAsDefault " + value + "\n");
        EXPECT_TRUE(fresh.read(stream, ""));
        EXPECT_STREQ(fresh.getDefaultFontNames(QsEncodingLatin1)->family(), "one") << value;
    }
    for (const char* const value : {"on", "01", "t", "\"\"", ""}) {
        QsdPSFonts_ fresh(20);
        std::istringstream stream(Header + "Family one\nNormalName N\nAsDefault " + value + "\n");
        EXPECT_TRUE(fresh.read(stream, ""));
        EXPECT_STREQ(fresh.getDefaultFontNames(QsEncodingLatin1)->family(), "helvetica") << value;
    }
}

TEST_F(FontMap, MarksFontsWithTheirOwnEncoding)
{
    EXPECT_TRUE(read(Header + "Family one\nNormalName N\nOwnEncoding yes\nFamily two\nNormalName M\n"
                              "Family three\nOwnEncoding 1\nOwnEncoding no\nFamily four\nOwnEncoding TRUE\n"));
    EXPECT_TRUE(find("one")->hasOwnEncoding());
    EXPECT_FALSE(find("two")->hasOwnEncoding());
    EXPECT_FALSE(find("three")->hasOwnEncoding());
    EXPECT_TRUE(find("four")->hasOwnEncoding());
    EXPECT_FALSE(find("symbol")->hasOwnEncoding());
}

TEST_F(FontMap, OtherValuesLeaveTheMark)
{
    EXPECT_TRUE(read(Header + "Family one\nNormalName N\nAsDefault yes\nAsDefault no\n"));
    EXPECT_EQ(registry.getDefaultFontNames(QsEncodingLatin1), find("one"));
}

TEST_F(FontMap, BuiltInFamiliesAreReplacedInPlace)
{
    EXPECT_TRUE(read(Header + "Family courier\nNormalName Mine\n"));
    EXPECT_EQ(registry.count(), 14U);
    EXPECT_EQ(registry.getPSFontNames(find("courier")), 2);
    EXPECT_STREQ(find("courier")->normalName(), "Mine");
    EXPECT_TRUE(read(Header + "Family Courier\nNormalName Other\n"));
    EXPECT_EQ(registry.count(), 15U);
}

TEST_F(FontMap, BlanksBehindTheSlashesDoNotMatter)
{
    EXPECT_TRUE(read("//QsdPSFonts 1.0\n//Encoding: latin1\nFamily one\nNormalName N\n"));
    EXPECT_TRUE(read("//    QsdPSFonts   0.5 and more\n//   Encoding:   ISO8859-1\nFamily two\nNormalName N\n"));
    EXPECT_NE(find("one"), nullptr);
    EXPECT_NE(find("two"), nullptr);
}

TEST_F(FontMap, BadFirstLines)
{
    for (const char* const text :
         {"", "/", "//", "// QsdPSFonts", "// QsdPSFonts 1.0", "// qsdpsfonts 1.0\n// Encoding: latin1\n",
          " // QsdPSFonts 1.0\n// Encoding: latin1\n", "/* QsdPSFonts 1.0\n// Encoding: latin1\n",
          "// QsdPSFonts 99.0\n// Encoding: latin1\n", "// QsdPSFonts 1e300\n// Encoding: latin1\n",
          "// QsdPSFonts: 1.0\n// Encoding: latin1\n"}) {
        EXPECT_FALSE(read(text)) << text;
        EXPECT_EQ(taken(), InvalidHeader) << text;
    }
    EXPECT_EQ(registry.count(), 14U);
}

TEST_F(FontMap, BadSecondLines)
{
    for (const char* const text :
         {"// QsdPSFonts 1.0\n", "// QsdPSFonts 1.0\n/", "// QsdPSFonts 1.0\n// Encoding:",
          "// QsdPSFonts 1.0\n// Encoding: latin1", "// QsdPSFonts 1.0\n// encoding: latin1\n",
          "// QsdPSFonts 1.0\n # Encoding: latin1\n", "// QsdPSFonts one\n// Encoding: latin1\n"}) {
        EXPECT_FALSE(read(text)) << text;
        EXPECT_EQ(taken(), MissingEncoding) << text;
    }
}

TEST_F(FontMap, EncodingsOfOtherLocales)
{
    for (const char* const name : {"EUC-JP", "nonsense", "a-name-of-more-than-nineteen-characters"}) {
        EXPECT_FALSE(read("// QsdPSFonts 1.0\n// Encoding: " + std::string(name) + "\n"));
        EXPECT_EQ(taken(), WrongEncoding) << name;
    }
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP.eucJP"));
    EXPECT_TRUE(read("// QsdPSFonts 1.0\n// Encoding: EUC-JP\nFamily mincho\nNormalName M\n"));
    EXPECT_NE(registry.getPSFontNames(QsEncodingEUCJP, "mincho"), nullptr);
}

TEST_F(FontMap, UnknownKeysMatterAtTheEndAlone)
{
    EXPECT_TRUE(read(Header + "# comment\nfamily wrong\nFamily one\nNormalname x\nNormalName N\n"));
    EXPECT_STREQ(find("one")->normalName(), "N");
    EXPECT_FALSE(read(Header + "Family two\nNormalName N\nUnknown key\n"));
    EXPECT_NE(find("two"), nullptr);
    EXPECT_EQ(taken(), Warnings());
}

TEST_F(FontMap, AFileWithoutFamiliesEntersNothing)
{
    EXPECT_TRUE(read(Header));
    EXPECT_TRUE(read(Header + "\n\n"));
    EXPECT_TRUE(read(Header + "NormalName N\n"));
    EXPECT_EQ(registry.count(), 14U);
}

TEST_F(FontMap, TheLastLineNeedsNoNewline)
{
    EXPECT_TRUE(read(Header + "Family one\nNormalName N"));
    EXPECT_STREQ(find("one")->normalName(), "N");
}

TEST_F(FontMap, KeysAndValuesOfAnyLength)
{
    const std::string longText(200000, 'k');
    EXPECT_TRUE(read(Header + longText + " x\nFamily one\nNormalName " + longText + "\nBoldName \"" + longText +
                     "\nItalicName I\n"));
    EXPECT_EQ(std::string(find("one")->normalName()), longText.substr(0, 65535));
    EXPECT_EQ(std::string(find("one")->boldName()), longText.substr(0, 65535));
    EXPECT_STREQ(find("one")->italicName(), "I");
}

TEST_F(FontMap, BinaryGarbageLeavesAUsableRegistry)
{
    std::string garbage;
    for (int i = 0; i < 10000; ++i) {
        garbage.push_back(static_cast<char>(i * 7919 >> 3));
    }
    EXPECT_FALSE(read(garbage));
    read(Header + garbage);
    EXPECT_STREQ(find("times")->normalName(), "Times-Roman");
}

TEST_F(FontMap, FilesThatCannotBeRead)
{
    EXPECT_FALSE(registry.load("/no/such/file", QsEncodingLatin1));
    EXPECT_EQ(taken(), Warnings());
    EXPECT_FALSE(registry.load("/", QsEncodingLatin1));
    EXPECT_EQ(taken(), InvalidHeader);
}

TEST_F(FontMap, TheVersionHasADecimalPointInEveryLocale)
{
    class Comma : public std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    const std::locale comma(std::locale::classic(), new Comma);
    std::istringstream stream("// QsdPSFonts 1.0\n// Encoding: latin1\nFamily one\nNormalName N\n");
    stream.imbue(comma);
    EXPECT_TRUE(registry.read(stream, ""));
    EXPECT_TRUE(stream.getloc() == comma);
    std::setlocale(LC_ALL, "C");
}

TEST_F(FontMap, EveryBlankEndsAWord)
{
    for (const std::string blank : {" ", "\t", "\v", "\f", "\r"}) {
        QsdPSFonts_ fresh(20);
        std::istringstream stream("// QsdPSFonts" + blank + "1.0\n// Encoding:" + blank + "latin1" + blank +
                                  "\nFamily one\nNormalName N\n");
        EXPECT_TRUE(fresh.read(stream, "")) << int{blank[0]};
        EXPECT_NE(fresh.getPSFontNames(QsEncodingLatin1, "one"), nullptr) << int{blank[0]};
    }
}

TEST_F(FontMap, VersionsCountToTheHundredth)
{
    EXPECT_TRUE(read("// QsdPSFonts 1.009\n// Encoding: latin1\nFamily one\nNormalName N\n"));
    EXPECT_EQ(taken(), Warnings());
    EXPECT_FALSE(read("// QsdPSFonts 1.01\n// Encoding: latin1\nFamily two\nNormalName N\n"));
    EXPECT_EQ(taken(), InvalidHeader);
}

} // namespace
