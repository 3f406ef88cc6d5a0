// Font files that are missing, unreadable, endless or huge: they are told of, and the document stays in order.
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSFonts_.h"
#include "ps/QsdPSPrintDevice.h"
#include "tests/structure/structure_check.h"
#include "tests/unit/faults/CapturedDevice.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <concepts>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// A folder of a test's own that goes with it.
class Folder {
public:
    Folder() : _path(fs::path(::testing::TempDir()) / ("dravonset-fonts-" + std::to_string(::getpid())))
    {
        fs::create_directories(_path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { fs::remove_all(_path); }

    [[nodiscard]] std::string file(const char* name) const { return (_path / name).string(); }
    /// Makes a file of `content` and, behind it, as many zero bytes as make it `size` bytes long.
    [[nodiscard]] std::string file(const char* name, const std::string& content, std::uintmax_t size = 0) const
    {
        const std::string path = file(name);
        std::ofstream(path, std::ios_base::binary) << content;
        if (size != 0) {
            fs::resize_file(path, size);
        }
        return path;
    }

private:
    fs::path _path;
};

constexpr std::uintmax_t Huge = std::uintmax_t{100} << 20;

/// Kilobytes that the process has needed at most.
long peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// Whether `work` makes the memory of a process of its own grow by less than a few megabytes, and returns true. The
/// process does `first` before, as it takes the pages of programs and libraries for its own when it first uses them.
template <class First, class Work>
bool staysSmall(First first, Work work)
{
    constexpr long Most = 6 * 1024;
    const pid_t child = fork();
    if (child == 0) {
        bool done = first();
        const long before = peakMemory();
        done = work() && done;
        _exit(done && peakMemory() - before < Most ? 0 : 1);
    }
    int status = 0;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Keeps the warnings of a test.
class Warned : public ::testing::Test {
protected:
    Warned()
    {
        QsdSetWarningHandler(
            [](const char* message, void* list) { static_cast<std::vector<std::string>*>(list)->push_back(message); },
            &warnings);
        QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &errors);
    }
    ~Warned() override
    {
        QsdSetWarningHandler(nullptr, nullptr);
        QsdSetFatalErrorHandler(nullptr, nullptr);
    }

    Folder folder;
    std::vector<std::string> warnings;
    int errors = 0;
};

template <class Device>
class FontFiles : public Warned {
protected:
    /// Draws a text in a font of which `path` is the file.
    template <class AnyDevice>
    bool draw(AnyDevice& device, const std::string& fileName, const std::string& path)
    {
        QsdPSFonts_::GetInstance()->addOrReplace(new QsdPSFontNames_(QsEncodingLatin1, "brought", "Brought", nullptr,
                                                                     nullptr, nullptr, path.c_str(), nullptr, nullptr,
                                                                     nullptr),
                                                 false);
        const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        palette->setFont(QsdHandle<QsdFont>::Adopt(new QsdFont("brought", QsdFontPlain, 12)).get());
        if (!device.initDevice(fileName.c_str(), nullptr)) {
            return false;
        }
        device.drawString(palette.get(), {20, 20}, "text", 4, QsdPositionNone);
        device.end();
        return !device.writeFailed();
    }
    /// The same in memory.
    std::string documentWith(const std::string& path)
    {
        CapturedDevice<Device> device(&display, QsdPSRGB);
        EXPECT_TRUE(draw(device, "unused", path));
        return device.text();
    }

    static constexpr bool Prints = std::derived_from<Device, QsdPSPrintDevice>;

    QsdMemoryDisplay display;
};

using Devices =
    ::testing::Types<QsdPSDevice, QsdPSPrintDevice, QsdPSBulkDevice<QsdPSDevice>, QsdPSBulkDevice<QsdPSPrintDevice>>;
TYPED_TEST_SUITE(FontFiles, Devices);

TYPED_TEST(FontFiles, ThoseThatCannotBeOpenedAreLeftOut)
{
    const std::string pipe = this->folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string secret = this->folder.file("secret", "%!PS-AdobeFont-1.0: Secret\n");
    fs::permissions(secret, fs::perms::none);
    const std::string expected = this->documentWith(this->folder.file("absent"));
    ASSERT_NE(expected.find("(text)"), std::string::npos);
    this->warnings.clear();
    for (const std::string& path :
         {this->folder.file(""), this->folder.file("absent"), pipe, std::string("/dev/zero"), std::string(), secret}) {
        if (path == secret && ::access(secret.c_str(), R_OK) == 0) {
            continue; // nothing is secret to this user
        }
        EXPECT_EQ(this->documentWith(path), expected) << path;
        EXPECT_EQ(this->warnings, std::vector<std::string>{"Couldn't open font file " + path});
        this->warnings.clear();
    }
}

TYPED_TEST(FontFiles, OneThatVanishesIsLeftOut)
{
    const std::string font = this->folder.file("font", "%!PS-AdobeFont-1.0: Brought\n");
    const std::string map = this->folder.file("map", "// QsdPSFonts 1.0\n// Encoding: ISO8859-1\nFamily brought\n"
                                                     "NormalName Brought\nNormalFontFile " +
                                                         font + "\n");
    ASSERT_TRUE(QsdPSFonts_::GetInstance()->load(map.c_str(), QsEncodingLatin1));
    fs::remove(font);
    const std::string text = this->documentWith(font);
    EXPECT_EQ(text.find("%%BeginFont"), std::string::npos);
    EXPECT_EQ(text.find("%%BeginResource: font"), std::string::npos);
    EXPECT_EQ(this->warnings, std::vector<std::string>{"Couldn't open font file " + font});
}

// The memory of a process looks like a file, but its first page cannot be read.
TYPED_TEST(FontFiles, OneThatCannotBeReadIsTold)
{
    const std::string path = "/proc/self/mem";
    if (!fs::exists(path)) {
        GTEST_SKIP() << "no file at hand that cannot be read";
    }
    const std::string text = this->documentWith(path);
    EXPECT_EQ(this->warnings, std::vector<std::string>{"Couldn't read font file " + path});
    if constexpr (TestFixture::Prints) {
        EXPECT_EQ(text, this->documentWith(this->folder.file("absent")));
    } else {
        EXPECT_NE(text.find("\n%%BeginFont: Brought\n\n%%EndFont\n"), std::string::npos);
    }
}

TYPED_TEST(FontFiles, ThoseThatAreNoFontsStayOutOfPrintedDocuments)
{
    const struct {
        std::string content;
        const char* fault;
    } files[] = {
        {std::string(), "it is no Type 1 font"},
        {"%!font", "it is no Type 1 font"},
        {"%!PS-AdobeFont-1.0: Brought\n", "it is cut short"},
        {"%!PS-AdobeFont-1.0: Brought\n%%Page: 1 1\n", "it has structuring comments of its own"},
        {"%!PS-AdobeFont-1.0: Brought\n" + std::string(300, 'x'), "it has a word that is longer than a line may be"},
        {std::string(300000, 'x'), "it is no Type 1 font"},
        {std::string("\0\xff\r\n\r", 5), "it is no Type 1 font"}};
    const std::string without = this->documentWith(this->folder.file("absent"));
    this->warnings.clear();
    for (const auto& file : files) {
        const std::string path = this->folder.file("font", file.content);
        const std::string text = this->documentWith(path);
        if constexpr (TestFixture::Prints) {
            EXPECT_EQ(text, without);
            EXPECT_EQ(structureFaults(text), std::vector<std::string>());
            EXPECT_EQ(this->warnings, std::vector<std::string>{"Left out font file " + path + ": " + file.fault});
        } else {
            EXPECT_NE(text.find("\n%%BeginFont: Brought\n" + file.content + "\n%%EndFont\n"), std::string::npos);
            EXPECT_EQ(this->warnings, std::vector<std::string>());
        }
        this->warnings.clear();
    }
}

TYPED_TEST(FontFiles, FontsAreBrought)
{
    const std::string content =
        "%!PS-AdobeFont-1.0: Brought\n8 dict begin\n/FontName /Brought def\ncurrentdict end definefont pop\n";
    const std::string text = this->documentWith(this->folder.file("font", content));
    if constexpr (TestFixture::Prints) {
        EXPECT_NE(text.find("%%BeginResource: font Brought\n" + content + "%%EndResource\n"), std::string::npos);
        EXPECT_EQ(structureFaults(text), std::vector<std::string>());
    } else {
        EXPECT_NE(text.find("\n%%BeginFont: Brought\n" + content + "\n%%EndFont\n"), std::string::npos);
    }
    EXPECT_EQ(this->warnings, std::vector<std::string>());
}

TYPED_TEST(FontFiles, HugeOnesTakeNoMemory)
{
    const std::string start = "%!PS-AdobeFont-1.0: Brought\n";
    const std::string font =
        TestFixture::Prints ? this->folder.file("font", start) : this->folder.file("font", start, Huge);
    if (TestFixture::Prints) {
        // Written in pieces, so that the process is small itself when it is measured.
        std::ofstream file(font, std::ios_base::app);
        const std::string blanks(std::size_t{64} * 1024, ' ');
        for (long size = 0; size < static_cast<long>(Huge / 4); size += static_cast<long>(blanks.size())) {
            file << blanks;
        }
    }
    TypeParam device(&this->display, QsdPSRGB);
    const std::string small = this->folder.file("small", "%!PS-AdobeFont-1.0: Brought\n");
    EXPECT_TRUE(staysSmall([&] { return this->draw(device, "/dev/null", small); },
                           [&] { return this->draw(device, "/dev/null", font); }));
}

class FontMaps : public Warned {
protected:
    bool load(const std::string& path) { return registry.load(path.c_str(), QsEncodingLatin1); }

    QsdPSFonts_ registry{20};
};

const std::string Header = "// QsdPSFonts 1.0\n// Encoding: ISO8859-1\n";

TEST_F(FontMaps, DevicesAreNotLoaded)
{
    EXPECT_FALSE(load("/dev/zero"));
    EXPECT_FALSE(load("/dev/null"));
    EXPECT_EQ(registry.count(), 14U);
}

TEST_F(FontMaps, PipesAreLoaded)
{
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(pipe) << Header << "Family piped\n"; });
    EXPECT_TRUE(load(pipe));
    writer.join();
    EXPECT_NE(registry.getPSFontNames(QsEncodingLatin1, "piped"), nullptr);
}

TEST_F(FontMaps, LongLinesTakeNoMemory)
{
    for (const char* const beginning : {"", "# ", "Family ", "Family \"", "Family one\nNormalName "}) {
        const std::string map = folder.file("map", Header + beginning, Huge / 10);
        const std::string small = folder.file("small", Header);
        EXPECT_TRUE(staysSmall([&] { return load(small); },
                               [&] {
                                   load(map);
                                   return registry.getPSFontNames(QsEncodingLatin1, "times") != nullptr;
                               }))
            << beginning;
    }
}

/// Gives so many bytes and then fails.
class BrokenBuffer : public std::streambuf {
public:
    BrokenBuffer(std::string text, std::size_t good) : _text(std::move(text))
    {
        setg(_text.data(), _text.data(), _text.data() + good);
    }

protected:
    int_type underflow() override { throw std::ios_base::failure("broken"); }

private:
    std::string _text;
};

TEST_F(FontMaps, OnesThatBreakOffEnterNothingCutInTwo)
{
    const std::string text = Header + "Family one\nNormalName Normal\nBoldName \"Bold\"\n";
    for (std::size_t good = 0; good < text.size(); ++good) {
        QsdPSFonts_ fresh(20);
        BrokenBuffer buffer(text, good);
        std::istream stream(&buffer);
        EXPECT_FALSE(fresh.read(stream, "")) << good;
        for (unsigned i = 14; i < fresh.count(); ++i) {
            const QsdPSFontNames_* const names = fresh.getPSFontNames(QsEncodingLatin1, "one");
            ASSERT_NE(names, nullptr) << good;
            EXPECT_TRUE(names->normalName() == nullptr || names->normalName() == std::string("Normal"));
            EXPECT_TRUE(names->boldName() == nullptr || names->boldName() == std::string("Bold"));
        }
    }
}

} // namespace
