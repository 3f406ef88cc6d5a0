// A picture as a whole document in a file: through the device by the port's drawing operation, through the device from
// pixels that the program holds itself, and through cairo's PostScript surface, beside a file stream that gets as many
// characters as the document has, and a plain copy of the picture. "copies" tells how many such copies fit into the
// same time.
#include "ps/QsdPSDevice.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cairo-ps.h>
#include <cairo.h>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <sys/resource.h>
#include <vector>

namespace {

constexpr std::uint32_t Side = 2000;
constexpr std::size_t Size = std::size_t{3} * Side * Side; ///< bytes of a picture, three a pixel
constexpr const char* FileName = "/tmp/dravonset-bench-image.ps";

QsdRGB colorAt(std::uint32_t x, std::uint32_t y)
{
    const std::uint32_t noise = (x * 2654435761U + y * 40503U) >> 13;
    return {static_cast<std::uint8_t>(x / 8 + noise % 8), static_cast<std::uint8_t>(y / 8),
            static_cast<std::uint8_t>(noise)};
}

/// Four bytes a pixel, as the device takes them.
std::vector<unsigned char> devicePixels()
{
    std::vector<unsigned char> pixels;
    pixels.reserve(std::size_t{4} * Side * Side);
    for (std::uint32_t y = 0; y < Side; ++y) {
        for (std::uint32_t x = 0; x < Side; ++x) {
            const QsdRGB color = colorAt(x, y);
            pixels.insert(pixels.end(), {0, color.red, color.green, color.blue});
        }
    }
    return pixels;
}

double secondsOfCopy()
{
    const std::vector<unsigned char> data(Size, 1);
    std::vector<unsigned char> copy(Size);
    double best = 1;
    for (int i = 0; i < 20; ++i) {
        const auto start = std::chrono::steady_clock::now();
        std::memcpy(copy.data(), data.data(), Size);
        benchmark::DoNotOptimize(copy.data());
        best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

/// Measures `write` and counts its bytes, and in how many copies' time it wrote them.
template <class Write>
void measure(benchmark::State& state, Write write)
{
    static const double copySeconds = secondsOfCopy();
    const auto start = std::chrono::steady_clock::now();
    for ([[maybe_unused]] auto step : state) {
        write();
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    const auto rounds = static_cast<double>(state.iterations());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(Size));
    state.counters["copies"] = seconds / rounds / copySeconds;
}

long peakKiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

/// A picture of 1.2 GB that is made while it is written, row by row; "KiB" tells by how much the process grew. It comes
/// first, before others make the process large.
void Rows(benchmark::State& state)
{
    constexpr std::uint32_t LargeSide = 20000;
    QsdMemoryDisplay display;
    QsdPSDevice device(&display, QsdPSRGB);
    std::vector<unsigned char> row(std::size_t{3} * LargeSide, 1);
    device.initDevice("/dev/null", nullptr);
    const long before = peakKiB();
    for ([[maybe_unused]] auto step : state) {
        device.send("500 500 scale 20000 20000 8 [20000 0 0 -20000 0 20000] currentfile /ASCII85Decode filter");
        device.send(device.imageOperatorString());
        QsdPostScriptEncoder& encoder = *device.getEncoder();
        encoder.startData();
        for (std::uint32_t y = 0; y < LargeSide; ++y) {
            row[y] = static_cast<unsigned char>(y);
            encoder.putBytes(row.size(), row.data());
        }
        encoder.endData();
    }
    state.counters["KiB"] = static_cast<double>(peakKiB() - before);
    device.end();
    state.SetBytesProcessed(state.iterations() * std::int64_t{3} * LargeSide * LargeSide);
}
BENCHMARK(Rows)->UseRealTime();

void Bitmap(benchmark::State& state)
{
    QsdMemoryDisplay display;
    QsdPSDevice device(&display, QsdPSRGB);
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    QsdRGBBitmapData data(Side, Side);
    for (std::uint32_t y = 0; y < Side; ++y) {
        for (std::uint32_t x = 0; x < Side; ++x) {
            data.setPixel(x, y, colorAt(x, y));
        }
    }
    const QsdBitmap bitmap(&display, data);
    measure(state, [&] {
        device.initDevice(FileName, nullptr);
        device.stretchBitmap(palette.get(), QsdRect{0, 0, 500, 500}, &bitmap, nullptr);
        device.end();
    });
}
BENCHMARK(Bitmap)->UseRealTime();

void OwnPixels(benchmark::State& state)
{
    QsdMemoryDisplay display;
    QsdPSDevice device(&display, QsdPSRGB);
    const std::vector<unsigned char> pixels = devicePixels();
    measure(state, [&] {
        device.initDevice(FileName, nullptr);
        device.send("500 500 scale 2000 2000 8 [2000 0 0 -2000 0 2000] currentfile /ASCII85Decode filter");
        device.send(device.imageOperatorString());
        device.writeImage(&display, 24, Side, Side, pixels.data(), pixels.size());
        device.end();
    });
}
BENCHMARK(OwnPixels)->UseRealTime();

void Cairo(benchmark::State& state)
{
    cairo_surface_t* const picture = cairo_image_surface_create(CAIRO_FORMAT_RGB24, Side, Side);
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(picture));
    unsigned char* const pixels = cairo_image_surface_get_data(picture);
    for (std::uint32_t y = 0; y < Side; ++y) {
        for (std::uint32_t x = 0; x < Side; ++x) {
            const QsdRGB color = colorAt(x, y);
            const std::uint32_t pixel = std::uint32_t{color.red} << 16 | std::uint32_t{color.green} << 8 | color.blue;
            std::memcpy(pixels + y * stride + 4 * x, &pixel, sizeof pixel);
        }
    }
    cairo_surface_mark_dirty(picture);
    measure(state, [&] {
        cairo_surface_t* const surface = cairo_ps_surface_create(FileName, 595, 842);
        cairo_t* const page = cairo_create(surface);
        cairo_scale(page, 0.25, 0.25);
        cairo_set_source_surface(page, picture, 0, 0);
        cairo_paint(page);
        cairo_show_page(page);
        cairo_destroy(page);
        cairo_surface_finish(surface);
        cairo_surface_destroy(surface);
    });
    cairo_surface_destroy(picture);
}
BENCHMARK(Cairo)->UseRealTime();

void Stream(benchmark::State& state)
{
    const std::vector<char> text(Size / 4 * 5 + Size / 60, 'a');
    measure(state, [&] { std::ofstream(FileName).write(text.data(), static_cast<std::streamsize>(text.size())); });
}
BENCHMARK(Stream)->UseRealTime();

void Copy(benchmark::State& state)
{
    const std::vector<unsigned char> data(Size, 1);
    std::vector<unsigned char> copy(Size);
    measure(state, [&] {
        std::memcpy(copy.data(), data.data(), Size);
        benchmark::DoNotOptimize(copy.data());
    });
}
BENCHMARK(Copy)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
