// Letters that the server draws.
#pragma once

#include "toolkit/base/QsString.h"
#include "toolkit/geometry/QsdPoint.h"
#include "toolkit/x11/QsdXConnection_p.h"

#include <X11/Xlib.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A font of the server, or a set of them for the encoding of the C library's locale.
class QsdXFace {
public:
    /// The font called `name`, which may be a pattern; null when the server has none.
    [[nodiscard]] static std::shared_ptr<const QsdXFace> Font(std::shared_ptr<QsdXConnection> connection,
                                                              const std::string& name);
    /// A set of fonts by names separated by commas; null when there is none for the characters of the locale.
    [[nodiscard]] static std::shared_ptr<const QsdXFace> Set(std::shared_ptr<QsdXConnection> connection,
                                                             const std::string& names);
    QsdXFace(const QsdXFace&) = delete;
    QsdXFace& operator=(const QsdXFace&) = delete;
    ~QsdXFace();

    [[nodiscard]] const QsdXConnection& connection() const { return *_connection; }
    [[nodiscard]] std::uint16_t ascent() const { return _ascent; }
    [[nodiscard]] std::uint16_t descent() const { return _descent; }
    /// The full names: one, or one for each font of the set.
    [[nodiscard]] const std::vector<QsString>& names() const { return _names; }
    /// The advance of a text in pixels.
    [[nodiscard]] std::int64_t width(std::string_view text) const;
    /// Draws a text whose baseline begins at `at`, of which no more than the pixels from 0 to `right` can be seen.
    void draw(Drawable drawable, GC gc, const QsdPoint& at, std::string_view text, std::uint32_t right) const;

private:
    QsdXFace(std::shared_ptr<QsdXConnection> connection, XFontStruct* font, XFontSet set);
    [[nodiscard]] int advance(std::string_view piece) const;

    std::shared_ptr<QsdXConnection> _connection;
    XFontStruct* _font; ///< null when there is a set
    XFontSet _set;
    std::uint16_t _ascent = 0;
    std::uint16_t _descent = 0;
    std::vector<QsString> _names;
};
