// How large a drawing is, and how files are opened.
#include "recording_canvas.h"

#include <gtest/gtest.h>

namespace qsdps {
namespace {

std::pair<double, double> sizeOf(const std::string& attributes, const std::string& content = {})
{
    const Recording r = drawFile("<svg " + attributes + ">" + content + "</svg>");
    return {r.width, r.height};
}

using Pair = std::pair<double, double>;

TEST(Sizes, FollowTheRootElement)
{
    EXPECT_EQ(sizeOf("width='1in' height='50'"), Pair(96, 50));
    EXPECT_EQ(sizeOf("width='100%' height='100%' viewBox='0 0 30 20'"), Pair(30, 20));
    EXPECT_EQ(sizeOf("width='60' viewBox='0 0 30 20'"), Pair(60, 40));
    EXPECT_EQ(sizeOf("style='height:40px' viewBox='0 0 30 20'"), Pair(60, 40));
    EXPECT_EQ(sizeOf("", "<rect x='5' y='6' width='7' height='8' stroke='red' stroke-width='2'/>"), Pair(13, 15));
    EXPECT_EQ(sizeOf(""), Pair(0, 0));
}

TEST(Sizes, UseTheDotsPerInchOfTheOptions)
{
    SvgOptions options;
    options.dpi = 72;
    EXPECT_DOUBLE_EQ(drawFile("<svg width='1in' height='72pt'/>", options).width, 72);
}

TEST(Sizes, MapTheViewBox)
{
    EXPECT_EQ(drawFile("<svg width='20' height='20' viewBox='0 0 10 10'><path d='M0 0H5'/></svg>").canvas.lines,
              (Lines{"fill #000000 M0,0 L10,0"}));
}

TEST(Files, MayBeCompressed)
{
    // <svg width="3" height="2"/>
    const unsigned char gzip[] = {0x1f, 0x8b, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00, 0x02, 0xff, 0xb3, 0x29,
                                  0x2e, 0x4b, 0x57, 0x28, 0xcf, 0x4c, 0x29, 0xc9, 0xb0, 0x55, 0x32, 0x56,
                                  0x52, 0xc8, 0x48, 0xcd, 0x4c, 0xcf, 0x28, 0xb1, 0x55, 0x32, 0x52, 0xd2,
                                  0xb7, 0x03, 0x00, 0xef, 0x0d, 0x37, 0x85, 0x1b, 0x00, 0x00, 0x00};
    const std::string whole(reinterpret_cast<const char*>(gzip), sizeof gzip);
    EXPECT_EQ(drawFile(whole).width, 3);
    EXPECT_EQ(drawFile(whole.substr(0, 20)).error, "the compressed data is damaged or cut short");
}

TEST(Files, NeedNoNamespaceOrHaveAPrefix)
{
    const Lines one{"fill #000000 M0,0 L5,0"};
    EXPECT_EQ(drawFile("<svg><path d='M0 0H5'/></svg>").canvas.lines, one);
    EXPECT_EQ(drawFile("<s:svg xmlns:s='http://www.w3.org/2000/svg'><s:path d='M0 0H5'/></s:svg>").canvas.lines, one);
    EXPECT_EQ(drawFile("<svg xmlns:x='urn:x'><x:path d='M0 0H5'/></svg>").canvas.lines, Lines{});
}

TEST(Files, MayBeInOtherEncodings)
{
    const std::string latin = "<?xml version='1.0' encoding='ISO-8859-1'?><svg><title>Gr\xFCn</title></svg>";
    EXPECT_EQ(drawFile(latin).title, "Gr\xC3\xBCn");
    std::string wide("\xFF\xFE", 2);
    for (const char c : std::string("<svg><title>ab</title></svg>")) {
        wide.push_back(c);
        wide.push_back('\0');
    }
    EXPECT_EQ(drawFile(wide).title, "ab");
}

TEST(Files, AreConvertedAsFarAsTheirCharacterSetGoes)
{
    const auto wide = [](const std::u16string& text) {
        std::string bytes = "\xFF\xFE";
        for (const char16_t unit : text) {
            bytes.push_back(static_cast<char>(unit & 0xFF));
            bytes.push_back(static_cast<char>(unit >> 8));
        }
        return bytes;
    };
    // A pair of surrogates, half of one, and a mark in the middle.
    std::u16string units = u"<svg><title>a\U0001D11Eb";
    units += char16_t{0xD800};
    units += u"c\uFEFFd</title></svg>";
    EXPECT_EQ(drawFile(wide(units)).title, std::string("a\xF0\x9D\x84\x9E") + "b\xEF\xBF\xBD" + "cd");
    // The odd byte at the end belongs to no character.
    EXPECT_EQ(drawFile(wide(u"<svg><title>e</title></svg>") + "\n").title, "e");
    const std::string declared = "<?xml version='1.0' encoding='windows-1252'?><svg><title>";
    EXPECT_EQ(drawFile(declared + "\x80\xE9\x81!</title></svg>").title, "\xE2\x82\xAC\xC3\xA9\xC2\x81!");
}

TEST(Files, ExpandTheirOwnEntities)
{
    EXPECT_EQ(drawFile("<!DOCTYPE svg [<!ENTITY a 'M0 0'><!ENTITY b '&a;H5'><!ENTITY e SYSTEM 'file:///etc/passwd'>]>"
                       "<svg><title>&e;</title><path d='&b;'/></svg>")
                  .canvas.lines,
              (Lines{"fill #000000 M0,0 L5,0"}));
}

TEST(Files, TellWhereTheyAreBroken)
{
    EXPECT_EQ(drawFile("").error, "the file is empty");
    EXPECT_TRUE(drawFile("<svg>\n<g>\n<rect width='5'").error.starts_with("line 3: "));
    EXPECT_EQ(drawFile("<html/>").error, "there is no svg element");
}

} // namespace
} // namespace qsdps
