// The box of a page is the box around the boxes that its drawings have on pages of their own.
#include "tests/unit/print/PrintDevice.h"

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <vector>

namespace {

using Box = std::array<int, 4>;
using Drawing = std::function<void(PrintPage&)>;

/// Everything that the boxes of a document's pages lie in; pages without a drawing count for nothing.
Box unionOfPages(const std::string& text)
{
    constexpr std::string_view Keyword = "%%PageBoundingBox: ";
    Box all{99999, 99999, -99999, -99999};
    for (std::size_t at = text.find(Keyword); at != std::string::npos; at = text.find(Keyword, at + 1)) {
        std::istringstream numbers(text.substr(at + Keyword.size(), 60));
        Box box{};
        numbers >> box[0] >> box[1] >> box[2] >> box[3];
        if (box != Box{}) {
            all = {std::min(all[0], box[0]), std::min(all[1], box[1]), std::max(all[2], box[2]),
                   std::max(all[3], box[3])};
        }
    }
    return all;
}

/// A drawing under a transformer and a clip, at times one of those of the drawing before.
class RandomDrawings {
public:
    explicit RandomDrawings(std::uint32_t seed) : _random(seed) {}

    Drawing next()
    {
        if (below(3) == 0) {
            _transformer = QsdTransformer();
            _transformer.scale(0.5 * (1 + below(3)), 1);
            _transformer.rotate(30.0 * below(7));
            _transformer.translate(100 + below(300), 100 + below(400));
        }
        if (below(3) == 0) {
            _clip = {-below(150), -below(150), static_cast<std::uint32_t>(50 + below(600)),
                     static_cast<std::uint32_t>(50 + below(600))};
        }
        const bool zoomable = below(4) != 0;
        const auto width = static_cast<std::uint16_t>(below(9));
        const std::vector<QsdPoint> points{point(), point(), point(), point()};
        const int kind = below(4);
        return [=, transformer = _transformer, clip = _clip](PrintPage& page) {
            PrintDevice& device = page.device;
            device.setTransformer(transformer);
            device.setZoomableLineWidths(zoomable);
            const QsdPalette* const palette = page.palette.get();
            page.palette->setLineStyle(nullptr, width);
            page.palette->setClipRegion(QsdRegion(clip));
            switch (kind) {
            case 0:
                device.drawLine(palette, points[0], points[1]);
                break;
            case 1:
                device.drawPolyLine(palette, points.size(), points.data());
                break;
            case 2:
                device.fillPolyLine(palette, points.size(), points.data(), false);
                break;
            default:
                device.drawClosedBezier(palette, points.size(), points.data());
                break;
            }
        };
    }

private:
    int below(int limit) { return static_cast<int>(_random() % static_cast<std::uint32_t>(limit)); }
    QsdPoint point() { return {below(200) - 100, below(200) - 100}; }

    std::mt19937 _random;
    QsdTransformer _transformer;
    QsdRect _clip{0, 0, 300, 300};
};

TEST(PrintBoxes, OfManyDrawingsHoldThoseOfEach)
{
    for (std::uint32_t seed = 0; seed < 200; ++seed) {
        RandomDrawings drawings(seed);
        PrintPage together;
        PrintPage apart;
        for (int i = 0; i < 15; ++i) {
            const Drawing draw = drawings.next();
            draw(together);
            draw(apart);
            apart.device.newPage();
        }
        ASSERT_EQ(unionOfPages(together.whole()), unionOfPages(apart.whole())) << seed;
    }
}

TEST(PageBox, LiesAlongATransformedText)
{
    const auto boxOf = [](const char* family) {
        PrintPage page;
        const auto font = QsdHandle<QsdFont>::Adopt(page.display.createFont(family, QsdFontPlain, 12));
        page.palette->setFont(font.get());
        page.device.drawTransformedString(page.palette.get(), "a text of some length", -1,
                                          QsdTransformer(1, 0, 0, 1, 300, 400), nullptr);
        return unionOfPages(page.whole());
    };
    const Box along = boxOf("helvetica");
    EXPECT_GT(along[2] - along[0], 80);
    EXPECT_LT(along[3] - along[1], 50);
    const Box down = boxOf("@mincho");
    EXPECT_LT(down[2] - down[0], 50);
    EXPECT_GT(down[3] - down[1], 80);
}

TEST(PageBox, OfATextOfNoLengthIsEmpty)
{
    PrintPage page;
    for (const auto& [text, length] : {std::pair("a text", 0), std::pair("", -1)}) {
        page.device.drawTransformedString(page.palette.get(), text, length, QsdTransformer(), nullptr);
    }
    EXPECT_NE(page.whole().find("%%PageBoundingBox: 0 0 0 0\n"), std::string::npos);
}

} // namespace
