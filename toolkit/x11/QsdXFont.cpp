#include "toolkit/x11/QsdXFont.h"

#include "toolkit/x11/QsdXFace_p.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <utility>

QsdXFont::QsdXFont(const char* family, std::uint16_t style, std::uint16_t size, std::shared_ptr<const QsdXFace> face)
    : QsdFont(family, style, size, face->ascent(), face->descent()), _face(std::move(face))
{
}

double QsdXFont::stringWidth(const char* text, int length) const
{
    if (text == nullptr) {
        return 0;
    }
    const std::size_t count = length < 0 ? std::strlen(text) : static_cast<std::size_t>(length);
    return static_cast<double>(_face->width({text, std::min<std::size_t>(count, INT_MAX)}));
}

std::vector<QsString> QsdXFont::windowSystemNames() const
{
    return _face->names();
}
