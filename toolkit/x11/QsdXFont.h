// Fonts of the X server.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdFont.h"

#include <memory>

class QsdXFace;

/// A font, or a set of fonts for the characters of the locale, that the server draws with. Made by
/// QsdXDisplay::createFont; it keeps the connection open as long as it lives.
class QSD_API QsdXFont : public QsdFont {
public:
    /// A font drawn with `face`, which must not be null and gives the metrics.
    QsdXFont(const char* family, std::uint16_t style, std::uint16_t size, std::shared_ptr<const QsdXFace> face);

    [[nodiscard]] double stringWidth(const char* text, int length) const override;
    /// The full X name of the font, or those of the fonts of a set.
    [[nodiscard]] std::vector<QsString> windowSystemNames() const override;
    /// The letters in the server; never null.
    [[nodiscard]] const std::shared_ptr<const QsdXFace>& face() const { return _face; }

private:
    std::shared_ptr<const QsdXFace> _face;
};
