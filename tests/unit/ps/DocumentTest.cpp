#include "tests/unit/ps/OwnProcess.h"
#include "tests/unit/ps/TestDevice.h"

#include "ps/QsdPSFonts_.h"
#include "ps/QsdPSString.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace {

namespace fs = std::filesystem;

using Messages = std::vector<std::string>;

void collect(const char* message, void* messages)
{
    static_cast<Messages*>(messages)->push_back(message);
}

class Document : public ::testing::Test {
protected:
    Document()
    {
        fs::create_directories(folder / "psfonts");
        QsdSetWarningHandler(collect, &warnings);
        QsdSetFatalErrorHandler(collect, &errors);
    }
    ~Document() override
    {
        fs::remove_all(folder);
        QsdSetWarningHandler(nullptr, nullptr);
        QsdSetFatalErrorHandler(nullptr, nullptr);
    }
    void writeFontMap(const std::string& text) const { std::ofstream(folder / "psfonts" / "fontname.qsd") << text; }

    const fs::path folder =
        fs::path(::testing::TempDir()) /
        (std::string("dravonset-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    QsdMemoryDisplay display;
    Messages warnings;
    Messages errors;
};

TEST_F(Document, ClosedUntilOpenedAndAfterItsEnd)
{
    TestDevice device(&display);
    EXPECT_TRUE(device.isADevice());
    EXPECT_TRUE(device.isBad());
    EXPECT_TRUE(device.initDevice("unused", nullptr));
    EXPECT_FALSE(device.isBad());
    device.end();
    EXPECT_TRUE(device.isBad());
    EXPECT_FALSE(device.writeFailed());
}

TEST_F(Document, PagesAreCounted)
{
    OpenDevice open;
    EXPECT_TRUE(open.device.newPage());
    EXPECT_EQ(open.device.taken(), "showpage\n%%Page: 2 2\n%%BeginPageSetup\nrealmatrix setmatrix\n%%EndPageSetup\n");
    open.device.newPage();
    EXPECT_EQ(open.device.taken(), "showpage\n%%Page: 3 3\n%%BeginPageSetup\nrealmatrix setmatrix\n%%EndPageSetup\n");
    open.device.end();
    EXPECT_EQ(open.device.taken(), "showpage\n%%Trailer\nend\n%%Pages: 3\n%%EOF\n");
}

TEST_F(Document, TheNextOneCountsAfresh)
{
    OpenDevice open;
    open.device.newPage();
    open.device.end();
    open.device.initDevice("unused", nullptr);
    open.device.taken();
    open.device.end();
    EXPECT_NE(open.device.taken().find("%%Pages: 1\n"), std::string::npos);
}

TEST_F(Document, EndOfAClosedDeviceWritesNothing)
{
    TestDevice device(&display);
    device.end();
    EXPECT_EQ(device.taken(), "");
    EXPECT_TRUE(device.isBad());
}

TEST_F(Document, SendWritesTheTextUnchanged)
{
    OpenDevice open;
    open.device.send("1 2 (\\x) 50%");
    open.device.send("");
    open.device.send(nullptr);
    EXPECT_EQ(open.device.taken(), "1 2 (\\x) 50%\n\n");
}

TEST_F(Document, BoundingBoxMayLieAnywhere)
{
    TestDevice device(&display);
    QsdRect bbox{-10, -20, 4000000000U, 900};
    device.initDevice("unused", &bbox);
    EXPECT_EQ(device.taken().find("%!PS-Adobe-2.0 EPSF-2.0\n%%BoundingBox: -10 -38 3999999990 862\n"), 0U);
    device.end();
}

TEST_F(Document, PaperSizeResources)
{
    const struct {
        const char* text;
        unsigned long width;
    } cases[] = {{"612x", 612}, {" +700", 700}, {"1", 1}, {"0", 595}, {"-5", 595}, {"wide", 595}, {"", 595}};
    for (const auto& c : cases) {
        display.setResource("paperWidth", c.text);
        display.setResource("paperHeight", "1000");
        const TestDevice device(&display);
        EXPECT_EQ(device.getPaperWidth(), c.width) << c.text;
        EXPECT_EQ(device.width(), c.width);
        EXPECT_EQ(device.getPaperHeight(), 1000U);
        EXPECT_EQ(device.height(), 1000U);
    }
}

TEST_F(Document, FontScalesAreTheProcesss)
{
    display.setResource("PSFontScale", "150");
    display.setResource("PSEUCFontScale", "60 percent");
    const TestDevice first(&display);
    EXPECT_EQ(QsdPSDevice::_PSFontScale, 150);
    EXPECT_EQ(QsdPSDevice::_EUCFontScale, 60);
    ::setenv("QSDPSFONTSCALE", "200", 1);
    const TestDevice second(&display);
    EXPECT_EQ(QsdPSDevice::_PSFontScale, 200);
    ::unsetenv("QSDPSFONTSCALE");
    EXPECT_EQ(warnings, Messages());
}

TEST_F(Document, BadFontScalesAreReportedAndChangeNothing)
{
    display.setResource("PSFontScale", "0");
    display.setResource("PSEUCFontScale", "none");
    const TestDevice device(&display);
    EXPECT_EQ(QsdPSDevice::_PSFontScale, 100);
    EXPECT_EQ(QsdPSDevice::_EUCFontScale, 80);
    EXPECT_EQ(warnings, (Messages{"Invalid PostScript FontScale: 0. Must be a positive integer.",
                                  "Invalid EUC PostScript FontScale: none. Must be a positive integer."}));
}

TEST_F(Document, EncodingIsTakenFromTheLocale)
{
    OpenDevice open;
    EXPECT_EQ(CurrentEncoding, QsEncodingLatin1);
    QsdGlobalContext::GetInstance().setLocale(QsLocale("ja_JP.SJIS"));
    EXPECT_EQ(CurrentEncoding, QsEncodingLatin1);
    open.device.end();
    open.device.initDevice("unused", nullptr);
    EXPECT_EQ(CurrentEncoding, QsEncodingShiftJIS);
}

TEST_F(Document, UnwritablePathIsReported)
{
    QsdPSDevice device(&display, QsdPSRGB);
    EXPECT_FALSE(device.initDevice("/no/such/folder/file.ps", nullptr));
    EXPECT_TRUE(device.isBad());
    EXPECT_FALSE(device.initDevice(nullptr, nullptr));
    EXPECT_FALSE(device.initDevice("", nullptr));
    EXPECT_EQ(errors, (Messages{"Cannot open the PostScript output file /no/such/folder/file.ps",
                                "Cannot open the PostScript output file ", "Cannot open the PostScript output file "}));
    device.end();
}

TEST_F(Document, NoStreamIsReported)
{
    class None : public TestDevice {
    public:
        using TestDevice::TestDevice;
        std::ostream* openStream(const char*) override { return nullptr; }
    };
    None device(&display);
    EXPECT_FALSE(device.initDevice("name", nullptr));
    EXPECT_EQ(errors, Messages{"Cannot open the PostScript output file name"});
}

TEST_F(Document, GoesToAFile)
{
    const std::string path = (folder / "out.ps").string();
    std::ofstream(path) << std::string(100000, 'x');
    QsdPSDevice device(&display, QsdPSRGB);
    ASSERT_TRUE(device.initDevice(path.c_str(), nullptr));
    device.end();
    EXPECT_FALSE(device.writeFailed());
    std::ifstream file(path);
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(text.find("%!PS-Adobe-2.0\n"), 0U);
    EXPECT_TRUE(text.ends_with("%%EOF\n"));
}

TEST_F(Document, FullDiskIsReportedOnceAtTheEnd)
{
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP();
    }
    QsdPSDevice device(&display, QsdPSRGB);
    ASSERT_TRUE(device.initDevice("/dev/full", nullptr));
    device.newPage();
    EXPECT_TRUE(device.writeFailed());
    EXPECT_EQ(errors, Messages());
    device.end();
    EXPECT_TRUE(device.writeFailed());
    EXPECT_EQ(errors, Messages{"The PostScript output could not be written completely"});
    ASSERT_TRUE(device.initDevice((folder / "out.ps").c_str(), nullptr));
    EXPECT_FALSE(device.writeFailed());
    device.end();
}

TEST_F(Document, AHandlerFindsTheDeviceClosed)
{
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP();
    }
    QsdPSDevice device(&display, QsdPSRGB);
    ASSERT_TRUE(device.initDevice("/dev/full", nullptr));
    QsdSetFatalErrorHandler(
        [](const char*, void* data) {
            auto* const closed = static_cast<QsdPSDevice*>(data);
            EXPECT_TRUE(closed->isBad());
            EXPECT_TRUE(closed->writeFailed());
            closed->end();
        },
        &device);
    device.end();
}

TEST_F(Document, FontMapIsReadOnceItIsFound)
{
    inAProcessOfItsOwn([&] {
        const QsdPSFonts_& registry = *QsdPSFonts_::GetInstance();
        TestDevice device(&display);
        const auto write = [&] {
            device.initDevice("unused", nullptr);
            device.end();
        };
        ::setenv("QSDPATH", folder.c_str(), 1);
        writeFontMap("// QsdPSFonts 1.0\n// Encoding: latin1\nFamily one\nNormalName One\n");
        write();
        EXPECT_NE(registry.getPSFontNames(QsEncodingLatin1, "one"), nullptr);
        writeFontMap("// QsdPSFonts 1.0\n// Encoding: latin1\nFamily two\nNormalName Two\n");
        write();
        EXPECT_EQ(registry.getPSFontNames(QsEncodingLatin1, "two"), nullptr);
        EXPECT_EQ(warnings, Messages());
    });
}

TEST_F(Document, BadFontMapIsReportedAndNotTriedAgain)
{
    inAProcessOfItsOwn([&] {
        ::setenv("QSDPATH", folder.c_str(), 1);
        writeFontMap("nonsense");
        TestDevice device(&display);
        device.initDevice("unused", nullptr);
        device.end();
        EXPECT_EQ(warnings, (Messages{"QsdPSFonts::readHeader Invalid header",
                                      "Failed to load " + (folder / "psfonts" / "fontname.qsd").string()}));
        device.initDevice("unused", nullptr);
        device.end();
        EXPECT_EQ(warnings.size(), 2U);
    });
}

TEST_F(Document, PrefixIsKeptForOldPrograms)
{
    QsdPSDevice::SetPrefix("anything");
    EXPECT_EQ(QsdPSDevice::GetPrefix(), nullptr);
}

/// Its stream is closed by a function of the test's.
class ClosingDevice : public TestDevice {
public:
    using TestDevice::TestDevice;
    void closeStream(std::ostream* stream) override
    {
        closed.push_back(stream);
        if (onClose) {
            onClose();
        }
    }

    std::vector<std::ostream*> closed;
    std::function<void()> onClose;
};

TEST_F(Document, AnOverrideOfCloseStreamMayStillSend)
{
    ClosingDevice device(&display);
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    device.onClose = [&] {
        EXPECT_FALSE(device.isBad());
        device.send("% the last word");
        device.setCurrentPalette(palette.get());
        const unsigned char data[] = {0xA5};
        device.writeImage(&display, 1, 8, 1, data, 1);
        device.end();
    };
    device.initDevice("unused", nullptr);
    device.setCurrentPalette(palette.get());
    device.taken();
    device.end();
    EXPECT_EQ(device.taken(), "showpage\n%%Trailer\nend\n%%Pages: 1\n%%EOF\n% the last word\nV#~>\n");
    EXPECT_EQ(device.closed.size(), 1U);
    EXPECT_NE(device.closed.at(0), nullptr);
    EXPECT_TRUE(device.isBad());
    device.send("nothing");
    device.getEncoder()->putByte(1);
    device.getEncoder()->endData();
    EXPECT_EQ(device.taken(), "");
    EXPECT_EQ(errors, Messages());
}

TEST_F(Document, AnOverrideOfCloseStreamMayThrow)
{
    ClosingDevice device(&display);
    device.onClose = [] { throw std::runtime_error("no"); };
    device.initDevice("unused", nullptr);
    EXPECT_THROW(device.end(), std::runtime_error);
    EXPECT_TRUE(device.isBad());
    device.onClose = nullptr;
    EXPECT_TRUE(device.initDevice("unused", nullptr));
    device.end();
    EXPECT_EQ(device.closed.size(), 2U);
}

TEST_F(Document, AnOverrideOfCloseStreamMayBeginTheNext)
{
    ClosingDevice device(&display);
    device.onClose = [&] {
        device.onClose = nullptr;
        device.initDevice("unused", nullptr);
    };
    device.initDevice("unused", nullptr);
    device.end();
    EXPECT_FALSE(device.isBad());
    device.send("% the next");
    device.end();
    EXPECT_TRUE(device.taken().ends_with(" gsave\n% the next\nshowpage\n%%Trailer\nend\n%%Pages: 1\n%%EOF\n"));
    EXPECT_EQ(device.closed.size(), 2U);
}

TEST_F(Document, AStreamThatFailedToOpenIsClosed)
{
    class Failing : public ClosingDevice {
    public:
        using ClosingDevice::ClosingDevice;
        std::ostream* openStream(const char*) override
        {
            _text.setstate(state);
            return &_text;
        }
        [[nodiscard]] const std::ostream* opened() const { return &_text; }

        std::ios_base::iostate state = std::ios_base::failbit;
    };
    for (const std::ios_base::iostate state : {std::ios_base::failbit, std::ios_base::badbit}) {
        Failing device(&display);
        device.state = state;
        EXPECT_FALSE(device.initDevice("name", nullptr));
        EXPECT_EQ(device.closed, std::vector<std::ostream*>{const_cast<std::ostream*>(device.opened())});
        EXPECT_TRUE(device.isBad());
        device.end();
        EXPECT_EQ(device.closed.size(), 1U);
    }
    EXPECT_EQ(errors, Messages(2, "Cannot open the PostScript output file name"));
}

} // namespace
