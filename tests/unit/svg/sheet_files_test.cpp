// Style sheets in files beside the drawing.
#include "drawing_folder.h"
#include "recording_canvas.h"

namespace qsdps {
namespace {

class SheetFiles : public DrawingFolder {
protected:
    void SetUp() override
    {
        write("in/red.css", "path{fill:red}");
        write("in/blue.css", "path{fill:blue}");
        write("in/a b.css", "path{fill:red}");
        write("secret.css", "path{fill:blue}");
        link("secret.css", "link.css");
    }

    [[nodiscard]] Recording open(const std::string& prolog, const std::string& content = {}) const
    {
        return drawFile(prolog + "<svg width='9' height='9'>" + content + "<path d='M0 0H5'/></svg>", options());
    }
    /// The colour with a style element.
    [[nodiscard]] std::string colorFrom(const std::string& sheet) const
    {
        return open("", "<style>" + sheet + "</style>").canvas.lines.at(0).substr(5, 7);
    }
};

constexpr const char* Red = "#ff0000";
constexpr const char* Blue = "#0000ff";
constexpr const char* Black = "#000000";

TEST_F(SheetFiles, AreImported)
{
    for (const char* import : {"url(red.css)", "url( 'red.css' )", "'red.css'", "\"red.css\" print", "URL(red.css) all",
                               "url(a%20b.css)", "'./sub/../red.css'", "'data:text/css,path{fill:red}'"})
        EXPECT_EQ(colorFrom("@import " + std::string(import) + ";"), Red) << import;
    EXPECT_EQ(colorFrom("@import 'file://" + pathOf("in/red.css") + "';"), Red);
    EXPECT_EQ(colorFrom("@import 'red.css' screen;"), Black);
    EXPECT_EQ(colorFrom("@charset 'utf-8'; @import 'red.css'; @import 'blue.css';"), Blue);
    // What is imported stands before what imports it, whatever is written in it.
    EXPECT_EQ(colorFrom("@import 'blue.css'; path{fill:red}"), Red);
    EXPECT_EQ(colorFrom("path{fill:red} @import 'blue.css';"), Red);
    EXPECT_EQ(colorFrom("@media print{@import 'blue.css';} path{fill:red}"), Red);
}

TEST_F(SheetFiles, ImportFromWhereTheyStand)
{
    write("in/sub/outer.css", "@import 'inner.css';");
    write("in/sub/inner.css", "@import '../red.css';");
    EXPECT_EQ(colorFrom("@import 'sub/outer.css';"), Red);
    EXPECT_EQ(colorFrom("@import 'file://" + pathOf("in/sub/outer.css") + "';"), Red);
    write("in/sub/far.css", "@import '../../secret.css';");
    EXPECT_EQ(colorFrom("@import 'sub/far.css';"), Black);
    EXPECT_EQ(colorFrom("@import \"data:text/css,@import 'red.css';\";"), Black);
}

TEST_F(SheetFiles, AreNamedByInstructions)
{
    const auto color = [&](const std::string& prolog, const std::string& content = {}) {
        return open(prolog, content).canvas.lines.at(0).substr(5, 7);
    };
    EXPECT_EQ(color("<?xml version='1.0'?><?xml-stylesheet type='text/css' href='red.css'?>"), Red);
    EXPECT_EQ(color("<?xml-stylesheet href = \"red.css\" media=\"print\" ?>"), Red);
    EXPECT_EQ(color("<?xml-stylesheet href='red.css' media='screen'?>"), Black);
    EXPECT_EQ(color("<?xml-stylesheet href='red.css' alternate='yes' title='x'?>"), Black);
    EXPECT_EQ(color("<?xml-stylesheet href='blue.css'?>", "<style>path{fill:red}</style>"), Red);
    EXPECT_EQ(color("<?xml-stylesheet href='blue.css'?><?xml-stylesheet href='red.css'?>"), Red);
    EXPECT_EQ(color("", "<?xml-stylesheet href='red.css'?>"), Black);
    EXPECT_EQ(open("<?xml-stylesheet type='text/xsl' href='x.xsl'?>").messages,
              "in:1: style sheet 'x.xsl' skipped: its type is 'text/xsl'\n");
    EXPECT_NE(open("<?xml-stylesheet?>").messages.find("style sheet '' not read"), std::string::npos);
}

TEST_F(SheetFiles, AreNotReadElsewhere)
{
    for (const std::string href : {"../secret.css", "link.css", "/etc/passwd", "http://localhost/a.css", "none.css",
                                   ".", "red.css%00", "sub/../../secret.css"}) {
        const Recording r = open("<?xml-stylesheet href='" + href + "'?>", "<style>@import '" + href + "';</style>");
        EXPECT_EQ(r.canvas.lines.at(0).substr(5, 7), Black) << href;
        EXPECT_EQ(r.messages, "in:1: style sheet '" + href +
                                  "' not read: no such file beside the drawing or below, or too large\n");
    }
    const std::string sheet = "<style>@import 'red.css';</style><path d='M0 0H5'/>";
    EXPECT_NE(draw(sheet).messages.find("'red.css' not read"), std::string::npos);
}

TEST_F(SheetFiles, ThatImportThemselvesEnd)
{
    write("in/self.css", "@import 'self.css'; path{fill:red}");
    const Recording self = open("", "<style>@import 'self.css';</style>");
    EXPECT_EQ(self.canvas.lines.at(0).substr(5, 7), Red);
    EXPECT_EQ(self.messages, "in:1: style sheet 'self.css' not read: it imports itself, in 'self.css'\n");
    write("in/one.css", "@import 'sub/two.css';");
    write("in/sub/two.css", "@import '../one.css'; path{fill:red}");
    EXPECT_EQ(colorFrom("@import 'one.css';"), Red);
    for (int i = 0; i < 40; ++i)
        write("in/deep" + std::to_string(i) + ".css", "@import 'deep" + std::to_string(i + 1) + ".css';");
    EXPECT_NE(
        open("", "<style>@import 'deep0.css';</style>").messages.find("'deep16.css' not read: imports nest too deep"),
        std::string::npos);
}

TEST_F(SheetFiles, AreBoundedInNumberAndSize)
{
    std::string many;
    for (int i = 0; i < 50; ++i)
        many += "@import 'many" + std::to_string(i % 2) + ".css';";
    write("in/many0.css", "@import 'red.css';@import 'red.css';@import 'red.css';");
    write("in/many1.css", "@import 'many0.css';");
    EXPECT_NE(open("", "<style>" + many + "</style>").messages.find("there are more than 100"), std::string::npos);
    std::filesystem::resize_file(pathOf("in/blue.css"), std::size_t{20} << 20);
    EXPECT_NE(open("<?xml-stylesheet href='blue.css'?>").messages.find("'blue.css' not read"), std::string::npos);
}

TEST_F(SheetFiles, AreNamedInMessages)
{
    write("in/odd.css", "path:hover{fill:red}");
    EXPECT_EQ(open("\n<?xml-stylesheet href='odd.css'?>").messages,
              "in:2: style sheet rule skipped: selector ':hover' is not known, in 'odd.css'\n");
}

TEST_F(SheetFiles, MayBeInOtherEncodings)
{
    write("in/mark.css", "\xEF\xBB\xBFpath{fill:red}");
    EXPECT_EQ(colorFrom("@import 'mark.css';"), Red);
}

TEST_F(SheetFiles, StyleDrawingsInside)
{
    write("in/inner.svg", "<?xml-stylesheet href='red.css'?><svg width='9' height='9'><path d='M0 0H5'/></svg>");
    const Recording r = open("", "<image width='9' height='9' href='inner.svg'/>");
    EXPECT_EQ(r.canvas.lines.at(1).substr(5, 7), Red);
}

} // namespace
} // namespace qsdps
