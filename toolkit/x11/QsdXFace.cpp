#include "toolkit/x11/QsdXFace_p.h"

#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/graphics/QsdCharacters_p.h"

#include <algorithm>
#include <functional>
#include <langinfo.h>
#include <utility>

namespace {

/// Calls `use` with pieces of whole characters, short enough for a request and for X's coordinates.
void forEachPiece(std::string_view text, const std::function<void(std::string_view)>& use)
{
    constexpr std::size_t LongestPiece = 200;
    std::size_t begin = 0;
    std::size_t end = 0;
    QsdForEachCharacter(text.data(), static_cast<int>(text.size()), [&](const QsdCharacter& character) {
        end += character.length;
        if (end - begin >= LongestPiece || end == text.size()) {
            use(text.substr(begin, end - begin));
            begin = end;
        }
    });
}

std::uint16_t heldMetric(int metric)
{
    return static_cast<std::uint16_t>(std::clamp(metric, 0, 32767));
}

/// What the font calls itself, or else what it was asked for by.
QsString nameOf(Display* display, const XFontStruct& font, const std::string& otherwise)
{
    unsigned long atom = 0;
    if (XGetFontProperty(const_cast<XFontStruct*>(&font), XInternAtom(display, "FONT", False), &atom) != 0) {
        if (char* const name = XGetAtomName(display, atom)) {
            QsString result(name);
            XFree(name);
            return result;
        }
    }
    return QsString(otherwise);
}

} // namespace

std::shared_ptr<const QsdXFace> QsdXFace::Font(std::shared_ptr<QsdXConnection> connection, const std::string& name)
{
    XFontStruct* const font = XLoadQueryFont(connection->display(), name.c_str());
    if (font == nullptr) {
        return nullptr;
    }
    std::shared_ptr<QsdXFace> face(new QsdXFace(std::move(connection), font, nullptr));
    face->_ascent = heldMetric(font->ascent);
    face->_descent = heldMetric(font->descent);
    face->_names.push_back(nameOf(face->_connection->display(), *font, name));
    return face;
}

std::shared_ptr<const QsdXFace> QsdXFace::Set(std::shared_ptr<QsdXConnection> connection, const std::string& names)
{
    // Texts are in the toolkit's encoding, and Xlib reads them in that of the C library.
    const QsEncoding encoding = QsdGlobalContext::GetInstance().getLocale().getEncoding();
    if (QsLocale::GetQsEncoding(nl_langinfo(CODESET)) != encoding || XSupportsLocale() == False) {
        return nullptr;
    }
    char** missing = nullptr;
    int missingCount = 0;
    const XFontSet set = XCreateFontSet(connection->display(), names.c_str(), &missing, &missingCount, nullptr);
    XFreeStringList(missing);
    if (set == nullptr) {
        return nullptr;
    }
    std::shared_ptr<QsdXFace> face(new QsdXFace(std::move(connection), nullptr, set));
    XFontStruct** fonts = nullptr;
    char** fontNames = nullptr;
    const int count = XFontsOfFontSet(set, &fonts, &fontNames);
    for (int i = 0; i < count; ++i) {
        face->_ascent = std::max(face->_ascent, heldMetric(fonts[i]->ascent));
        face->_descent = std::max(face->_descent, heldMetric(fonts[i]->descent));
        face->_names.push_back(nameOf(face->_connection->display(), *fonts[i], fontNames[i]));
    }
    return face;
}

QsdXFace::QsdXFace(std::shared_ptr<QsdXConnection> connection, XFontStruct* font, XFontSet set)
    : _connection(std::move(connection)), _font(font), _set(set)
{
}

QsdXFace::~QsdXFace()
{
    if (_font != nullptr) {
        XFreeFont(_connection->display(), _font);
    } else {
        XFreeFontSet(_connection->display(), _set);
    }
}

int QsdXFace::advance(std::string_view piece) const
{
    const auto length = static_cast<int>(piece.size());
    return _font != nullptr ? XTextWidth(_font, piece.data(), length) : XmbTextEscapement(_set, piece.data(), length);
}

std::int64_t QsdXFace::width(std::string_view text) const
{
    std::int64_t sum = 0;
    forEachPiece(text, [&](std::string_view piece) { sum += advance(piece); });
    return sum;
}

void QsdXFace::draw(Drawable drawable, GC gc, const QsdPoint& at, std::string_view text, std::uint32_t right) const
{
    const std::int64_t overhang = _ascent + _descent;
    std::int64_t pen = at.x;
    if (_font != nullptr) {
        XSetFont(_connection->display(), gc, _font->fid);
    }
    forEachPiece(text, [&](std::string_view piece) {
        const std::int64_t end = pen + advance(piece);
        if (end + overhang >= 0 && pen - overhang <= right) {
            const auto x = static_cast<int>(pen);
            const auto length = static_cast<int>(piece.size());
            if (_font != nullptr) {
                XDrawString(_connection->display(), drawable, gc, x, at.y, piece.data(), length);
            } else {
                XmbDrawString(_connection->display(), drawable, _set, gc, x, at.y, piece.data(), length);
            }
        }
        pen = end;
    });
}
