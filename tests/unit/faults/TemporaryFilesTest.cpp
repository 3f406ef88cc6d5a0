// What is promised when the temporary file that pages wait in cannot be made or takes no more: the document has failed,
// that is told once, and the next document is whole.
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "ps/QsdPSTemporaryFile_p.h"
#include "tests/unit/faults/CapturedDevice.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/resource.h>

namespace {

/// Holds the process to less of something for as long as it lives.
class Limit {
public:
    Limit(__rlimit_resource resource, rlim_t most) : _resource(resource)
    {
        getrlimit(_resource, &_before);
        rlimit limited = _before;
        limited.rlim_cur = most;
        setrlimit(_resource, &limited);
    }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;
    ~Limit() { setrlimit(_resource, &_before); }

private:
    __rlimit_resource _resource;
    rlimit _before{};
};

template <class Device>
class TemporaryFiles : public ::testing::Test {
protected:
    TemporaryFiles()
    {
        QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &reports);
        std::signal(SIGXFSZ, SIG_IGN);
    }
    ~TemporaryFiles() override { QsdSetFatalErrorHandler(nullptr, nullptr); }

    /// A document of two pages, larger than what is kept in memory.
    std::string drawDocument()
    {
        device.initDevice("unused", nullptr);
        const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
        for (int i = 0; i < 20000; ++i) {
            if (i == 10000) {
                device.newPage();
            }
            device.drawLine(palette.get(), {i, 0}, {0, i});
        }
        device.end();
        return device.text();
    }

    QsdMemoryDisplay display;
    CapturedDevice<Device> device{&display, QsdPSRGB};
    int reports = 0;
};

using Devices = ::testing::Types<QsdPSPrintDevice, QsdPSBulkDevice<QsdPSPrintDevice>>;
TYPED_TEST_SUITE(TemporaryFiles, Devices);

TYPED_TEST(TemporaryFiles, OneThatIsFullFailsTheDocument)
{
    const std::string expected = this->drawDocument();
    ASSERT_FALSE(this->device.writeFailed());
    // Before the first block, within it, within the second, and while the last is still held.
    for (const rlim_t most : {0, 1000, 100000, 262143}) {
        this->reports = 0;
        {
            const Limit limit(RLIMIT_FSIZE, most);
            EXPECT_EQ(this->drawDocument(), "") << "a document without its pages";
        }
        EXPECT_TRUE(this->device.writeFailed()) << most;
        EXPECT_EQ(this->reports, 1) << most;
        EXPECT_EQ(this->drawDocument(), expected);
        EXPECT_FALSE(this->device.writeFailed());
        EXPECT_EQ(this->reports, 1);
    }
}

TYPED_TEST(TemporaryFiles, OneThatCannotBeMadeFailsTheDocument)
{
    const std::string expected = this->drawDocument();
    {
        const Limit limit(RLIMIT_NOFILE, 0);
        this->drawDocument();
    }
    EXPECT_TRUE(this->device.writeFailed());
    EXPECT_EQ(this->reports, 1);
    EXPECT_EQ(this->drawDocument(), expected);
    EXPECT_FALSE(this->device.writeFailed());
}

/// Sets the folder for temporary files for as long as it lives.
class NamedFolder {
public:
    explicit NamedFolder(const std::string& folder)
    {
        if (const char* const before = std::getenv("TMPDIR")) {
            _before = before;
        }
        setenv("TMPDIR", folder.c_str(), 1);
    }
    NamedFolder(const NamedFolder&) = delete;
    NamedFolder& operator=(const NamedFolder&) = delete;
    ~NamedFolder()
    {
        if (_before) {
            setenv("TMPDIR", _before->c_str(), 1);
        } else {
            unsetenv("TMPDIR");
        }
    }

private:
    std::optional<std::string> _before;
};

TYPED_TEST(TemporaryFiles, WithoutTheFolderThatIsNamedTheSystemsOwnServes)
{
    const std::string expected = this->drawDocument();
    const NamedFolder folder("/no/such/folder");
    EXPECT_EQ(this->drawDocument(), expected);
    EXPECT_FALSE(this->device.writeFailed());
    EXPECT_EQ(this->reports, 0);
}

TEST(TemporaryFile, LiesInTheFolderThatIsNamedAndIsNotSeen)
{
    const std::filesystem::path folder = std::filesystem::path(::testing::TempDir()) / "dravonset-temporary";
    std::filesystem::create_directory(folder);
    {
        const NamedFolder named(folder.string());
        std::FILE* const file = QsdPSOpenTemporaryFile();
        ASSERT_NE(file, nullptr);
        const std::filesystem::path link = "/proc/self/fd/" + std::to_string(fileno(file));
        EXPECT_EQ(std::filesystem::read_symlink(link).string().find((folder / "dravonset-").string()), 0U);
        EXPECT_TRUE(std::filesystem::is_empty(folder));
        std::fclose(file);
    }
    std::filesystem::remove(folder);
}

} // namespace
