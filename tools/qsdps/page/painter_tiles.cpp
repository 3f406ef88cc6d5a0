// Fills with tiles: the content of a pattern, repeated.
#include "page/painter.h"
#include "page/stroker.h"
#include "page/tiling.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace qsdps {

namespace {

/// Moves clips with everything in them by a map of the page. Clips share their parts, so each part is moved once.
class ClipMover {
public:
    explicit ClipMover(const Matrix& map) : _map(map) {}

    [[nodiscard]] ClipPath moved(const ClipPath& clip)
    {
        ClipPath result{clip.outlines, movedPart(clip.within)};
        for (ClipOutline& outline : result.outlines) {
            outline.toPage = _map * outline.toPage;
            outline.inner = movedPart(outline.inner);
            outline.around = movedPart(outline.around);
        }
        return result;
    }

private:
    [[nodiscard]] std::shared_ptr<const ClipPath> movedPart(const std::shared_ptr<const ClipPath>& part)
    {
        if (part == nullptr) {
            return nullptr;
        }
        const auto known = _parts.find(part.get());
        if (known != _parts.end()) {
            return known->second;
        }
        return _parts[part.get()] = std::make_shared<const ClipPath>(moved(*part));
    }

    const Matrix& _map;
    std::unordered_map<const ClipPath*, std::shared_ptr<const ClipPath>> _parts;
};

/// Whether a rectangle lies inside another one and touches none of its sides.
bool liesInside(const QsdRect& inner, const QsdRect& outer)
{
    return inner.x > outer.x && inner.y > outer.y && inner.right() < outer.right() && inner.bottom() < outer.bottom();
}

/// The area inside rings by a rule and inside a clip, for the non-zero rule.
Rings cut(Rings rings, FillRule rule, const ClipArea& clip)
{
    if (clip.area) {
        return intersection(rings, rule, *clip.area);
    }
    return clip.rect ? intersection(rings, rule, ringsOf(*clip.rect)) : simplified(rings, rule);
}

} // namespace

/// Draws each object in all cells before the next object. The cells do not overlap, so that looks the same as cell by
/// cell; and what runs over the sides of cells, such as their ground, becomes one area without seams.
class Painter::TileCanvas : public Canvas {
public:
    /// Paints with `painter`; `outline` is the cell on the page, which `shifts` (of the page) repeat.
    TileCanvas(Painter& painter, Path outline, Matrix toPage, std::vector<Matrix> shifts)
        : _painter(painter), _outline(std::move(outline)), _toPage(toPage), _shifts(std::move(shifts))
    {
    }

    void fill(const Path& path, FillRule rule, const Paint& paint, const Matrix& toPage) override
    {
        const std::size_t groundEnd = _painter._ground.count();
        const auto paintOne = [&](const Matrix& map) { _painter.fillOver(groundEnd, path, rule, paint, map); };
        const auto area = [&](const Matrix& map) {
            return ringsOf(flattened(path, _painter._pageToUnits * map, _painter._units.tolerance()));
        };
        paintAll(groundEnd, area, rule, paint, toPage, paintOne);
    }

    void stroke(const Path& path, const StrokeStyle& style, const Paint& paint, const Matrix& toPage) override
    {
        const std::size_t groundEnd = _painter._ground.count();
        const auto paintOne = [&](const Matrix& map) { _painter.strokeOver(groundEnd, path, style, paint, map); };
        const auto area = [&](const Matrix& map) {
            return strokeArea(path, style, _painter.strokeFrame(map), _painter._report);
        };
        paintAll(groundEnd, area, FillRule::NonZero, paint, toPage, paintOne);
    }

    void text(const TextChunk& chunk, const Matrix& toPage) override
    {
        inEachCell(toPage, [&](const Matrix& map) { _painter.text(chunk, map); });
    }

    void image(const ImageObject& image, double opacity, const Matrix& toPage) override
    {
        inEachCell(toPage, [&](const Matrix& map) { _painter.image(image, opacity, map); });
    }

    void pushClip(const ClipPath& clip) override { _tileClips.push_back(clip); }
    void popClip() override
    {
        if (!_tileClips.empty()) {
            _tileClips.pop_back();
        }
    }
    void beginGroup(double opacity) override { _painter.beginGroup(opacity); }
    void endGroup() override { _painter.endGroup(); }

private:
    [[nodiscard]] Rings cellAt(const Matrix& shift) const
    {
        return ringsOf(flattened(_outline, _painter._pageToUnits * shift * _toPage, _painter._units.tolerance()));
    }

    /// Limits what follows on a stack to a cell and the clips inside it.
    void pushClips(ClipStack& clips, const Matrix& shift) const
    {
        clips.push(cellAt(shift));
        for (const ClipPath& clip : _tileClips) {
            clips.push(ClipMover(shift).moved(clip));
        }
    }

    template <class PaintOne>
    void inEachCell(const Matrix& toPage, PaintOne paintOne)
    {
        for (const Matrix& shift : _shifts) {
            pushClips(_painter._clips, shift);
            paintOne(shift * toPage);
            for (std::size_t i = 0; i <= _tileClips.size(); ++i) {
                _painter._clips.pop();
            }
        }
    }

    /// Paints an area in all cells: as one where it reaches the sides of its cell, or else cell by cell.
    template <class AreaAt, class PaintOne>
    void paintAll(std::size_t groundEnd, AreaAt areaAt, FillRule rule, const Paint& paint, const Matrix& toPage,
                  PaintOne paintOne)
    {
        if (_shifts.size() == 1 || !canUnite(groundEnd, paint) || staysInside(areaAt(_shifts.front() * toPage))) {
            inEachCell(toPage, paintOne);
            return;
        }
        Rings all;
        for (const Matrix& shift : _shifts) {
            ClipStack clips(_painter._pageToUnits, _painter._units.tolerance());
            pushClips(clips, shift);
            Rings piece = cut(areaAt(shift * toPage), rule, clips.top());
            std::move(piece.begin(), piece.end(), std::back_inserter(all));
        }
        _painter.paintArea(groundEnd, simplified(all, FillRule::NonZero), FillRule::NonZero, paint, toPage);
    }

    /// Whether a paint can be laid on all cells at once; what becomes pixels, which have no seams, stays small.
    [[nodiscard]] bool canUnite(std::size_t groundEnd, const Paint& paint) const
    {
        const auto* const color = std::get_if<Rgb>(&paint.source);
        if (color == nullptr || paint.none()) {
            return false;
        }
        const Ink ink{*color, paint.opacity};
        const std::optional<QsdRect>& limit = _painter._clips.top().rect;
        return _painter._groups.isOpaque(ink) || !limit ||
               !_painter._ground.isIntricate(*limit, _painter._groups.endFor(ink, groundEnd));
    }

    [[nodiscard]] bool staysInside(const Rings& area) const
    {
        const std::optional<QsdRect> cell = asRectangle(cellAt(_shifts.front()));
        return cell && liesInside(boundsOf(area), *cell);
    }

    Painter& _painter;
    Path _outline;
    Matrix _toPage;
    std::vector<Matrix> _shifts;
    std::vector<ClipPath> _tileClips; ///< begun in the tile, for the unshifted cell
};

void Painter::paintTiles(const Rings& rings, const Tile& tile, double opacity, const Matrix& toPage)
{
    constexpr std::size_t MostCells = 20000;
    const Matrix toPattern = toPage * tile.toUser;
    std::vector<Matrix> cells = cellsOver(boundsOf(rings), tile.cell, _pageToUnits * toPattern, MostCells);
    _cells += cells.size();
    if (cells.empty() || _cells > MostCells) {
        _report.notDrawn("pattern fill");
        return;
    }
    for (Matrix& cell : cells) {
        cell = toPattern * cell * toPattern.inverse();
    }
    _clips.push(rings);
    if (opacity < 1) {
        beginGroup(opacity);
    }
    TileCanvas canvas(*this, outlineOf(tile.cell), toPattern, std::move(cells));
    tile.draw(canvas, toPattern);
    if (opacity < 1) {
        endGroup();
    }
    _clips.pop();
}

} // namespace qsdps
