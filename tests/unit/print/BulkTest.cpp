#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "tests/structure/structure_check.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>

namespace {

template <class Device>
void drawLines(Device& device, QsdDisplay& display, int count)
{
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    for (int i = 0; i < count; ++i) {
        device.drawLine(palette.get(), {i, 0}, {0, i});
    }
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Bulk : public ::testing::Test {
protected:
    Bulk()
    {
        QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &reports);
    }
    ~Bulk() override
    {
        QsdSetFatalErrorHandler(nullptr, nullptr);
        std::filesystem::remove(path);
    }

    const std::filesystem::path path =
        std::filesystem::path(::testing::TempDir()) /
        (std::string("dravonset-bulk-") + ::testing::UnitTest::GetInstance()->current_test_info()->name());
    QsdMemoryDisplay display;
    int reports = 0;
};

TEST_F(Bulk, WritesTheSameBytes)
{
    for (const int lines : {0, 10, 20000}) {
        QsdPSDevice plain(&display, QsdPSRGB);
        ASSERT_TRUE(plain.initDevice(path.c_str(), nullptr));
        drawLines(plain, display, lines);
        plain.end();
        const std::string expected = contentOf(path);

        QsdPSBulkDevice<QsdPSDevice> bulk(&display, QsdPSRGB);
        ASSERT_TRUE(bulk.initDevice(path.c_str(), nullptr));
        drawLines(bulk, display, lines);
        // Small documents stay in the block until the end.
        EXPECT_EQ(std::filesystem::file_size(path) == 0, lines < 20000);
        bulk.end();
        EXPECT_FALSE(bulk.writeFailed());
        EXPECT_EQ(contentOf(path), expected);

        std::ostringstream memory;
        bulk.setTarget(&memory);
        ASSERT_TRUE(bulk.initDevice("unused", nullptr));
        drawLines(bulk, display, lines);
        bulk.end();
        EXPECT_EQ(memory.str(), expected);
    }
    EXPECT_EQ(reports, 0);
}

TEST_F(Bulk, CarriesDocumentsForPrinting)
{
    std::ostringstream memory;
    QsdPSBulkDevice<QsdPSPrintDevice> device(&display, QsdPSRGB);
    device.setTarget(&memory);
    for (int i = 0; i < 2; ++i) {
        memory.str(std::string());
        ASSERT_TRUE(device.initDevice("unused", nullptr));
        drawLines(device, display, 5000);
        device.end();
        EXPECT_TRUE(structureFaults(memory.str()).empty());
    }
}

TEST_F(Bulk, ReportsAFullDiskOnce)
{
    for (const int lines : {10, 20000}) {
        reports = 0;
        QsdPSBulkDevice<QsdPSDevice> device(&display, QsdPSRGB);
        ASSERT_TRUE(device.initDevice("/dev/full", nullptr));
        drawLines(device, display, lines);
        device.end();
        EXPECT_TRUE(device.writeFailed());
        EXPECT_EQ(reports, 1);
    }
}

TEST_F(Bulk, ReportsAFileThatCannotBeOpened)
{
    QsdPSBulkDevice<QsdPSDevice> device(&display, QsdPSRGB);
    EXPECT_FALSE(device.initDevice("/no/such/folder/file", nullptr));
    EXPECT_FALSE(device.initDevice(nullptr, nullptr));
    EXPECT_EQ(reports, 2);
}

TEST_F(Bulk, WritesWhatItHoldsWhenItIsDropped)
{
    {
        QsdPSBulkDevice<QsdPSDevice> device(&display, QsdPSRGB);
        ASSERT_TRUE(device.initDevice(path.c_str(), nullptr));
    }
    EXPECT_EQ(contentOf(path).substr(0, 11), "%!PS-Adobe-");
}

TEST_F(Bulk, GoesThroughAPipe)
{
    std::FILE* const pipe = popen(("cat >" + path.string()).c_str(), "w");
    ASSERT_NE(pipe, nullptr);
    class PipeBuffer : public std::streambuf {
    public:
        explicit PipeBuffer(std::FILE* file) : _file(file) {}

    protected:
        std::streamsize xsputn(const char* text, std::streamsize count) override
        {
            return static_cast<std::streamsize>(std::fwrite(text, 1, static_cast<std::size_t>(count), _file));
        }

    private:
        std::FILE* _file;
    };
    PipeBuffer buffer(pipe);
    std::ostream stream(&buffer);
    QsdPSBulkDevice<QsdPSDevice> device(&display, QsdPSRGB);
    device.setTarget(&stream);
    ASSERT_TRUE(device.initDevice("unused", nullptr));
    drawLines(device, display, 20000);
    device.end();
    EXPECT_FALSE(device.writeFailed());
    pclose(pipe);
    const std::string text = contentOf(path);
    EXPECT_EQ(text.substr(text.size() - 6), "%%EOF\n");
}

} // namespace
