#include "ps/QsdPSPrintResources_p.h"

#include <algorithm>

bool QsdPSIsOwnComposite(std::string_view name, std::string_view& base)
{
    constexpr std::string_view Suffix = "-QSD-H";
    if (name.size() <= Suffix.size() || name.substr(name.size() - Suffix.size()) != Suffix) {
        return false;
    }
    base = name.substr(0, name.size() - Suffix.size());
    return true;
}

void QsdPSPrintResources::reset()
{
    _fonts.clear();
    _supplied.clear();
    _patterns.clear();
    _lastPattern = 0;
    _fontFiles.reset();
    _patternDefinitions.reset();
}

unsigned QsdPSPrintResources::font(std::string_view name, QsdPSGlyphs glyphs)
{
    const auto same = [&](const Font& font) { return font.name == name && font.glyphs == glyphs; };
    const auto found = std::find_if(_fonts.begin(), _fonts.end(), same);
    if (found != _fonts.end()) {
        return static_cast<unsigned>(found - _fonts.begin());
    }
    _fonts.push_back({std::string(name), glyphs});
    return static_cast<unsigned>(_fonts.size() - 1);
}

void QsdPSPrintResources::supplyFont(std::string_view name)
{
    if (std::find(_supplied.begin(), _supplied.end(), name) == _supplied.end()) {
        _supplied.emplace_back(name);
    }
}

std::vector<std::string> QsdPSPrintResources::partsOf(const Font& font)
{
    std::string_view base;
    if (font.glyphs != QsdPSGlyphs::MultiByte || !QsdPSIsOwnComposite(font.name, base)) {
        return {font.name};
    }
    return {"Helvetica", std::string(base) + "-H", std::string(base) + ".Hankaku"};
}

std::vector<std::string> QsdPSPrintResources::neededFonts() const
{
    std::vector<std::string> needed;
    const auto add = [&](std::string name) {
        if (std::find(_supplied.begin(), _supplied.end(), name) == _supplied.end() &&
            std::find(needed.begin(), needed.end(), name) == needed.end()) {
            needed.push_back(std::move(name));
        }
    };
    for (const Font& font : _fonts) {
        for (std::string& part : partsOf(font)) {
            add(std::move(part));
        }
    }
    return needed;
}

unsigned QsdPSPrintResources::pattern(const QsdPSPatternKey& key, bool& isNew)
{
    const auto [place, inserted] = _patterns.emplace(key, _lastPattern + 1);
    isNew = inserted;
    _lastPattern += inserted ? 1 : 0;
    return place->second;
}
