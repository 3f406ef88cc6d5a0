// cairo's PostScript surface.
#include "bench/throughput/subject.h"

#include <cairo-ps.h>
#include <cairo.h>
#include <cstring>
#include <numbers>
#include <stdexcept>

namespace {

using namespace bench;

template <auto Destroy>
struct Destroyer {
    template <class Object>
    void operator()(Object* object) const
    {
        Destroy(object);
    }
};
using Surface = std::unique_ptr<cairo_surface_t, Destroyer<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Destroyer<cairo_destroy>>;
using Pattern = std::unique_ptr<cairo_pattern_t, Destroyer<cairo_pattern_destroy>>;
using Font = std::unique_ptr<cairo_scaled_font_t, Destroyer<cairo_scaled_font_destroy>>;

/// A picture of `side` pixels, each the word that `pixel` gives for its place.
template <class Pixel>
Surface picture(cairo_format_t format, std::uint32_t side, Pixel pixel)
{
    Surface surface(cairo_image_surface_create(format, static_cast<int>(side), static_cast<int>(side)));
    unsigned char* const data = cairo_image_surface_get_data(surface.get());
    const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            const std::uint32_t word = pixel(x, y);
            std::memcpy(data + y * stride + 4 * x, &word, sizeof word);
        }
    }
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

std::uint32_t opaqueWord(std::uint32_t x, std::uint32_t y)
{
    const Color color = pixelAt(x, y);
    return 0xff000000U | std::uint32_t{color.red} << 16 | std::uint32_t{color.green} << 8 | color.blue;
}

Font scaledFont(const char* family, cairo_font_weight_t weight)
{
    cairo_font_face_t* const face = cairo_toy_font_face_create(family, CAIRO_FONT_SLANT_NORMAL, weight);
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_matrix_t size;
    cairo_matrix_t identity;
    cairo_matrix_init_scale(&size, FontSize, FontSize);
    cairo_matrix_init_identity(&identity);
    Font font(cairo_scaled_font_create(face, &size, &identity, options));
    cairo_font_options_destroy(options);
    cairo_font_face_destroy(face);
    return font;
}

class CairoSubject : public Subject {
public:
    [[nodiscard]] bool draws(Workload workload) const override { return workload != Workload::HugeImage; }
    void prepare(Workload workload, std::uint64_t) override;
    void write(Workload workload, std::uint64_t calls, const char* fileName) override;

private:
    void draw(cairo_t* page, Workload workload, std::uint64_t calls) const;
    static void drawLines(cairo_t* page, std::uint64_t calls, std::size_t pens);
    static void path(cairo_t* page, const Point* points, unsigned count);
    void drawStrings(cairo_t* page, std::uint64_t calls, std::size_t fonts) const;

    Font _fonts[4];
    Surface _image;
    Pattern _tile;
};

void setColor(cairo_t* page, Color color)
{
    cairo_set_source_rgb(page, color.red / 255.0, color.green / 255.0, color.blue / 255.0);
}

void CairoSubject::prepare(Workload workload, std::uint64_t)
{
    _fonts[0] = scaledFont("Times", CAIRO_FONT_WEIGHT_NORMAL);
    _fonts[1] = scaledFont("Helvetica", CAIRO_FONT_WEIGHT_NORMAL);
    _fonts[2] = scaledFont("Courier", CAIRO_FONT_WEIGHT_NORMAL);
    _fonts[3] = scaledFont("Helvetica", CAIRO_FONT_WEIGHT_BOLD);
    const Surface tile = picture(CAIRO_FORMAT_RGB24, 8, [](std::uint32_t x, std::uint32_t y) {
        return (Tile[y] >> (7 - x) & 1) != 0 ? 0xff000000U : 0xffffffffU;
    });
    _tile.reset(cairo_pattern_create_for_surface(tile.get()));
    cairo_pattern_set_extend(_tile.get(), CAIRO_EXTEND_REPEAT);
    if (workload == Workload::Image) {
        _image = picture(CAIRO_FORMAT_RGB24, imageSide(workload), opaqueWord);
    } else if (workload == Workload::MaskedImage) {
        _image = picture(CAIRO_FORMAT_ARGB32, imageSide(workload),
                         [](std::uint32_t x, std::uint32_t y) { return isOpaque(x, y) ? opaqueWord(x, y) : 0; });
    }
}

void CairoSubject::path(cairo_t* page, const Point* points, unsigned count)
{
    cairo_move_to(page, points[0].x, points[0].y);
    for (unsigned i = 1; i < count; ++i) {
        cairo_line_to(page, points[i].x, points[i].y);
    }
}

void CairoSubject::drawLines(cairo_t* page, std::uint64_t calls, std::size_t pens)
{
    setColor(page, Pens[0].color);
    cairo_set_line_width(page, Pens[0].width);
    repeat(calls, [&](std::size_t i, const Point* points) {
        if (pens > 1) {
            setColor(page, Pens[i % pens].color);
            cairo_set_line_width(page, Pens[i % pens].width);
        }
        path(page, points, 2);
        cairo_stroke(page);
    });
}

void CairoSubject::drawStrings(cairo_t* page, std::uint64_t calls, std::size_t fonts) const
{
    cairo_set_scaled_font(page, _fonts[0].get());
    repeat(calls, [&](std::size_t i, const Point* points) {
        if (fonts > 1) {
            cairo_set_scaled_font(page, _fonts[i % fonts].get());
        }
        cairo_move_to(page, points->x, points->y);
        cairo_show_text(page, Text.data());
    });
}

void CairoSubject::draw(cairo_t* page, Workload workload, std::uint64_t calls) const
{
    switch (workload) {
    case Workload::OnePen:
        drawLines(page, calls, 1);
        break;
    case Workload::FourPens:
        drawLines(page, calls, 4);
        break;
    case Workload::Polylines:
        repeat(calls, [&](std::size_t, const Point* points) {
            path(page, points, PolylinePoints);
            cairo_stroke(page);
        });
        break;
    case Workload::Polygons:
        repeat(calls, [&](std::size_t, const Point* points) {
            path(page, points, PolygonPoints);
            cairo_fill(page);
        });
        break;
    case Workload::Rectangles:
        repeat(calls, [&](std::size_t i, const Point* points) {
            setColor(page, Pens[i % 2].color);
            cairo_rectangle(page, points->x, points->y, RectangleWidth, RectangleHeight);
            cairo_fill(page);
        });
        break;
    case Workload::Arcs:
        repeat(calls, [&](std::size_t, const Point* points) {
            const double radius = ArcSize / 2.0;
            cairo_new_path(page);
            cairo_arc_negative(page, points->x + radius, points->y + radius, radius, 0, -std::numbers::pi / 2);
            cairo_stroke(page);
        });
        break;
    case Workload::OneFont:
        drawStrings(page, calls, 1);
        break;
    case Workload::FourFonts:
        drawStrings(page, calls, 4);
        break;
    case Workload::Patterns:
        cairo_set_source(page, _tile.get());
        repeat(calls, [&](std::size_t, const Point* points) {
            cairo_rectangle(page, points->x, points->y, RectangleWidth, RectangleHeight);
            cairo_fill(page);
        });
        break;
    case Workload::Image:
    case Workload::MaskedImage:
        cairo_scale(page, static_cast<double>(ImageExtent) / imageSide(workload),
                    static_cast<double>(ImageExtent) / imageSide(workload));
        cairo_set_source_surface(page, _image.get(), 0, 0);
        for (std::uint64_t i = 0; i < calls; ++i) {
            cairo_paint(page);
        }
        break;
    case Workload::HugeImage:
        break;
    }
}

void CairoSubject::write(Workload workload, std::uint64_t calls, const char* fileName)
{
    const Surface surface(cairo_ps_surface_create(fileName, 595, 842));
    {
        const Context page(cairo_create(surface.get()));
        draw(page.get(), workload, calls);
        cairo_show_page(page.get());
        if (cairo_status(page.get()) != CAIRO_STATUS_SUCCESS) {
            throw std::runtime_error(cairo_status_to_string(cairo_status(page.get())));
        }
    }
    cairo_surface_finish(surface.get());
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
        throw std::runtime_error(cairo_status_to_string(cairo_surface_status(surface.get())));
    }
}

} // namespace

std::unique_ptr<bench::Subject> bench::makeCairo()
{
    return std::make_unique<CairoSubject>();
}
