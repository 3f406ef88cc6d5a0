// The same drawings through the device, with the flush of every line that it promises and into a buffer, beside a file
// stream that gets the same text by its inserters, and beside cairo's PostScript surface.
#include "ps/QsdPSDevice.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <benchmark/benchmark.h>
#include <cairo-ps.h>
#include <cairo.h>
#include <cstring>
#include <fstream>
#include <ostream>
#include <streambuf>
#include <string>

namespace {

constexpr int Points = 50;
constexpr int Calls = 10000; ///< in a document; each round writes a whole one
constexpr const char* FileName = "/tmp/dravonset-bench.ps";

/// Takes everything into the same piece of memory and has nothing to flush.
class Sink : public std::streambuf {
public:
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        if (count > static_cast<std::streamsize>(sizeof _memory) - _used) {
            _used = 0;
        }
        std::memcpy(_memory + _used, text, static_cast<std::size_t>(count));
        _used += count;
        return count;
    }
    int overflow(int c) override { return traits_type::not_eof(c); }

private:
    std::streamsize _used = 0;
    char _memory[1 << 16];
};

class BufferedDevice : public QsdPSDevice {
public:
    using QsdPSDevice::QsdPSDevice;
    std::ostream* openStream(const char*) override { return new std::ostream(&_sink); }

private:
    Sink _sink;
};

void countCalls(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * Calls);
}

/// The workloads, drawn through any device.
struct Drawing {
    explicit Drawing(QsdDisplay& display)
        : palette(QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display))),
          other(QsdHandle<QsdPalette>::Adopt(new QsdPalette(palette.get())))
    {
        other->setForeground(QsdHandle<QsdColor>::Adopt(new QsdColor(65535, 0, 0)).get());
        for (int i = 0; i < Points; ++i) {
            points[i] = {i * 11 % 500, i * 37 % 700};
        }
    }

    void line(const QsdPort& port) const { port.drawLine(palette.get(), {10, 20}, {300, 400}); }
    void polyline(const QsdPort& port) const { port.drawPolyLine(palette.get(), Points, points); }
    void polygon(const QsdPort& port) const { port.fillPolyLine(palette.get(), 20, points, false); }
    void text(const QsdPort& port) const
    {
        port.drawString(palette.get(), {10, 20}, "Twelve bytes", 12, QsdPositionNone);
    }
    void change(const QsdPort& port) const
    {
        port.drawLine(palette.get(), {10, 20}, {300, 400});
        port.drawLine(other.get(), {10, 20}, {300, 400});
    }

    QsdHandle<QsdPalette> palette;
    QsdHandle<QsdPalette> other;
    QsdPoint points[Points];
};

using Operation = void (Drawing::*)(const QsdPort&) const;

template <class Device>
void draw(benchmark::State& state, Operation operation)
{
    QsdMemoryDisplay display;
    Device device(&display, QsdPSRGB);
    const Drawing drawing(display);
    for ([[maybe_unused]] auto step : state) {
        device.initDevice(FileName, nullptr);
        for (int i = 0; i < Calls; ++i) {
            (drawing.*operation)(device);
        }
        device.end();
    }
    countCalls(state);
}

void buffered(benchmark::State& state, Operation operation)
{
    draw<BufferedDevice>(state, operation);
}
void flushing(benchmark::State& state, Operation operation)
{
    draw<QsdPSDevice>(state, operation);
}

/// A file stream that gets the same text, number by number, with the same flushes.
void streamLine(std::ostream& out)
{
    out << "n " << 10 << " " << 20 << " M " << 300 << " " << 400 << " L s" << std::endl;
}

void streamPolyline(std::ostream& out)
{
    out << "n " << 0 << " " << 0 << " M ";
    for (int i = 1; i < Points; ++i) {
        out << i * 11 % 500 << " " << i * 37 % 700 << " L";
        if (i % 10 == 0) {
            out << std::endl;
        } else {
            out << " ";
        }
    }
    out << "s" << std::endl;
}

void stream(benchmark::State& state, void (*write)(std::ostream&))
{
    for ([[maybe_unused]] auto step : state) {
        std::ofstream out(FileName);
        for (int i = 0; i < Calls; ++i) {
            write(out);
        }
    }
    countCalls(state);
}

void cairoPath(cairo_t* page, int count, void (*paint)(cairo_t*))
{
    for (int i = 0; i < count; ++i) {
        cairo_line_to(page, i * 11 % 500, i * 37 % 700);
    }
    paint(page);
}

void cairoLine(cairo_t* page)
{
    cairo_move_to(page, 10, 20);
    cairo_line_to(page, 300, 400);
    cairo_stroke(page);
}

void cairoPolyline(cairo_t* page)
{
    cairoPath(page, Points, cairo_stroke);
}

void cairoPolygon(cairo_t* page)
{
    cairoPath(page, 20, cairo_fill);
}

void cairoText(cairo_t* page)
{
    cairo_move_to(page, 10, 20);
    cairo_show_text(page, "Twelve bytes");
}

void cairoChange(cairo_t* page)
{
    cairo_set_source_rgb(page, 0, 0, 0);
    cairoLine(page);
    cairo_set_source_rgb(page, 1, 0, 0);
    cairoLine(page);
}

void cairo(benchmark::State& state, void (*draw)(cairo_t*))
{
    for ([[maybe_unused]] auto step : state) {
        cairo_surface_t* const surface = cairo_ps_surface_create(FileName, 595, 842);
        cairo_t* const page = cairo_create(surface);
        for (int i = 0; i < Calls; ++i) {
            draw(page);
        }
        cairo_show_page(page);
        cairo_destroy(page);
        cairo_surface_finish(surface);
        cairo_surface_destroy(surface);
    }
    countCalls(state);
}

BENCHMARK_CAPTURE(buffered, line, &Drawing::line);
BENCHMARK_CAPTURE(flushing, line, &Drawing::line);
BENCHMARK_CAPTURE(stream, line, streamLine);
BENCHMARK_CAPTURE(cairo, line, cairoLine);
BENCHMARK_CAPTURE(buffered, polyline50, &Drawing::polyline);
BENCHMARK_CAPTURE(flushing, polyline50, &Drawing::polyline);
BENCHMARK_CAPTURE(stream, polyline50, streamPolyline);
BENCHMARK_CAPTURE(cairo, polyline50, cairoPolyline);
BENCHMARK_CAPTURE(buffered, polygon20, &Drawing::polygon);
BENCHMARK_CAPTURE(flushing, polygon20, &Drawing::polygon);
BENCHMARK_CAPTURE(cairo, polygon20, cairoPolygon);
BENCHMARK_CAPTURE(buffered, string12, &Drawing::text);
BENCHMARK_CAPTURE(flushing, string12, &Drawing::text);
BENCHMARK_CAPTURE(cairo, string12, cairoText);
BENCHMARK_CAPTURE(buffered, twoColours, &Drawing::change);
BENCHMARK_CAPTURE(flushing, twoColours, &Drawing::change);
BENCHMARK_CAPTURE(cairo, twoColours, cairoChange);

} // namespace

BENCHMARK_MAIN();
