// The PostScript plotter of GNU libplot. It has no images and no patterns.
#include "bench/throughput/subject.h"

#include <cstdio>
#include <plot.h>
#include <stdexcept>

namespace {

using namespace bench;

constexpr const char* Fonts[] = {"Times-Roman", "Helvetica", "Courier", "Helvetica-Bold"};

int component(std::uint8_t value)
{
    return value * 257;
}

void path(plPlotter* plotter, const Point* points, unsigned count)
{
    pl_fmove_r(plotter, points[0].x, points[0].y);
    for (unsigned i = 1; i < count; ++i) {
        pl_fcont_r(plotter, points[i].x, points[i].y);
    }
    pl_endpath_r(plotter);
}

void setPen(plPlotter* plotter, const Pen& pen)
{
    pl_pencolor_r(plotter, component(pen.color.red), component(pen.color.green), component(pen.color.blue));
    pl_flinewidth_r(plotter, pen.width);
}

class PlotSubject : public Subject {
public:
    [[nodiscard]] bool draws(Workload workload) const override { return workload < Workload::Patterns; }
    void prepare(Workload, std::uint64_t) override {}
    void write(Workload workload, std::uint64_t calls, const char* fileName) override;

private:
    static void drawLines(plPlotter* plotter, std::uint64_t calls, std::size_t pens);
    static void drawStrings(plPlotter* plotter, std::uint64_t calls, std::size_t fonts);
    static void draw(plPlotter* plotter, Workload workload, std::uint64_t calls);
};

void PlotSubject::drawLines(plPlotter* plotter, std::uint64_t calls, std::size_t pens)
{
    repeat(calls, [&](std::size_t i, const Point* points) {
        if (pens > 1) {
            setPen(plotter, Pens[i % pens]);
        }
        pl_fline_r(plotter, points[0].x, points[0].y, points[1].x, points[1].y);
        pl_endpath_r(plotter);
    });
}

void PlotSubject::drawStrings(plPlotter* plotter, std::uint64_t calls, std::size_t fonts)
{
    pl_ffontname_r(plotter, Fonts[0]);
    pl_ffontsize_r(plotter, FontSize);
    repeat(calls, [&](std::size_t i, const Point* points) {
        if (fonts > 1) {
            pl_ffontname_r(plotter, Fonts[i % fonts]);
        }
        pl_fmove_r(plotter, points->x, points->y);
        pl_alabel_r(plotter, 'l', 'x', Text.data());
    });
}

void PlotSubject::draw(plPlotter* plotter, Workload workload, std::uint64_t calls)
{
    switch (workload) {
    case Workload::OnePen:
        drawLines(plotter, calls, 1);
        break;
    case Workload::FourPens:
        drawLines(plotter, calls, 4);
        break;
    case Workload::Polylines:
        repeat(calls, [&](std::size_t, const Point* points) { path(plotter, points, PolylinePoints); });
        break;
    case Workload::Polygons:
        pl_pentype_r(plotter, 0);
        pl_filltype_r(plotter, 1);
        repeat(calls, [&](std::size_t, const Point* points) { path(plotter, points, PolygonPoints); });
        break;
    case Workload::Rectangles:
        pl_pentype_r(plotter, 0);
        pl_filltype_r(plotter, 1);
        repeat(calls, [&](std::size_t i, const Point* points) {
            const Color color = Pens[i % 2].color;
            pl_fillcolor_r(plotter, component(color.red), component(color.green), component(color.blue));
            pl_fbox_r(plotter, points->x, points->y, points->x + RectangleWidth, points->y + RectangleHeight);
            pl_endpath_r(plotter);
        });
        break;
    case Workload::Arcs:
        repeat(calls, [&](std::size_t, const Point* points) {
            const double radius = ArcSize / 2.0;
            const double x = points->x + radius;
            const double y = points->y + radius;
            pl_farc_r(plotter, x, y, x + radius, y, x, y + radius);
            pl_endpath_r(plotter);
        });
        break;
    case Workload::OneFont:
        drawStrings(plotter, calls, 1);
        break;
    case Workload::FourFonts:
        drawStrings(plotter, calls, 4);
        break;
    case Workload::Patterns:
    case Workload::Image:
    case Workload::MaskedImage:
    case Workload::HugeImage:
        break;
    }
}

void PlotSubject::write(Workload workload, std::uint64_t calls, const char* fileName)
{
    std::FILE* const file = std::fopen(fileName, "w");
    if (file == nullptr) {
        throw std::runtime_error("no file");
    }
    plPlotterParams* const parameters = pl_newplparams();
    char pageSize[] = "a4";
    pl_setplparam(parameters, "PAGESIZE", pageSize);
    plPlotter* const plotter = pl_newpl_r("ps", nullptr, file, stderr, parameters);
    pl_openpl_r(plotter);
    pl_fspace_r(plotter, 0, 0, 595, 842);
    setPen(plotter, Pens[0]);
    draw(plotter, workload, calls);
    pl_closepl_r(plotter);
    pl_deletepl_r(plotter);
    pl_deleteplparams(parameters);
    if (std::fclose(file) != 0) {
        throw std::runtime_error("not written");
    }
}

} // namespace

std::unique_ptr<bench::Subject> bench::makePlot()
{
    return std::make_unique<PlotSubject>();
}
