// Images in data URIs, in files, and drawings inside of drawings.
#include "drawing_folder.h"
#include "recording_canvas.h"

namespace qsdps {
namespace {

TEST(Images, ComeFromDataUris)
{
    const std::string place = "x='1' y='2' width='3' height='4'";
    EXPECT_EQ(linesOf("<image " + place + " href='data:image/png;base64,aGVs\n bG8='/>"),
              (Lines{"image hello 1,2 4,6"}));
    EXPECT_EQ(linesOf("<image " + place + " xlink:href='data:,h%65llo' opacity='.5'/>"),
              (Lines{"image hello 1,2 4,6*0.5"}));
}

TEST(Images, CarryTheirAlignment)
{
    const Recording r = draw("<image width='3' height='4' href='data:,x' preserveAspectRatio='xMinYMax slice' "
                             "image-rendering='pixelated'/>");
    ASSERT_EQ(r.canvas.images.size(), 1U);
    EXPECT_EQ(r.canvas.images[0].alignX, 0);
    EXPECT_EQ(r.canvas.images[0].alignY, 1);
    EXPECT_TRUE(r.canvas.images[0].slice);
    EXPECT_FALSE(r.canvas.images[0].smooth);
}

TEST(Images, TakeMissingSidesFromTheFile)
{
    const Recording r = draw("<image width='8' href='data:image/gif,GIF89a%04%00%02%00'/>");
    ASSERT_EQ(r.canvas.images.size(), 1U);
    EXPECT_EQ(r.canvas.images[0].viewport, (Box{0, 0, 8, 4}));
}

TEST(Images, MayBeDrawings)
{
    EXPECT_EQ(linesOf("<image x='10' width='20' height='20' href=\"data:image/svg+xml,&lt;svg width='10' "
                      "height='10'>&lt;path d='M0 0H5'/>&lt;/svg>\"/>"),
              (Lines{"clip M10,0 L30,0 L30,20 L10,20 Z", "fill #000000 M10,0 L20,0", "popClip"}));
}

class ImageFiles : public DrawingFolder {
protected:
    void SetUp() override
    {
        write("in/a b.png", "inside");
        write("secret.png", "outside");
        link("secret.png", "link.png");
    }

    [[nodiscard]] Recording open(const std::string& href) const
    {
        return drawFile("<svg width='9' height='9'><image width='1' height='1' href='" + href + "'/></svg>", options());
    }
};

TEST_F(ImageFiles, AreReadBesideTheDrawing)
{
    EXPECT_EQ(open("a%20b.png").canvas.lines, (Lines{"image inside 0,0 1,1"}));
    EXPECT_EQ(open("file://" + pathOf("in/a%20b.png")).canvas.lines, (Lines{"image inside 0,0 1,1"}));
}

TEST_F(ImageFiles, AreNotReadElsewhere)
{
    for (const std::string href :
         {"../secret.png", "link.png", "/etc/passwd", "http://localhost/a.png", "none.png", ".", "a%20b.png%00"}) {
        const Recording r = open(href);
        EXPECT_EQ(r.canvas.lines, Lines{}) << href;
        EXPECT_NE(r.messages.find("1 image left out: it cannot be read"), std::string::npos) << href;
    }
}

TEST_F(ImageFiles, ThatContainThemselvesEnd)
{
    write("in/self.svg",
          "<svg width='9' height='9'><image width='9' height='9' href='self.svg'/><path d='M0 0H1'/></svg>");
    const Recording r = open("self.svg");
    EXPECT_NE(r.messages.find("1 image left out: it cannot be read"), std::string::npos);
    write("in/nosize.svg", "<svg><image href='nosize.svg'/></svg>");
    EXPECT_EQ(open("nosize.svg").canvas.lines, Lines{});
}

} // namespace
} // namespace qsdps
