#include "page/font_file.h"

#include <utility>
#include FT_OUTLINE_H

namespace qsdps {

namespace {

/// Takes the pieces of an outline from the reader of fonts.
class OutlineTaker {
public:
    /// `toEms` maps units of the font, y upwards, to those of the path.
    OutlineTaker(Path& path, const Matrix& toEms) : _path(path), _toEms(toEms) {}

    bool take(FT_Outline& outline)
    {
        FT_Outline_Funcs calls{};
        calls.move_to = [](const FT_Vector* to, void* self) { return of(self).move(*to); };
        calls.line_to = [](const FT_Vector* to, void* self) { return of(self).line(*to); };
        calls.conic_to = [](const FT_Vector* c, const FT_Vector* to, void* self) { return of(self).conic(*c, *to); };
        calls.cubic_to = [](const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* self) {
            return of(self).cubic(*c1, *c2, *to);
        };
        const bool whole = FT_Outline_Decompose(&outline, &calls, this) == 0;
        close();
        return whole;
    }

private:
    static OutlineTaker& of(void* self) { return *static_cast<OutlineTaker*>(self); }

    [[nodiscard]] Point point(const FT_Vector& v) const
    {
        return _toEms.map({static_cast<double>(v.x), static_cast<double>(v.y)});
    }
    void close()
    {
        if (_open) {
            _path.close();
        }
    }
    int move(const FT_Vector& to)
    {
        close();
        _open = true;
        _at = point(to);
        _path.moveTo(_at);
        return 0;
    }
    int line(const FT_Vector& to)
    {
        _at = point(to);
        _path.lineTo(_at);
        return 0;
    }
    int conic(const FT_Vector& c, const FT_Vector& to)
    {
        const Point control = point(c);
        const Point end = point(to);
        const auto towards = [&](Point p) {
            return Point{p.x + (control.x - p.x) * 2 / 3, p.y + (control.y - p.y) * 2 / 3};
        };
        _path.cubicTo(towards(_at), towards(end), end);
        _at = end;
        return 0;
    }
    int cubic(const FT_Vector& c1, const FT_Vector& c2, const FT_Vector& to)
    {
        _at = point(to);
        _path.cubicTo(point(c1), point(c2), _at);
        return 0;
    }

    Path& _path;
    Matrix _toEms;
    Point _at;
    bool _open = false;
};

} // namespace

std::optional<Letter> FontFile::letter(char32_t character)
{
    const FT_UInt found = index(character);
    return found == 0 ? std::nullopt : glyph(found);
}

std::optional<Letter> FontFile::substitute()
{
    return open() ? glyph(0) : std::nullopt;
}

double FontFile::kerning(char32_t first, char32_t second)
{
    FT_Vector distance{};
    if (!open() || !FT_HAS_KERNING(_face.get()) ||
        FT_Get_Kerning(_face.get(), index(first), index(second), FT_KERNING_UNSCALED, &distance) != 0) {
        return 0;
    }
    return static_cast<double>(distance.x) / _face->units_per_EM;
}

bool FontFile::open()
{
    if (std::exchange(_tried, true)) {
        return _face != nullptr;
    }
    FT_Face face = nullptr;
    if (FT_New_Face(_library, _source.file.c_str(), _source.number, &face) != 0) {
        return false;
    }
    _face.reset(face);
    if (!FT_IS_SCALABLE(face) || face->units_per_EM == 0) {
        _face.reset();
    }
    return _face != nullptr;
}

std::optional<Letter> FontFile::glyph(FT_UInt index)
{
    if (FT_Load_Glyph(_face.get(), index, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0 ||
        _face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
        return std::nullopt;
    }
    FT_Outline& outline = _face->glyph->outline;
    FT_Pos advance = _face->glyph->metrics.horiAdvance;
    if (_source.bolder && outline.n_points > 0) {
        constexpr FT_Pos PartOfEm = 24; // as FreeType itself has it
        const FT_Pos strength = _face->units_per_EM / PartOfEm;
        FT_Outline_Embolden(&outline, strength);
        advance += FT_IS_FIXED_WIDTH(_face.get()) ? 0 : strength;
    }
    const double em = 1.0 / _face->units_per_EM;
    Letter letter;
    letter.advance = static_cast<double>(advance) * em;
    if (!OutlineTaker(letter.outline, Matrix::scaling(em, -em) * _source.shape).take(outline)) {
        return std::nullopt;
    }
    return letter;
}

} // namespace qsdps
