#include "page/painter.h"

#include "page/gradient_bands.h"
#include "page/line_fit.h"
#include "page/picture.h"
#include "page/polygons.h"
#include "page/stroker.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace qsdps {

namespace {

constexpr std::size_t MostPixels = 300'000'000; ///< of pictures of what a page shows, all together

/// The size in units of what is just seen on a screen full of the page.
double detailOf(const Units& units)
{
    constexpr double Tolerances = 15;
    return units.tolerance() * Tolerances;
}

/// How far bands of gradients and parts of translucent areas overlap: a dot of the coarsest screen, and two of a page
/// shown a thousand dots wide.
double overlapOf(const Units& units)
{
    constexpr double Tolerances = 20;
    return std::max(units.perPoint(), units.tolerance() * Tolerances);
}

/// A picture that shows nothing yet.
RasterPicture emptyPicture(const RasterFrame& frame)
{
    RasterPicture picture{frame, {}};
    picture.pixels.width = static_cast<std::uint32_t>(frame.width);
    picture.pixels.height = static_cast<std::uint32_t>(frame.height);
    picture.pixels.rgba.resize(4 * frame.pixels());
    return picture;
}

void setPixel(Pixels& pixels, std::size_t index, Rgb color)
{
    const std::uint8_t rgba[] = {color.r, color.g, color.b, 255};
    std::copy_n(rgba, 4, &pixels.rgba[4 * index]);
}

/// What a picture under `toPixels` and an opacity shows of a frame; `shown` gives the colour of an ink at a pixel.
template <class Shown>
RasterPicture sampled(const Pixels& pixels, const Matrix& toPixels, double opacity, const RasterFrame& frame,
                      Shown shown)
{
    RasterPicture picture = emptyPicture(frame);
    for (std::size_t i = 0; i < frame.pixels(); ++i) {
        const Point at = toPixels.map(frame.centre(i));
        if (!(at.x >= 0 && at.y >= 0 && at.x < pixels.width && at.y < pixels.height)) {
            continue;
        }
        const std::uint8_t* const from =
            &pixels.rgba[4 * (static_cast<std::size_t>(at.y) * pixels.width + static_cast<std::size_t>(at.x))];
        const Ink ink{{from[0], from[1], from[2]}, from[3] / 255.0 * opacity};
        if (!ink.isInvisible()) {
            setPixel(picture.pixels, i, shown(ink, i));
        }
    }
    return picture;
}

/// What to fill of an area with a band. Where later bands hide some of it, that is left out when the area lies on
/// others of its kind, or else when that makes it simpler: edges that are filled often are smoothed often, and so
/// stand out.
Rings cutTo(const BandArea& band, const Rings& area, bool liesOnOthers)
{
    Rings whole = intersection(area, FillRule::NonZero, band.area);
    if (band.inside.empty()) {
        return whole;
    }
    Rings open = difference(whole, band.inside);
    return liesOnOthers || pointsOf(open) < pointsOf(whole) ? open : whole;
}

} // namespace

Painter::Painter(const QsdPort& port, const Units& units, const Matrix& pageToPoints, Rgb paper, PaintTools& tools,
                 Report& report)
    : _port(port), _units(units), _pageToUnits(units.fromPoints() * pageToPoints), _tools(tools), _report(report),
      _clips(_pageToUnits, units.tolerance(), [this](const TextChunk& chunk) { return clipLetters(chunk); }),
      _ground(paper, detailOf(units), overlapOf(units))
{
}

void Painter::fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage)
{
    fillOver(_ground.count(), path, rule, paint, toPage);
}

void Painter::fillOver(std::size_t groundEnd, const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage)
{
    const Matrix toUnits = _pageToUnits * toPage;
    if (!paint.none()) {
        paintArea(groundEnd, ringsOf(flattened(path, toUnits, _units.tolerance())), rule, paint, toPage);
    }
}

void Painter::paintArea(std::size_t groundEnd, Rings rings, FillRule rule, const Paint& paint, const Matrix& toPage)
{
    const ClipArea& clip = _clips.top();
    if (clip.area) {
        rings = intersection(rings, rule, *clip.area);
        rule = FillRule::NonZero;
    }
    const auto* const gradient = std::get_if<std::shared_ptr<const Gradient>>(&paint.source);
    const auto* const tile = std::get_if<std::shared_ptr<const Tile>>(&paint.source);
    const std::optional<Ink> ink = gradient != nullptr || tile != nullptr ? std::nullopt : inkOf(paint, _report);
    if (ink && _groups.isOpaque(*ink)) {
        fillOpaque(std::move(rings), rule, ink->color);
        return;
    }
    if (clip.rect && !clip.area) {
        rings = intersection(rings, rule, ringsOf(*clip.rect));
    } else {
        rings = simplified(rings, rule);
    }
    if (rings.empty()) {
        return;
    }
    if (gradient != nullptr) {
        paintGradient(groundEnd, rings, **gradient, paint.opacity, _pageToUnits * toPage);
    } else if (tile != nullptr) {
        paintTiles(rings, **tile, paint.opacity, toPage);
    } else if (ink) {
        fillBands(rings, {{rings, *ink}}, groundEnd);
    }
}

void Painter::paintGradient(std::size_t groundEnd, const Rings& rings, const Gradient& gradient, double opacity,
                            const Matrix& toUnits)
{
    std::vector<BandArea> bands =
        bandAreas(gradient, toUnits * gradient.toUser, boundsOf(rings), _units.tolerance(), overlapOf(_units));
    if (bands.empty()) {
        const GradientStop& last = gradient.stops.back();
        bands.push_back({rings, {last.color, last.opacity}});
    }
    for (BandArea& band : bands) {
        band.ink.alpha *= opacity;
    }
    fillBands(rings, bands, groundEnd);
}

// Where the backdrop changes, all bands are filled anew: so their edges have their own neighbours under them, not the
// colour that a band has elsewhere, which would show as a seam.
void Painter::fillBands(const Rings& rings, const std::vector<BandArea>& bands, std::size_t groundEnd)
{
    const auto isOpaque = [&](const BandArea& band) { return _groups.isOpaque(band.ink); };
    if (std::all_of(bands.begin(), bands.end(), isOpaque)) {
        for (const BandArea& band : bands) {
            fillOpaque(cutTo(band, rings, false), FillRule::NonZero, band.ink.color);
        }
        return;
    }
    const Ink& faintest = std::min_element(bands.begin(), bands.end(), [](const BandArea& a, const BandArea& b) {
                              return a.ink.alpha < b.ink.alpha;
                          })->ink;
    if (_ground.isIntricate(boundsOf(rings), _groups.endFor(faintest, groundEnd)) &&
        paintPixels(rings, bands, groundEnd)) {
        return;
    }
    constexpr std::size_t MostPieces = 250; // the more of them, the better pixels serve
    const std::vector<BackdropPart> parts = _groups.under(_ground, rings, faintest, groundEnd);
    if (bands.size() * parts.size() > MostPieces && paintPixels(rings, bands, groundEnd)) {
        return;
    }
    const bool firstIsWhole = parts.front().area == rings;
    constexpr int SameLook = 1;           // of 255
    std::vector<std::vector<Rgb>> colors; // of the bands, part by part
    for (const BackdropPart& part : parts) {
        std::vector<Rgb>& shown = colors.emplace_back();
        for (const BandArea& band : bands) {
            shown.push_back(_groups.shown(band.ink, part.backdrop));
        }
        const auto isDrawnAlready = [&](std::size_t i) {
            return bands[i].ink.isInvisible() ||
                   (firstIsWhole && colors.size() > 1 &&
                    std::all_of(colors.begin(), colors.end() - 1,
                                [&](const auto& before) { return differenceOf(before[i], shown[i]) <= SameLook; }));
        };
        for (std::size_t i = 0; i < bands.size(); ++i) {
            if (isDrawnAlready(i)) {
                continue;
            }
            Rings area = bands.size() == 1 ? part.area : cutTo(bands[i], part.area, &part != &parts.front());
            if (i + 1 < bands.size() && isDrawnAlready(i + 1)) {
                area = difference(area, bands[i + 1].area);
            }
            fillOpaque(std::move(area), FillRule::NonZero, shown[i]);
        }
    }
}

// The mask keeps what is around the area as it is, also where it is no ground: texts, say.
bool Painter::paintPixels(const Rings& rings, const std::vector<BandArea>& bands, std::size_t groundEnd)
{
    const QsdRect whole = boundsOf(rings);
    const std::optional<QsdRect>& limit = _clips.top().rect;
    const QsdRect bounds = limit ? whole.intersected(*limit) : whole;
    const RasterFrame frame = RasterFrame::around(bounds, _units.pixel());
    _pixels += frame.pixels();
    if (_pixels > MostPixels) {
        return false;
    }
    constexpr std::size_t None = 0;
    std::vector<std::size_t> inks(frame.pixels(), None); // number of the band and 1
    for (std::size_t i = 0; i < bands.size(); ++i) {
        fillRaster(frame, bands[i].area, FillRule::NonZero, [&](std::size_t p) { inks[p] = i + 1; });
    }
    const std::vector<Backdrop> backdrops = _groups.pixelsOf(_ground, frame, groundEnd);
    RasterPicture picture = emptyPicture(frame);
    Pixels& pixels = picture.pixels;
    fillRaster(frame, rings, FillRule::NonZero, [&](std::size_t p) {
        if (inks[p] != None && !bands[inks[p] - 1].ink.isInvisible()) {
            setPixel(pixels, p, _groups.shown(bands[inks[p] - 1].ink, backdrops[p]));
        }
    });
    hold(picture);
    const Rgb mean = meanColor(pixels);
    _ground.add(bounds, rings, mean, std::move(picture), _groups.start());
    return true;
}

// Translucent areas often lie one on the other; their pixels are drawn once.
void Painter::hold(const RasterPicture& picture)
{
    if (_held && _held->unite(picture)) {
        return;
    }
    drawHeld();
    _held = picture;
}

// Pixels around what was painted are taken from the ground where that is known, which spares a mask.
void Painter::drawHeld()
{
    if (!_held) {
        return;
    }
    const RasterFrame frame = _held->frame;
    const QsdRect bounds = frame.bounds();
    const bool known = std::none_of(_unknown.begin(), _unknown.end(),
                                    [&](const QsdRect& rect) { return !rect.intersected(bounds).isEmpty(); });
    const std::vector<Rgb> ground = _ground.pixelsOf(frame, _ground.count());
    for (std::size_t p = 0; known && p < ground.size(); ++p) {
        setPixel(_held->pixels, p, ground[p]);
    }
    // Without a mask, as where it would have too many runs, the ground is the best there is.
    const auto shownAt = [&](const Ink& ink, Point p) {
        return ink.isInvisible() ? ground[static_cast<std::size_t>(p.y) * static_cast<std::size_t>(frame.width) +
                                          static_cast<std::size_t>(p.x)]
                                 : ink.color;
    };
    const std::unique_ptr<QsdBitmap> bitmap = bitmapOf(*_port.display(), _held->pixels, 1, shownAt);
    _held.reset();
    const QsdTransformer scale(frame.pixel, 0, 0, frame.pixel, 0, 0);
    const QsdPoint corner = rounded({frame.x * frame.pixel, frame.y * frame.pixel});
    _tools.palette->setClipRegion(QsdRegion::Full());
    if (bitmap->mask() != nullptr) {
        _port.stretchTransparentBitmap(_tools.palette.get(), corner, bitmap.get(), scale, nullptr);
    } else {
        _port.stretchBitmap(_tools.palette.get(), corner, bitmap.get(), scale, nullptr);
    }
}

// What comes to lie on the pixels held back has to be drawn after them.
void Painter::drawHeldUnder(const QsdRect& bounds)
{
    if (_held && !_held->frame.bounds().intersected(bounds).isEmpty()) {
        drawHeld();
    }
}

void Painter::finish()
{
    drawHeld();
}

void Painter::fillOpaque(Rings rings, FillRule rule, Rgb color)
{
    const QsdRect bounds = boundsOf(rings);
    if (rings.empty() || !clipTo(bounds)) {
        return;
    }
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setFillRule(rule == FillRule::EvenOdd ? QsdEvenOddRule : QsdWindingRule);
    fillPolygons(_port, palette, rings);
    const std::optional<QsdRect>& limit = _clips.top().rect;
    _ground.add(limit ? bounds.intersected(*limit) : bounds, std::move(rings), rule, color);
}

bool Painter::clipTo(const QsdRect& bounds)
{
    drawHeldUnder(bounds);
    const std::optional<QsdRect>& limit = _clips.top().rect;
    if (!limit) {
        _tools.palette->setClipRegion(QsdRegion::Full());
        return true;
    }
    // A shape may be thinner than a unit; it counts as one.
    const QsdRect covered{bounds.x, bounds.y, std::max(bounds.width, 1U), std::max(bounds.height, 1U)};
    const QsdRect visible = covered.intersected(*limit);
    if (visible.isEmpty()) {
        return false;
    }
    // What lies inside the clip anyway is drawn without one, so that the document does not change its clip for nothing.
    _tools.palette->setClipRegion(visible == covered ? QsdRegion::Full() : QsdRegion(*limit));
    return true;
}

void Painter::stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage)
{
    strokeOver(_ground.count(), path, style, paint, toPage);
}

void Painter::strokeOver(std::size_t groundEnd, const Path& path, const StrokeStyle& style, const Paint& paint,
                         const Matrix& toPage)
{
    if (paint.none()) {
        return;
    }
    const Matrix toUnits = _pageToUnits * toPage;
    const double unitsPerPixel = _pageToUnits.meanScale();
    const double tolerance = _units.tolerance();
    const auto area = [path, style, frame = strokeFrame(toPage), &report = _report] {
        return strokeArea(path, style, frame, report);
    };
    const Rgb* const color = std::get_if<Rgb>(&paint.source);
    if (color != nullptr && !_clips.top().area && (toUnits.isUniform() || style.nonScaling) && style.dashes.empty()) {
        const double width = style.width * (style.nonScaling ? unitsPerPixel : toUnits.meanScale());
        const Ink ink{*color, paint.opacity};
        if (strokeAsLines(groundEnd, flattened(path, toUnits, tolerance), style, width, ink, area)) {
            return;
        }
    }
    paintArea(groundEnd, area(), FillRule::NonZero, paint, toPage);
}

StrokeFrame Painter::strokeFrame(const Matrix& toPage) const
{
    return {_pageToUnits * toPage, _pageToUnits.meanScale(), _units.tolerance(), _clips.top().rect};
}

bool Painter::strokeAsLines(std::size_t groundEnd, const std::vector<Chain>& chains, const StrokeStyle& style,
                            double width, const Ink& ink, Ground::AreaMaker area)
{
    constexpr double WidestLine = 65535;
    if (!(width >= 0.5) || width > WidestLine || !fitsLines(chains, style)) {
        return false;
    }
    const Rings lines = linesOf(chains, width);
    QsdRect bounds = boundsOf(lines);
    const auto margin = static_cast<std::int32_t>(std::ceil(width * PortMiterLimit / 2));
    bounds = {bounds.x - margin, bounds.y - margin, bounds.width + 2 * static_cast<std::uint32_t>(margin),
              bounds.height + 2 * static_cast<std::uint32_t>(margin)};
    if (!_groups.isOpaque(ink) && !_ground.isBare(bounds, _groups.endFor(ink, groundEnd))) {
        return false;
    }
    if (lines.empty() || !clipTo(bounds)) {
        return true;
    }
    const Rgb color = blend(ink, _groups.opacity(), _ground.paper());
    QsdPalette& palette = *_tools.palette;
    palette.setForeground(_tools.colors.get(color));
    palette.setLineStyle(nullptr, static_cast<std::uint16_t>(std::lround(width)));
    for (const Ring& line : lines) {
        drawLine(_port, palette, line);
    }
    const std::optional<QsdRect>& limit = _clips.top().rect;
    _ground.add(limit ? bounds.intersected(*limit) : bounds, std::move(area), color);
    return true;
}

void Painter::image(const ImageObject& image, double opacity, const Matrix& toPage)
{
    const std::optional<Pixels> pixels = decodeImage(image.data);
    if (!pixels || pixels->width == 0 || pixels->height == 0) {
        _report.notDrawn("image", 0, image.name);
        return;
    }
    const Matrix toUnits = _pageToUnits * toPage;
    const Matrix placed = toUnits * placementOf(image, pixels->width, pixels->height);
    const Rings frame = ringsOf(flattened(
        outlineOf({0, 0, static_cast<double>(pixels->width), static_cast<double>(pixels->height)}), placed, 1));
    if (image.slice) {
        _clips.push(ringsOf(flattened(outlineOf(image.viewport), toUnits, 1)));
    }
    const QsdRect bounds = boundsOf(frame);
    if (!frame.empty() && clipTo(bounds)) {
        if (_clips.top().area) {
            _report.approximated("clipped image");
        }
        const std::optional<QsdRect>& limit = _clips.top().rect;
        const QsdRect visible = limit ? bounds.intersected(*limit) : bounds;
        const RasterFrame raster = RasterFrame::around(visible, _units.pixel());
        const bool rasterable = (_pixels += raster.pixels()) <= MostPixels;
        const std::vector<Backdrop> backdrops =
            rasterable ? _groups.pixelsOf(_ground, raster, _ground.count()) : std::vector<Backdrop>();
        const auto shownAt = [&](const Ink& ink, Point p) {
            if (_groups.isOpaque(ink)) {
                return ink.color;
            }
            const std::optional<std::size_t> index = raster.indexAt(placed.map(p));
            return index && rasterable ? _groups.shown(ink, backdrops[*index])
                                       : blend(ink, _groups.opacity(), _ground.paper());
        };
        const std::unique_ptr<QsdBitmap> bitmap = bitmapOf(*_port.display(), *pixels, opacity, shownAt);
        const QsdTransformer factors(placed.a, placed.c, placed.b, placed.d, 0, 0);
        const QsdPoint corner = rounded({placed.e, placed.f});
        if (bitmap->mask() != nullptr) {
            _port.stretchTransparentBitmap(_tools.palette.get(), corner, bitmap.get(), factors, nullptr);
        } else {
            _port.stretchBitmap(_tools.palette.get(), corner, bitmap.get(), factors, nullptr);
        }
        if (rasterable) {
            RasterPicture shown =
                sampled(*pixels, placed.inverse(), opacity, raster,
                        [&](const Ink& ink, std::size_t pixel) { return _groups.shown(ink, backdrops[pixel]); });
            const Rgb mean = meanColor(shown.pixels);
            _ground.add(visible, intersection(frame, FillRule::NonZero, ringsOf(visible)), mean, std::move(shown),
                        _groups.start());
        } else {
            _unknown.push_back(bounds);
        }
    }
    if (image.slice) {
        _clips.pop();
    }
}

void Painter::pushClip(const ClipPath& clip)
{
    _clips.push(clip);
}

void Painter::popClip()
{
    _clips.pop();
}

void Painter::beginGroup(double opacity)
{
    _groups.begin(opacity, _ground.count());
}

void Painter::endGroup()
{
    _groups.end();
}

} // namespace qsdps
