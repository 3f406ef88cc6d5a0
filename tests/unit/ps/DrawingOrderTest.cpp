// What every drawing operation does before it writes itself.
#include "tests/unit/ps/TestDevice.h"

#include "toolkit/port/QsdBitmap.h"

#include <functional>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace {

/// An operation on an open document, by its name.
using Operation = std::pair<const char*, std::function<void(OpenDevice&)>>;

constexpr QsdRect Box{0, 0, 9, 9};
constexpr QsdPoint Points[] = {{0, 0}, {9, 0}, {9, 9}};
constexpr QsdDeltaPoint Deltas[] = {{9, 0}, {0, 9}};

std::vector<Operation> operations()
{
    return {
        {"drawLine", [](OpenDevice& d) { d.device.drawLine(d.palette.get(), Points[0], Points[1]); }},
        {"drawSegments", [](OpenDevice& d) { d.device.drawSegments(d.palette.get(), 2, Points, Points); }},
        {"drawPolyLine", [](OpenDevice& d) { d.device.drawPolyLine(d.palette.get(), 3, Points); }},
        {"drawPolyLine, steps", [](OpenDevice& d) { d.device.drawPolyLine(d.palette.get(), Points[0], 3, Deltas); }},
        {"fillPolyLine", [](OpenDevice& d) { d.device.fillPolyLine(d.palette.get(), 3, Points, true); }},
        {"fillPolyLine, steps",
         [](OpenDevice& d) { d.device.fillPolyLine(d.palette.get(), Points[0], 3, Deltas, true); }},
        {"drawRectangle", [](OpenDevice& d) { d.device.drawRectangle(d.palette.get(), Box); }},
        {"fillRectangle", [](OpenDevice& d) { d.device.fillRectangle(d.palette.get(), Box); }},
        {"drawArc", [](OpenDevice& d) { d.device.drawArc(d.palette.get(), Box, 0, 90); }},
        {"fillArc", [](OpenDevice& d) { d.device.fillArc(d.palette.get(), Box, 0, 90); }},
        {"drawBezier", [](OpenDevice& d) { d.device.drawBezier(d.palette.get(), 3, Points); }},
        {"drawClosedBezier", [](OpenDevice& d) { d.device.drawClosedBezier(d.palette.get(), 3, Points); }},
        {"fillBezier", [](OpenDevice& d) { d.device.fillBezier(d.palette.get(), 3, Points); }},
        {"fillPaths",
         [](OpenDevice& d) {
             const QsdPointArray array(3, Points);
             d.device.fillPaths(d.palette.get(), 1, &array);
         }},
        {"drawString",
         [](OpenDevice& d) { d.device.drawString(d.palette.get(), Points[0], "x", -1, QsdPositionNone); }},
        {"drawIString",
         [](OpenDevice& d) { d.device.drawIString(d.palette.get(), Points[0], "x", -1, QsdPositionNone); }},
        {"drawWChar", [](OpenDevice& d) { d.device.drawWChar(d.palette.get(), Points[0], L"x", 1, QsdPositionNone); }},
        {"drawIWChar",
         [](OpenDevice& d) { d.device.drawIWChar(d.palette.get(), Points[0], L"x", 1, QsdPositionNone); }},
        {"drawTransformedString",
         [](OpenDevice& d) { d.device.drawTransformedString(d.palette.get(), "x", -1, QsdTransformer(), nullptr); }},
        {"drawBitmap",
         [](OpenDevice& d) {
             const QsdBitmap bitmap(&d.display, 9, 9, 24);
             d.device.drawBitmap(d.palette.get(), &bitmap, Box, Points[0]);
         }},
        {"drawTransparentBitmap",
         [](OpenDevice& d) {
             const QsdBitmap bitmap(&d.display, 9, 9, 1);
             d.device.drawTransparentBitmap(d.palette.get(), &bitmap, Box, Points[0]);
         }},
        {"stretchBitmap",
         [](OpenDevice& d) {
             const QsdBitmap bitmap(&d.display, 9, 9, 24);
             d.device.stretchBitmap(d.palette.get(), Points[0], &bitmap, QsdTransformer(), nullptr);
         }},
        {"stretchTransparentBitmap",
         [](OpenDevice& d) {
             const QsdBitmap bitmap(&d.display, 9, 9, 1);
             d.device.stretchTransparentBitmap(d.palette.get(), Points[0], &bitmap, QsdTransformer(), nullptr);
         }},
    };
}

const std::string State = "12/Helvetica qsdsf\n[] 0 setdash\n0 setgray\n1 slw\n";

TEST(DrawingOrder, TheClipComesFirstAndThenTheState)
{
    for (const auto& [name, operation] : operations()) {
        OpenDevice open;
        open.palette->setClipRegion(QsdRegion(QsdRect{1, 2, 30, 40}));
        operation(open);
        const std::string text = open.device.taken();
        const std::string start = " rc gsave  n 30 40 1 2 rect clip n\n" + State;
        EXPECT_EQ(text.substr(0, start.size()), start) << name;
        EXPECT_GT(text.size(), start.size()) << name;
    }
}

TEST(DrawingOrder, ATransparentBitmapWithoutAMaskBringsClipAndStateAlone)
{
    OpenDevice open;
    open.palette->setClipRegion(QsdRegion(QsdRect{1, 2, 30, 40}));
    const QsdBitmap pixels(&open.display, 9, 9, 24);
    open.device.drawTransparentBitmap(open.palette.get(), &pixels, Box, Points[0]);
    EXPECT_EQ(open.device.taken(), " rc gsave  n 30 40 1 2 rect clip n\n" + State);
}

} // namespace
