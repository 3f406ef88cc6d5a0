#include "page/painter.h"

#include "page/gradient_bands.h"
#include "page/line_fit.h"
#include "page/picture.h"
#include "page/polygons.h"
#include "page/stroker.h"
#include "page/tiling.h"

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

/// What a picture under `toPixels` and an opacity shows of a frame, on that ground.
RasterPicture sampled(const Pixels& pixels, const Matrix& toPixels, double opacity, const RasterFrame& frame,
                      const std::vector<Rgb>& ground)
{
    RasterPicture shown{frame, {}};
    shown.pixels.width = static_cast<std::uint32_t>(frame.width);
    shown.pixels.height = static_cast<std::uint32_t>(frame.height);
    shown.pixels.rgba.resize(4 * frame.pixels());
    for (std::size_t i = 0; i < frame.pixels(); ++i) {
        const Point at = toPixels.map(frame.centre(i));
        if (!(at.x >= 0 && at.y >= 0 && at.x < pixels.width && at.y < pixels.height)) {
            continue;
        }
        const std::uint8_t* const from =
            &pixels.rgba[4 * (static_cast<std::size_t>(at.y) * pixels.width + static_cast<std::size_t>(at.x))];
        const Ink ink{{from[0], from[1], from[2]}, from[3] / 255.0 * opacity};
        if (!ink.isInvisible()) {
            const Rgb color = blend(ink, 1, ground[i]);
            const std::uint8_t rgba[] = {color.r, color.g, color.b, 255};
            std::copy_n(rgba, 4, &shown.pixels.rgba[4 * i]);
        }
    }
    return shown;
}

} // namespace

Painter::Painter(const QsdPort& port, const Units& units, const Matrix& pageToPoints, Rgb paper, PaintTools& tools,
                 Report& report)
    : _port(port), _units(units), _pageToUnits(units.fromPoints() * pageToPoints), _tools(tools), _report(report),
      _clips(_pageToUnits, units.tolerance(), [this](const TextChunk& chunk) { return clipLetters(chunk); }),
      _ground(paper, detailOf(units))
{
}

std::size_t Painter::groundEndFor(const Ink& ink, std::size_t groundEnd) const
{
    return ink.isOpaque() && !_groups.empty() ? _groups.back().groundEnd : groundEnd;
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
    if (ink && isOpaque(*ink)) {
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
        fillArea(std::move(rings), *ink, groundEndFor(*ink, groundEnd));
    }
}

// All bands lie on the same ground, though each hides a bit of the one before.
void Painter::paintGradient(std::size_t groundEnd, const Rings& rings, const Gradient& gradient, double opacity,
                            const Matrix& toUnits)
{
    const QsdRect bounds = boundsOf(rings);
    const std::vector<BandArea> bands = bandAreas(gradient, toUnits * gradient.toUser, bounds, _units.tolerance());
    if (translucent(gradient, opacity) && isIntricate(rings, bands.size(), groundEnd)) {
        std::vector<Piece> pieces;
        pieces.reserve(bands.size());
        for (const BandArea& band : bands) {
            pieces.push_back({&band.area, {band.ink.color, band.ink.alpha * opacity}});
        }
        if (!pieces.empty() && paintPixels(rings, pieces, groundEnd)) {
            return;
        }
    }
    for (const BandArea& band : bands) {
        const Ink ink{band.ink.color, band.ink.alpha * opacity};
        fillArea(intersection(rings, FillRule::NonZero, band.area), ink, groundEndFor(ink, groundEnd));
    }
    if (bands.empty()) {
        const GradientStop& last = gradient.stops.back();
        const Ink ink{last.color, last.opacity * opacity};
        fillArea(rings, ink, groundEndFor(ink, groundEnd));
    }
}

bool Painter::translucent(const Gradient& gradient, double opacity) const
{
    return !std::all_of(gradient.stops.begin(), gradient.stops.end(), [&](const GradientStop& stop) {
        return isOpaque({stop.color, stop.opacity * opacity});
    });
}

// The mask keeps what is around the area as it is, also where it is no ground: texts, say.
bool Painter::paintPixels(const Rings& rings, const std::vector<Piece>& pieces, std::size_t groundEnd)
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
    std::vector<std::size_t> inks(frame.pixels(), None); // number of the piece and 1
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        fillRaster(frame, pieces[i].area == nullptr ? rings : *pieces[i].area, FillRule::NonZero,
                   [&](std::size_t p) { inks[p] = i + 1; });
    }
    const std::vector<Rgb> ground = _ground.pixelsOf(frame, groundEnd);
    RasterPicture picture{frame, {}};
    Pixels& pixels = picture.pixels;
    pixels.width = static_cast<std::uint32_t>(frame.width);
    pixels.height = static_cast<std::uint32_t>(frame.height);
    pixels.rgba.resize(4 * frame.pixels());
    fillRaster(frame, rings, FillRule::NonZero, [&](std::size_t p) {
        const Ink ink = inks[p] == None ? Ink{ground[p], 1} : pieces[inks[p] - 1].ink;
        const Rgb color = blend(ink, groupOpacity(), ground[p]);
        std::uint8_t* const rgba = &pixels.rgba[4 * p];
        rgba[0] = color.r;
        rgba[1] = color.g;
        rgba[2] = color.b;
        rgba[3] = 255;
    });
    hold(picture);
    const Rgb mean = meanColor(pixels);
    _ground.add(bounds, rings, mean, std::move(picture), _groups.empty() ? 0 : _groups.back().groundEnd);
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
    if (known) {
        const std::vector<Rgb> ground = _ground.pixelsOf(frame, _ground.count());
        for (std::size_t p = 0; p < ground.size(); ++p) {
            std::uint8_t* const rgba = &_held->pixels.rgba[4 * p];
            rgba[0] = ground[p].r;
            rgba[1] = ground[p].g;
            rgba[2] = ground[p].b;
            rgba[3] = 255;
        }
    }
    const std::unique_ptr<QsdBitmap> bitmap = bitmapOf(*_port.display(), _held->pixels, 1, [](Point) { return Rgb{}; });
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

// Translucent bands are cut up by what is under them; the more pieces, the better pixels serve.
bool Painter::isIntricate(const Rings& rings, std::size_t bands, std::size_t groundEnd)
{
    constexpr double ColorStep = 3;
    constexpr std::size_t MostPieces = 250;
    return _ground.isIntricate(boundsOf(rings), groundEnd) ||
           bands * _ground.under(rings, groundEnd, ColorStep).size() > MostPieces;
}

void Painter::paintTiles(const Rings& rings, const Tile& tile, double opacity, const Matrix& toPage)
{
    constexpr std::size_t MostCells = 20000;
    const Matrix toPattern = toPage * tile.toUser;
    const std::vector<Matrix> cells = cellsOver(boundsOf(rings), tile.cell, _pageToUnits * toPattern, MostCells);
    _cells += cells.size();
    if (cells.empty() || _cells > MostCells) {
        _report.notDrawn("pattern fill");
        return;
    }
    _clips.push(rings);
    if (opacity < 1) {
        beginGroup(opacity);
    }
    for (const Matrix& cell : cells) {
        const Matrix map = toPattern * cell;
        _clips.push(ringsOf(flattened(outlineOf(tile.cell), _pageToUnits * map, _units.tolerance())));
        tile.draw(*this, map);
        _clips.pop();
    }
    if (opacity < 1) {
        endGroup();
    }
    _clips.pop();
}

void Painter::fillArea(Rings rings, const Ink& ink, std::size_t groundEnd)
{
    if (rings.empty()) {
        return;
    }
    if (isOpaque(ink)) {
        fillOpaque(std::move(rings), FillRule::NonZero, ink.color);
        return;
    }
    if (_ground.isIntricate(boundsOf(rings), groundEnd) && paintPixels(rings, {{nullptr, ink}}, groundEnd)) {
        return;
    }
    constexpr double ColorStep = 3;
    const double shining = 1 - ink.alpha * groupOpacity();
    for (GroundPart& part : _ground.under(rings, groundEnd, ColorStep / std::max(shining, 0.01))) {
        fillOpaque(std::move(part.area), FillRule::NonZero, blend(ink, groupOpacity(), part.color));
    }
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
    const auto area = [path, style, frame = StrokeFrame{toUnits, unitsPerPixel, tolerance, _clips.top().rect},
                       &report = _report] { return strokeArea(path, style, frame, report); };
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

bool Painter::strokeAsLines(std::size_t groundEnd, const std::vector<Chain>& chains, const StrokeStyle& style,
                            double width, const Ink& ink, Ground::AreaMaker area)
{
    constexpr double WidestLine = 65535;
    if (!(width >= 0.5) || width > WidestLine || !fitsLines(chains, style)) {
        return false;
    }
    const Rings lines = linesOf(chains, width);
    QsdRect bounds = boundsOf(lines);
    const auto margin = static_cast<std::int32_t>(std::ceil(width * portMiterLimit / 2));
    bounds = {bounds.x - margin, bounds.y - margin, bounds.width + 2 * static_cast<std::uint32_t>(margin),
              bounds.height + 2 * static_cast<std::uint32_t>(margin)};
    if (!isOpaque(ink) && !_ground.isBare(bounds, groundEndFor(ink, groundEnd))) {
        return false;
    }
    if (lines.empty() || !clipTo(bounds)) {
        return true;
    }
    const Rgb color = blend(ink, groupOpacity(), _ground.paper());
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
        _report.notDrawn("image");
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
        const RasterFrame raster = RasterFrame::around(limit ? bounds.intersected(*limit) : bounds, _units.pixel());
        const bool rasterable = (_pixels += raster.pixels()) <= MostPixels;
        const std::vector<Rgb> ground = rasterable ? _ground.pixelsOf(raster, _ground.count()) : std::vector<Rgb>();
        const auto groundAt = [&](Point p) {
            const std::optional<std::size_t> index = raster.indexAt(placed.map(p));
            return index && rasterable ? ground[*index] : _ground.paper();
        };
        const double total = opacity * groupOpacity();
        const std::unique_ptr<QsdBitmap> bitmap = bitmapOf(*_port.display(), *pixels, total, groundAt);
        const QsdTransformer factors(placed.a, placed.c, placed.b, placed.d, 0, 0);
        const QsdPoint corner = rounded({placed.e, placed.f});
        if (bitmap->mask() != nullptr) {
            _port.stretchTransparentBitmap(_tools.palette.get(), corner, bitmap.get(), factors, nullptr);
        } else {
            _port.stretchBitmap(_tools.palette.get(), corner, bitmap.get(), factors, nullptr);
        }
        if (rasterable) {
            RasterPicture shown = sampled(*pixels, placed.inverse(), total, raster, ground);
            _ground.add(raster.bounds(), frame, meanColor(*pixels), std::move(shown),
                        _groups.empty() ? 0 : _groups.back().groundEnd);
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
    _groups.push_back({groupOpacity() * opacity, _ground.count()});
}

void Painter::endGroup()
{
    if (!_groups.empty()) {
        _groups.pop_back();
    }
}

} // namespace qsdps
