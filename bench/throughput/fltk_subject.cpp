// FLTK's PostScript device. It has no patterns, and measures texts with the fonts of an X display, without which it
// draws none.
#include "bench/throughput/subject.h"

#include <FL/Fl_Image.H>
#include <FL/Fl_PostScript.H>
#include <FL/fl_draw.H>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace {

using namespace bench;

constexpr Fl_Font Fonts[] = {FL_TIMES, FL_HELVETICA, FL_COURIER, FL_HELVETICA_BOLD};

void setColor(Color color)
{
    fl_color(color.red, color.green, color.blue);
}

void setPen(const Pen& pen)
{
    setColor(pen.color);
    fl_line_style(FL_SOLID, pen.width);
}

void addVertices(const Point* points, unsigned count)
{
    for (unsigned i = 0; i < count; ++i) {
        fl_vertex(points[i].x, points[i].y);
    }
}

class FltkSubject : public Subject {
public:
    [[nodiscard]] bool draws(Workload workload) const override
    {
        const bool isText = workload == Workload::OneFont || workload == Workload::FourFonts;
        return workload != Workload::Patterns && workload != Workload::HugeImage &&
               (!isText || std::getenv("DISPLAY") != nullptr);
    }
    void prepare(Workload workload, std::uint64_t) override;
    void write(Workload workload, std::uint64_t calls, const char* fileName) override;

private:
    static void drawLines(std::uint64_t calls, std::size_t pens);
    static void drawStrings(std::uint64_t calls, std::size_t fonts);
    void draw(Workload workload, std::uint64_t calls);

    std::vector<uchar> _pixels;
};

void FltkSubject::prepare(Workload workload, std::uint64_t)
{
    if (!isImage(workload)) {
        return;
    }
    const std::uint32_t side = imageSide(workload);
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            const Color color = pixelAt(x, y);
            _pixels.insert(_pixels.end(), {color.red, color.green, color.blue});
            if (workload == Workload::MaskedImage) {
                _pixels.push_back(isOpaque(x, y) ? 255 : 0);
            }
        }
    }
}

void FltkSubject::drawLines(std::uint64_t calls, std::size_t pens)
{
    repeat(calls, [&](std::size_t i, const Point* points) {
        if (pens > 1) {
            setPen(Pens[i % pens]);
        }
        fl_line(points[0].x, points[0].y, points[1].x, points[1].y);
    });
}

void FltkSubject::drawStrings(std::uint64_t calls, std::size_t fonts)
{
    fl_font(Fonts[0], FontSize);
    repeat(calls, [&](std::size_t i, const Point* points) {
        if (fonts > 1) {
            fl_font(Fonts[i % fonts], FontSize);
        }
        fl_draw(Text.data(), static_cast<int>(Text.size()), points->x, points->y);
    });
}

void FltkSubject::draw(Workload workload, std::uint64_t calls)
{
    switch (workload) {
    case Workload::OnePen:
        drawLines(calls, 1);
        break;
    case Workload::FourPens:
        drawLines(calls, 4);
        break;
    case Workload::Polylines:
        repeat(calls, [&](std::size_t, const Point* points) {
            fl_begin_line();
            addVertices(points, PolylinePoints);
            fl_end_line();
        });
        break;
    case Workload::Polygons:
        repeat(calls, [&](std::size_t, const Point* points) {
            fl_begin_polygon();
            addVertices(points, PolygonPoints);
            fl_end_polygon();
        });
        break;
    case Workload::Rectangles:
        repeat(calls, [&](std::size_t i, const Point* points) {
            setColor(Pens[i % 2].color);
            fl_rectf(points->x, points->y, RectangleWidth, RectangleHeight);
        });
        break;
    case Workload::Arcs:
        repeat(calls, [&](std::size_t, const Point* points) { fl_arc(points->x, points->y, ArcSize, ArcSize, 0, 90); });
        break;
    case Workload::OneFont:
        drawStrings(calls, 1);
        break;
    case Workload::FourFonts:
        drawStrings(calls, 4);
        break;
    case Workload::Image:
    case Workload::MaskedImage: {
        const auto side = static_cast<int>(imageSide(workload));
        Fl_RGB_Image image(_pixels.data(), side, side, workload == Workload::MaskedImage ? 4 : 3);
        for (std::uint64_t i = 0; i < calls; ++i) {
            image.draw(0, 0);
        }
        break;
    }
    case Workload::Patterns:
    case Workload::HugeImage:
        break;
    }
}

void FltkSubject::write(Workload workload, std::uint64_t calls, const char* fileName)
{
    std::FILE* const file = std::fopen(fileName, "w");
    if (file == nullptr) {
        throw std::runtime_error("no file");
    }
    Fl_PostScript_File_Device device;
    device.start_job(file, 1);
    device.start_page();
    setPen(Pens[0]);
    draw(workload, calls);
    device.end_page();
    device.end_job();
    if (std::fclose(file) != 0) {
        throw std::runtime_error("not written");
    }
}

} // namespace

std::unique_ptr<bench::Subject> bench::makeFltk()
{
    return std::make_unique<FltkSubject>();
}
