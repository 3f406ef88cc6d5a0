// What is promised when the temporary file that pages wait in cannot be made or takes no more: the document has failed,
// that is told once, and the next document is whole.
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "tests/unit/faults/CapturedDevice.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
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
            this->drawDocument();
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

TYPED_TEST(TemporaryFiles, WithoutTheirFolderTheDocumentIsWholeOrHasFailed)
{
    const std::string expected = this->drawDocument();
    const char* const folder = std::getenv("TMPDIR");
    const std::string before = folder == nullptr ? "" : folder;
    setenv("TMPDIR", "/no/such/folder", 1);
    const std::string text = this->drawDocument();
    if (folder == nullptr) {
        unsetenv("TMPDIR");
    } else {
        setenv("TMPDIR", before.c_str(), 1);
    }
    EXPECT_EQ(this->device.writeFailed(), text != expected);
    EXPECT_EQ(this->reports, this->device.writeFailed() ? 1 : 0);
}

} // namespace
