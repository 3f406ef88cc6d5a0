#include "toolkit/port/QsdDisplay.h"

#include "toolkit/base/QsdMessages.h"
#include "toolkit/graphics/QsdBitmapData.h"
#include "toolkit/port/QsdDataPath_p.h"
#include "toolkit/port/QsdMessageTexts_p.h"
#include "toolkit/port/QsdPaletteCache_p.h"
#include "toolkit/port/QsdResourceTable_p.h"
#include "toolkit/raster/QsdPixels.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <new>
#include <utility>
#include <vector>

namespace {

constexpr std::uint16_t DefaultFontSize = 12;

QsdResourceTable readTable(const char* name)
{
    QsdResourceTable table;
    if (const std::string path = QsdFindDataFile(name); !path.empty()) {
        std::ifstream stream(path);
        table.read(stream);
    }
    return table;
}

/// The message file's texts, less those that take other arguments than the texts they replace.
QsdResourceTable readMessages()
{
    QsdResourceTable messages;
    const QsdResourceTable file = readTable("qsdmessages");
    for (const auto& [key, text] : file.entries()) {
        const char* const builtIn = QsdBuiltInMessage(key);
        if (builtIn != nullptr && QsdSameConversions(text, builtIn)) {
            messages.set(key, text);
        }
    }
    return messages;
}

} // namespace

QsdDisplay::QsdDisplay()
    : _settings(std::make_unique<QsdResourceTable>()),
      _solidPattern(QsdHandle<const QsdPattern>::Adopt(new QsdPattern(1, 1, nullptr))),
      _solidLineStyle(QsdHandle<const QsdLineStyle>::Adopt(new QsdLineStyle(0, nullptr))),
      _defaultFont(QsdHandle<const QsdFont>::Adopt(new QsdFont("helvetica", QsdFontPlain, DefaultFontSize))),
      _black(QsdHandle<const QsdColor>::Adopt(new QsdColor(0, 0, 0))),
      _white(QsdHandle<const QsdColor>::Adopt(new QsdColor(65535, 65535, 65535))),
      _palettes(std::make_unique<QsdPaletteCache>())
{
}

QsdDisplay::~QsdDisplay() = default;

const char* QsdDisplay::getResource(const char* name, const char* fallback) const
{
    if (name == nullptr) {
        return fallback;
    }
    if (const char* const value = _settings->find(name)) {
        return value;
    }
    if (_resources == nullptr) {
        _resources = std::make_unique<QsdResourceTable>(readTable("qsdresources"));
    }
    const char* const value = _resources->find(name);
    return value == nullptr ? fallback : value;
}

const char* QsdDisplay::getEnvOrResource(const char* variable, const char* name, const char* fallback) const
{
    const char* const value = std::getenv(variable);
    return value == nullptr ? getResource(name, fallback) : value;
}

void QsdDisplay::setResource(const char* name, const char* value)
{
    if (value == nullptr) {
        _settings->remove(name);
    } else {
        _settings->set(name, value);
    }
}

const char* QsdDisplay::getMessage(const char* key) const
{
    try {
        if (_messages == nullptr) {
            _messages = std::make_unique<QsdResourceTable>(readMessages());
        }
        if (const char* const text = _messages->find(key)) {
            return text;
        }
    } catch (const std::bad_alloc&) {
        // What is to be told may well be that there is no memory.
        _messages.reset();
    }
    const char* const builtIn = QsdBuiltInMessage(key);
    return builtIn == nullptr ? key : builtIn;
}

QsString QsdDisplay::findInPath(const char* name, bool warn) const
{
    const std::string path = QsdFindDataFile(name);
    if (path.empty() && warn) {
        QsdWarning("Cannot find the data file %s", name == nullptr ? "" : name);
    }
    return QsString(path);
}

QsdPalette* QsdDisplay::getPalette(const QsdColor* background, const QsdColor* foreground, const QsdPattern* pattern,
                                   const QsdColorPattern* colorPattern, const QsdFont* font,
                                   const QsdLineStyle* lineStyle, unsigned short lineWidth, unsigned short fillStyle,
                                   unsigned short arcMode, unsigned short fillRule, unsigned short alpha,
                                   unsigned short antialiasing) const
{
    const auto given = [](const auto* object, const auto* otherwise) { return object != nullptr ? object : otherwise; };
    return _palettes->get(this, {given(background, white()), given(foreground, black()), given(pattern, solidPattern()),
                                 colorPattern, given(font, defaultFont()), given(lineStyle, solidLineStyle()),
                                 lineWidth, fillStyle, arcMode, fillRule, alpha, antialiasing});
}

unsigned short QsdDisplay::colorCount() const
{
    return screenDepth() > 8 ? std::uint16_t{0} : static_cast<unsigned short>(1U << screenDepth());
}

QsdColorTable QsdDisplay::colors() const
{
    const std::size_t count = colorCount();
    std::vector<unsigned short> components(count * 3);
    unsigned short* const reds = components.data();
    colorTable(static_cast<unsigned short>(count), reds, reds + count, reds + 2 * count);
    std::vector<QsdRGB> table;
    for (std::size_t i = 0; i < count; ++i) {
        table.push_back({static_cast<std::uint8_t>(reds[i] >> 8), static_cast<std::uint8_t>(reds[i + count] >> 8),
                         static_cast<std::uint8_t>(reds[i + 2 * count] >> 8)});
    }
    return QsdColorTable(std::move(table));
}

QsdFont* QsdDisplay::createFont(const char* family, std::uint16_t style, std::uint16_t size) const
{
    return new QsdFont(family, style, size);
}

QsdColorPattern* QsdDisplay::createColorPattern(const QsdBitmapData& data) const
{
    QsdPixels pixels(data.width(), data.height(), screenDepth());
    pixels.assign(data, colors());
    std::vector<unsigned char> bytes = pixels.bytes();
    if (screenDepth() == 1) {
        // Set bits of a bitmap are ink, but those of a one-bit colour are light.
        std::transform(bytes.begin(), bytes.end(), bytes.begin(), std::bit_not<unsigned char>());
    }
    return new QsdColorPattern(static_cast<std::uint16_t>(data.width()), static_cast<std::uint16_t>(data.height()),
                               screenDepth(), bytes.data(), bytes.size());
}
