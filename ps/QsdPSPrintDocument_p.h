// The document that a QsdPSPrintDevice is writing.
#pragma once

#include "ps/QsdPSExtent_p.h"
#include "ps/QsdPSPrintResources_p.h"
#include "ps/QsdPSSpool_p.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"
#include "toolkit/geometry/QsdRegion.h"
#include "toolkit/geometry/QsdTransformer.h"
#include "toolkit/graphics/QsdColor.h"
#include "toolkit/graphics/QsdFont.h"
#include "toolkit/graphics/QsdLineStyle.h"
#include "toolkit/graphics/QsdPattern.h"

#include <array>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What parts of a palette an operation draws with.
enum class QsdPSUse : std::uint8_t { Everything, Stroke, Fill, Text };

/// The part of a palette that the interpreter has in effect on the page under way; what is absent is not known.
struct QsdPSInForce {
    QsdHandle<const QsdFont> font;
    std::optional<std::pair<unsigned, int>> fontAndSize; ///< the number of the document's font, and units
    std::optional<std::array<std::uint16_t, 3>> color;   ///< as it is written: thousandths; a grey three times
    QsdHandle<const QsdLineStyle> lineStyle;
    std::optional<unsigned long> lineWidth;
    QsdHandle<const QsdColor> foreground; ///< that the colour was taken from, and how
    bool foregroundInColor = false;
    QsdTransformer transformer;
    QsdPSExtent held;        ///< in its coordinates: what the page's extent holds already, whatever the clip
    std::vector<bool> fonts; ///< by number, those that the page uses
};

/// A finished page.
struct QsdPSPageRecord {
    std::uint64_t end = 0; ///< of its text among the pages'
    QsdPSExtent extent;
    std::uint32_t fonts = 0; ///< which set of fonts
};

/// A clip that goes on from page to page, in the space of the transformer it was given in.
struct QsdPSPageClip {
    QsdRegion region = QsdRegion::Full();
    QsdTransformer transformer;
};

class QsdPSPrintDocument {
public:
    /// Begins a document for `output` (not owned), which gets nothing before the document is complete.
    void begin(std::ostream* output, const QsdRect* bbox, const QsdTransformer& page);
    /// Copies a part of what was kept, or all of it, to the output.
    void copy(QsdPSSpool& spool, std::uint64_t begin, std::uint64_t end);
    void copy(QsdPSSpool& spool) { copy(spool, 0, spool.size()); }
    /// Whether something that was to be kept could not be, so that the document would lack it.
    [[nodiscard]] bool isLost() const { return pageTexts.fail() || resources.failed(); }
    /// Ends the page under way: notes where its text ends, how far it reaches and what fonts it uses.
    void endPage();
    /// Looks whether a text that is written as it is consists of 7-bit characters.
    void noteBytes(std::string_view text);
    void setTransformer(const QsdTransformer& t);
    /// Takes into account that a box in the coordinates in force, and what lies so many points around it, was drawn on.
    void reach(const QsdPSExtent& box, double margin);
    /// The extent of all finished pages.
    [[nodiscard]] QsdPSExtent extent() const;

    std::ostream* output = nullptr;
    std::string fileName;
    unsigned long level = 2; ///< 1 to 3
    unsigned long paperWidth = 0;
    unsigned long paperHeight = 0;
    std::optional<QsdRect> bbox;
    QsdPSPrintResources resources;
    QsdPSSpool pageTexts;
    std::unique_ptr<QsdPostScriptEncoder> encoder; ///< of samples where the device's does not suit; null at first
    std::vector<QsdPSPageRecord> pages;
    std::vector<std::vector<bool>> fontSets;

    QsdTransformer page; ///< from the port's coordinates to points
    QsdPSExtent paper;
    QsdPSInForce inForce;
    QsdPSUse use = QsdPSUse::Everything;
    bool zoomableLineWidths = true;
    bool sevenBits = true; ///< whether the document is free of other bytes
    QsdPSPageClip initialClip;
    QsdPSPageClip clip;
    QsdPSExtent clipBox;                      ///< of both clips, on the page
    QsdPSExtent pageExtent;                   ///< of what the page under way shows
    QsdHandle<const QsdResource> lastPattern; ///< the one filled with last, and its number
    unsigned lastPatternNumber = 0;
    bool lastPatternInColor = false; ///< how its tile was taken
    bool lastPatternUpright = false;

private:
    void reachFurther(const QsdPSExtent& box, double margin);

    std::map<std::vector<bool>, std::uint32_t> _fontSetNumbers;
};

/// An extent without coordinates that an integer of 32 bits cannot hold; zeros for an empty one.
[[nodiscard]] QsdPSExtent QsdPSHeldExtent(const QsdPSExtent& extent);

/// The smallest box of whole points around an extent, left, bottom, right, top; zeros for an empty one.
[[nodiscard]] std::array<std::int32_t, 4> QsdPSBoxOf(const QsdPSExtent& extent);

/// The extent on the page of a rectangle of coordinates under a transformer.
[[nodiscard]] QsdPSExtent QsdPSExtentOf(const QsdTransformer& t, double x1, double y1, double x2, double y2);
