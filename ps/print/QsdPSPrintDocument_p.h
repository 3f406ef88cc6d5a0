// The document that a QsdPSPrintDevice has under construction.
#pragma once

#include "ps/print/QsdPSExtent_p.h"
#include "ps/print/QsdPSPrintResources_p.h"
#include "ps/stream/QsdPSSpool_p.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"
#include "toolkit/geometry/QsdRect.h"
#include "toolkit/geometry/QsdTransformer.h"

#include <cstdint>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// What a document is begun with and keeps to its end.
struct QsdPSDocumentTerms {
    unsigned long level = 2; ///< 1 to 3
    unsigned long paperWidth = 0;
    unsigned long paperHeight = 0;
    std::optional<QsdRect> box; ///< that an encapsulated document was given
    QsdTransformer page;        ///< from the port's coordinates to points
};

/// A finished page.
struct QsdPSPageRecord {
    std::uint64_t end = 0; ///< of its text among the pages'
    QsdPSExtent extent;
    std::uint32_t fonts = 0; ///< which set of fonts
};

/// Keeps the texts of pages, and the fonts and patterns that they use, until all is known.
class QsdPSPrintDocument {
public:
    /// Begins a document for `output` (not owned), which gets nothing before the document is complete.
    void begin(std::ostream* output, const QsdPSDocumentTerms& terms);

    [[nodiscard]] const QsdPSDocumentTerms& terms() const { return _terms; }
    [[nodiscard]] std::ostream* output() const { return _output; }
    [[nodiscard]] QsdPSPrintResources& resources() { return _resources; }
    [[nodiscard]] const QsdPSPrintResources& resources() const { return _resources; }
    /// Where the texts of the pages go.
    [[nodiscard]] QsdPSSpool& pageTexts() { return _pageTexts; }

    /// Notes that the page under way uses a font, by its number.
    void useFont(unsigned number);
    /// Ends the page under way, on which drawing reached as far as `extent`.
    void endPage(const QsdPSExtent& extent);
    [[nodiscard]] const std::vector<QsdPSPageRecord>& pages() const { return _pages; }
    /// Which fonts a page uses, by number; fonts that it does not tell of it does not use.
    [[nodiscard]] const std::vector<bool>& fontsOf(const QsdPSPageRecord& page) const { return _fontSets[page.fonts]; }
    /// The extent of all finished pages.
    [[nodiscard]] QsdPSExtent extent() const;

    /// Whether something that was to be kept could not be, so that the document would lack it.
    [[nodiscard]] bool isLost() const { return _pageTexts.fail() || _resources.failed(); }
    /// Whether the document is free of bytes above 127.
    [[nodiscard]] bool isSevenBits() const { return _pageTexts.isSevenBits() && _resources.isSevenBits(); }
    /// An encoder of samples for documents that the device's own does not suit; the document owns it.
    [[nodiscard]] QsdPostScriptEncoder& substituteEncoder();
    /// Copies a part of what was kept, or all of it, to the output.
    void copy(QsdPSSpool& spool, std::uint64_t begin, std::uint64_t end);
    void copy(QsdPSSpool& spool) { copy(spool, 0, spool.size()); }

private:
    QsdPSDocumentTerms _terms;
    std::ostream* _output = nullptr;
    QsdPSPrintResources _resources;
    QsdPSSpool _pageTexts;
    std::vector<QsdPSPageRecord> _pages;
    std::vector<bool> _pageFonts; ///< by number, those that the page under way uses
    std::vector<std::vector<bool>> _fontSets;
    std::map<std::vector<bool>, std::uint32_t> _fontSetNumbers;
    std::unique_ptr<QsdPostScriptEncoder> _substituteEncoder; ///< null at first
};
