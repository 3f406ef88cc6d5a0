// Which letters of the server stand for a font.
#pragma once

#include "toolkit/graphics/QsdFont.h"
#include "toolkit/x11/QsdXFace_p.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// Finds faces and keeps the latest, also what the server does not have.
class QsdXFontCache {
public:
    explicit QsdXFontCache(std::shared_ptr<QsdXConnection> connection) : _connection(std::move(connection)) {}

    /// The face that `font` is drawn with when it is `scale` times as large; null when the server has none.
    [[nodiscard]] std::shared_ptr<const QsdXFace> faceOf(const QsdFont& font, double scale = 1);
    /// The face for a family (null: the usual one), style bits and size in pixels, where the server has it.
    [[nodiscard]] std::shared_ptr<const QsdXFace> find(const char* family, std::uint16_t style, unsigned size);
    /// The face with names of X, separated by commas.
    [[nodiscard]] std::shared_ptr<const QsdXFace> findByName(const std::string& names);

private:
    using Face = std::shared_ptr<const QsdXFace>;

    template <class Load>
    Face remembered(const std::string& key, Load load);
    [[nodiscard]] Face load(const std::string& family, std::uint16_t style, unsigned size) const;

    std::shared_ptr<QsdXConnection> _connection;
    std::vector<std::pair<std::string, Face>> _known; ///< the latest at the end
};
