// What drawing needs from its surroundings: settings, messages, files, colours, shared objects and pixels.
#pragma once

#include "toolkit/base/QsString.h"
#include "toolkit/base/QsdExport.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/port/QsdPalette.h"
#include "toolkit/raster/QsdColorTable.h"

#include <cstdint>
#include <memory>

class QsdBitmapData;
class QsdPaletteCache;
class QsdResourceTable;
class QsdSystemPort;

/// A display: the embedded one in memory (QsdMemoryDisplay) or one of a window system. Ports and palettes refer to
/// their display without owning it.
class QSD_API QsdDisplay {
public:
    virtual ~QsdDisplay();
    QsdDisplay(const QsdDisplay&) = delete;
    QsdDisplay& operator=(const QsdDisplay&) = delete;

    /// The value of a resource: one set by the program, else one of the resource file "qsdresources" on the data path
    /// (lines "Name: value", "!" starts a comment), else `fallback` (null allowed). The text stays valid until the
    /// resource is set again or the display goes.
    [[nodiscard]] virtual const char* getResource(const char* name, const char* fallback) const;
    /// The value of the environment variable `variable` when it is set, else getResource(name, fallback).
    [[nodiscard]] const char* getEnvOrResource(const char* variable, const char* name, const char* fallback) const;
    /// Sets a resource for this display; a null `value` takes the setting back.
    void setResource(const char* name, const char* value);

    /// The text of a message, a printf format, by its key ("&QsdMsg015100"): from the message file "qsdmessages" on the
    /// data path, else the built-in text, else the key itself. A text of the file whose conversions are not those of
    /// the built-in one is not used. Never null.
    [[nodiscard]] const char* getMessage(const char* key) const;

    /// Looks for the file `name` (a relative path) in the folders of the data path: those of the environment variable
    /// QSDPATH (separated by ':'), the data folder beside the installed program or library, the one that the library
    /// was configured for. Returns the path of the first one that is there, empty when there is none. With `warn`, a
    /// missing file is reported as a warning.
    [[nodiscard]] QsString findInPath(const char* name, bool warn) const;

    /// Fills three arrays with the components (0 to 65535) of the first `count` colour table entries; entries beyond
    /// those of the display are black.
    virtual void colorTable(unsigned short count, unsigned short* reds, unsigned short* greens,
                            unsigned short* blues) const = 0;
    /// The number of colour table entries that pixels may stand for; by default 2 to the power of the screen depth, and
    /// 0 above a depth of 8.
    [[nodiscard]] virtual unsigned short colorCount() const;
    /// The same entries as colours of 8-bit components.
    [[nodiscard]] QsdColorTable colors() const;
    /// Bits per pixel: 1, up to 8 (colour table), above 8 (direct colour).
    [[nodiscard]] virtual unsigned short screenDepth() const = 0;
    /// Reads the pixels of `rect` of a drawable of this display, row by row: at a port depth of 1 eight pixels a byte,
    /// leftmost first in the most significant bit, rows of whole bytes; else, at a screen depth up to 8, one colour
    /// table index a byte; above, four bytes a pixel, red, green and blue in bytes 1 to 3. Pixels outside the drawable
    /// read as 0. `size` is set to the length in bytes. Release the data with QsFree; null, and a size of 0, when there
    /// are no pixels to read.
    [[nodiscard]] virtual unsigned char* getBitmapData(const QsdSystemPort* port, unsigned long& size,
                                                       const QsdRect& rect) const = 0;

    /// A shared palette with these attributes; null stands for the display's default as in QsdPalette. The caller gets
    /// one reference and gives it back with destroy(). Equal requests are served with the same palette while somebody
    /// holds it, and recent ones are kept, so that a repeated request costs no allocation. Do not change it.
    [[nodiscard]] QsdPalette* getPalette(const QsdColor* background, const QsdColor* foreground,
                                         const QsdPattern* pattern, const QsdColorPattern* colorPattern,
                                         const QsdFont* font, const QsdLineStyle* lineStyle, unsigned short lineWidth,
                                         unsigned short fillStyle, unsigned short arcMode, unsigned short fillRule,
                                         unsigned short alpha, unsigned short antialiasing) const;
    /// The pattern without gaps. This and the next four stand for "nothing special"; the display owns them.
    [[nodiscard]] const QsdPattern* solidPattern() const { return _solidPattern.get(); }
    /// The line without dashes.
    [[nodiscard]] const QsdLineStyle* solidLineStyle() const { return _solidLineStyle.get(); }
    /// The font of palettes that were given none.
    [[nodiscard]] const QsdFont* defaultFont() const { return _defaultFont.get(); }
    /// Black, the foreground of palettes that were given none.
    [[nodiscard]] const QsdColor* black() const { return _black.get(); }
    /// White, the background of palettes that were given none.
    [[nodiscard]] const QsdColor* white() const { return _white.get(); }

    /// A font of this display. The caller owns the reference.
    [[nodiscard]] virtual QsdFont* createFont(const char* family, std::uint16_t style, std::uint16_t size) const;
    /// A colour pattern of the pixels of `data` in this display's layout (nearest colours at a depth up to 8; at a
    /// depth of 1 light pixels are set). Width and height 1 to 65,535. The caller owns the reference.
    [[nodiscard]] QsdColorPattern* createColorPattern(const QsdBitmapData& data) const;

protected:
    QsdDisplay();

private:
    std::unique_ptr<QsdResourceTable> _settings;          ///< set by the program
    mutable std::unique_ptr<QsdResourceTable> _resources; ///< of the resource file, read when first asked for
    mutable std::unique_ptr<QsdResourceTable> _messages;  ///< of the message file, read when first asked for
    QsdHandle<const QsdPattern> _solidPattern;
    QsdHandle<const QsdLineStyle> _solidLineStyle;
    QsdHandle<const QsdFont> _defaultFont;
    QsdHandle<const QsdColor> _black;
    QsdHandle<const QsdColor> _white;
    std::unique_ptr<QsdPaletteCache> _palettes;
};
