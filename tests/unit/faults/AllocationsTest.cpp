// What is promised when memory runs out at any place: nothing breaks, nothing leaks, what stands in the document is in
// order, the program is told, and the next document is whole.
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "tests/structure/structure_check.h"
#include "tests/unit/faults/CapturedDevice.h"
#include "tests/unit/faults/FailingMemory.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"
#include "toolkit/graphics/QsdColorPattern.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"
#ifdef DRAVONSET_HAVE_ZLIB
#include "toolkit/zlib/QsdFlateEncoder.h"
#endif

#include <algorithm>
#include <concepts>
#include <gtest/gtest.h>
#include <memory>
#include <new>
#include <set>
#include <sstream>
#include <string>

namespace {

/// How the samples of a document are written.
struct Manner {
    unsigned long level;
    QsdPSColorModel model;
    QsdPostScriptEncoder* (*makeEncoder)(); ///< null: the level's own
    bool withLarge = false;                 ///< whether the document is larger than what is kept in memory
};

template <class Encoder>
QsdPostScriptEncoder* make()
{
    return new Encoder(nullptr);
}

constexpr Manner Manners[] = {
    {1, QsdPSRGB, make<QsdLZWEncoder>}, // not to be had at this level
    {2, QsdPSGrey, nullptr},
    {2, QsdPSRGB, make<QsdLZWEncoder>},
    {2, QsdPSRGB, make<QsdRunLengthEncoder>},
    {3, QsdPSRGB, make<QsdASCII85Encoder>, true},
#ifdef DRAVONSET_HAVE_ZLIB
    {2, QsdPSRGB, make<QsdFlateEncoder>},
    {3, QsdPSRGB, make<QsdFlateEncoder>},
#endif
};

/// What is drawn; made while there is memory.
struct Scene {
    explicit Scene(const Manner& manner)
    {
        QsdRGBBitmapData data(9, 7);
        for (std::uint32_t i = 0; i < 63; ++i) {
            data.setPixel(i % 9, i / 9,
                          {static_cast<std::uint8_t>(4 * i), static_cast<std::uint8_t>(77 * i),
                           static_cast<std::uint8_t>(i * i)});
        }
        bitmap = std::make_unique<QsdBitmap>(&display, data);
        masked = std::make_unique<QsdBitmap>(&display, data);
        if (manner.withLarge) {
            QsdRGBBitmapData manyColors(160, 160);
            for (std::uint32_t i = 0; i < 25600; ++i) {
                const std::uint32_t noise = i * i * 2654435761U;
                manyColors.setPixel(i % 160, i / 160,
                                    {static_cast<std::uint8_t>(noise >> 8), static_cast<std::uint8_t>(noise >> 16),
                                     static_cast<std::uint8_t>(noise >> 24)});
            }
            large = std::make_unique<QsdBitmap>(&display, manyColors);
        }
        const unsigned char bits[] = {0xF0, 0x80, 0xAA, 0x00, 0xFF, 0x80, 0, 0, 0x13, 0x80, 0x80, 0x80, 0x01, 0x00};
        masked->setMask(QsdBitmap::FromBits(&display, 9, 7, bits));
        oneBit = QsdBitmap::FromBits(&display, 9, 7, bits);
        pattern = QsdHandle<QsdPattern>::Adopt(new QsdPattern(9, 7, bits));
        colorPattern = QsdHandle<QsdColorPattern>::Adopt(display.createColorPattern(data));
        bold = QsdHandle<QsdFont>::Adopt(new QsdFont("a family of a long and (strange) name", QsdFontBold, 14));
        palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    }

    QsdMemoryDisplay display;
    std::unique_ptr<QsdBitmap> bitmap;
    std::unique_ptr<QsdBitmap> large; ///< null for none
    std::unique_ptr<QsdBitmap> masked;
    std::unique_ptr<QsdBitmap> oneBit;
    QsdHandle<QsdPattern> pattern;
    QsdHandle<QsdColorPattern> colorPattern;
    QsdHandle<QsdFont> bold;
    QsdHandle<QsdPalette> palette;
};

void drawTexts(const QsdPort& port, const Scene& scene)
{
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(scene.palette.get()));
    port.drawString(palette.get(), {20, 20}, "text", 4, QsdPositionCenter);
    palette->setFont(scene.bold.get());
    port.drawIString(palette.get(), {20, 40}, "text on a ground", 16, QsdPositionNone);
    const QsdRegion clip(QsdRect{0, 0, 70, 70});
    port.drawTransformedString(palette.get(), "clipped", 7, QsdTransformer(1, 1, -1, 1, 50, 50), &clip);
}

void drawFills(const QsdPort& port, const Scene& scene)
{
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(scene.palette.get()));
    palette->setPattern(scene.pattern.get());
    port.fillRectangle(palette.get(), {5, 5, 20, 20});
    palette->setColorPattern(scene.colorPattern.get());
    palette->setFillStyle(QsdFillColorPattern);
    port.fillArc(palette.get(), {5, 35, 20, 20}, 0, 90);
}

void drawBitmaps(const QsdPSDevice& device, const Scene& scene)
{
    const QsdPalette* const palette = scene.palette.get();
    const QsdRect area{0, 0, 9, 7};
    const QsdRect dest{100, 100, 90, 70};
    const QsdRect clip{90, 90, 50, 50};
    for (const QsdBitmap* const bitmap : {scene.bitmap.get(), scene.masked.get(), scene.oneBit.get()}) {
        device.drawBitmap(palette, bitmap, area, {10, 10});
        device.drawTransparentBitmap(palette, bitmap, area, {30, 10});
        device.stretchBitmap(palette, dest, bitmap, &clip);
        device.stretchTransparentBitmap(palette, dest, bitmap, &clip);
    }
}

/// A document with something of every kind, to the last but end().
void drawDocument(QsdPSDevice& device, const Scene& scene, const Manner& manner)
{
    device.setPostScriptLevel(manner.level);
    device.setColorModel(manner.model);
    if (manner.makeEncoder != nullptr) {
        device.setEncoder(manner.makeEncoder());
    }
    QsdRect paper{0, 0, 300, 300};
    device.initDevice("unused", &paper);
    device.drawLine(scene.palette.get(), {0, 0}, {10, 10});
    QsdRegion clip(QsdRect{0, 0, 200, 200});
    clip.unite(QsdRect{100, 100, 200, 200});
    device.clip(&clip);
    device.send("% a remark");
    drawTexts(device, scene);
    drawFills(device, scene);
    device.newPage();
    drawBitmaps(device, scene);
    if (scene.large != nullptr) {
        device.drawBitmap(scene.palette.get(), scene.large.get(), {0, 0, 160, 160}, {50, 50});
    }
    drawTexts(device, scene);
}

/// The lines of a document besides its structuring comments, and besides the one that tells how much is defined.
std::set<std::string> linesOf(const std::string& text)
{
    std::set<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.compare(0, 2, "%%") != 0 && line.compare(0, 2, "%!") != 0 &&
            line.find(" dict def") == std::string::npos) {
            lines.insert(line);
        }
    }
    return lines;
}

/// How many save levels are open behind the last drawing; `begin` is where the first drawing is that counts.
int openSaveLevels(const std::string& text, std::size_t begin)
{
    std::istringstream stream(text.substr(begin));
    int open = 0;
    for (std::string word; stream >> word;) {
        const bool atOperand = word.size() < 24 && (word.compare(0, 2, "G[") == 0 || word.compare(0, 2, "G/") == 0);
        open += word == "gsave" || word == "G" || word == "strip" || atOperand ? 1 : 0;
        open -= word == "g" || word == "rc" ? 1 : 0;
    }
    return open;
}

template <class Device>
class Allocations : public ::testing::Test {
protected:
    Allocations()
    {
        QsdSetFatalErrorHandler([](const char*, void* count) { ++*static_cast<int*>(count); }, &reports);
    }
    ~Allocations() override { QsdSetFatalErrorHandler(nullptr, nullptr); }

    /// Draws the document with memory for so many allocations. False when that is enough.
    bool drawWith(unsigned long allowed, FailingMemory::Failing failing, const Manner& manner)
    {
        reports = 0;
        Scene scene(manner);
        CapturedDevice<Device> device(&scene.display, QsdPSRGB);
        bool failed = false;
        bool thrown = false;
        {
            const FailingMemory memory(allowed, failing);
            try {
                drawDocument(device, scene, manner);
                device.end();
            } catch (const std::bad_alloc&) {
                thrown = true;
            }
            failed = memory.hasFailed();
        }
        const bool ended = device.isBad();
        if (!ended) {
            device.drawLine(scene.palette.get(), {0, 0}, {10, 10});
            device.end();
        }
        EXPECT_TRUE(thrown || device.writeFailed() || !failed);
        // A document that broke off when it began was told of by the exception.
        EXPECT_EQ(reports, device.writeFailed() && !(thrown && ended) ? 1 : 0);
        if (const std::string text = device.text(); !text.empty()) {
            EXPECT_TRUE(device.writeFailed() || !(failed && ended));
            if (!device.writeFailed()) {
                checkOrder(text);
            }
        }
        drawDocument(device, scene, manner);
        device.end();
        EXPECT_FALSE(device.writeFailed());
        EXPECT_TRUE(device.text() == expected);
        return failed;
    }

    /// Whether what was written before and behind an operation that broke off is in order.
    void checkOrder(const std::string& text)
    {
        for (const std::string& line : linesOf(text)) {
            EXPECT_TRUE(expectedLines.count(line) != 0 || isUnfilledPath(line)) << line;
        }
        // What stays open for the pages that follow each other, and for a page of its own.
        if constexpr (!std::derived_from<Device, QsdPSPrintDevice>) {
            EXPECT_EQ(openSaveLevels(text, text.find("%%EndPageSetup")), 1);
        } else {
            EXPECT_EQ(openSaveLevels(text, text.rfind("%%EndPageSetup")), 0);
            for (const std::string& fault : structureFaults(text)) {
                ADD_FAILURE() << fault;
            }
        }
    }

    /// Whether a line is an expected one as far as the path of a fill goes.
    [[nodiscard]] bool isUnfilledPath(const std::string& line) const
    {
        const auto next = expectedLines.lower_bound(line);
        return line.ends_with(" rect ") && next != expectedLines.end() && next->starts_with(line);
    }

    void drawWhole(const Manner& manner)
    {
        Scene scene(manner);
        CapturedDevice<Device> device(&scene.display, QsdPSRGB);
        drawDocument(device, scene, manner);
        device.end();
        expected = device.text();
        expectedLines = linesOf(expected);
    }

    int reports = 0;
    std::string expected;
    std::set<std::string> expectedLines;
};

using Devices =
    ::testing::Types<QsdPSDevice, QsdPSPrintDevice, QsdPSBulkDevice<QsdPSDevice>, QsdPSBulkDevice<QsdPSPrintDevice>>;
TYPED_TEST_SUITE(Allocations, Devices);

TYPED_TEST(Allocations, AnyThatFailsIsTold)
{
    for (const Manner& manner : Manners) {
        this->drawWhole(manner);
        for (const auto failing : {FailingMemory::Once, FailingMemory::FromThenOn}) {
            unsigned long allowed = 0;
            const long blocks = FailingMemory::LiveBlocks();
            while (this->drawWith(allowed, failing, manner) && !this->HasFailure()) {
                ASSERT_EQ(FailingMemory::LiveBlocks(), blocks) << allowed;
                ++allowed;
            }
            ASSERT_FALSE(this->HasFailure()) << "level " << manner.level << " allocation " << allowed;
            EXPECT_GT(allowed, 40U);
        }
    }
}

TYPED_TEST(Allocations, DevicesAreMadeWholeOrNotAtAll)
{
    const long blocks = FailingMemory::LiveBlocks();
    bool failed = true;
    for (unsigned long allowed = 0; failed; ++allowed) {
        QsdMemoryDisplay display;
        {
            const FailingMemory memory(allowed, FailingMemory::Once);
            try {
                const TypeParam device(&display, QsdPSRGB);
            } catch (const std::bad_alloc&) {
            }
            failed = memory.hasFailed();
        }
        EXPECT_TRUE(failed || allowed != 0);
    }
    EXPECT_EQ(FailingMemory::LiveBlocks(), blocks);
}

TYPED_TEST(Allocations, DevicesThatAreDroppedKeepNothing)
{
    const auto drawAndDrop = [] {
        Scene scene(Manners[0]);
        TypeParam device(&scene.display, QsdPSRGB);
        device.initDevice("/dev/null", nullptr);
        drawTexts(device, scene);
        EXPECT_FALSE(device.isBad());
    };
    // What a process has once is made first.
    drawAndDrop();
    const long blocks = FailingMemory::LiveBlocks();
    drawAndDrop();
    EXPECT_EQ(FailingMemory::LiveBlocks(), blocks);
}

} // namespace
