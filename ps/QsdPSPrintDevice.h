// The port that writes PostScript for spoolers, page tools and every interpreter.
#pragma once

#include "ps/QsdPSDevice.h"
#include "toolkit/base/QsdExport.h"

#include <cstdint>
#include <functional>
#include <memory>

class QsdPSPageReach;
class QsdPSPrintDocument;
class QsdPSSpool;
class QsdPSWriter;
struct QsdPSImagePlace;
struct QsdPSPageState;
struct QsdPSPlacedClip;
struct QsdPSTile;

/// A PostScript device whose documents keep the document structuring conventions 3.0: every page stands alone, fonts
/// and patterns are in the setup, once, and the header tells what the document needs and how large it is. It draws what
/// QsdPSDevice draws, in the same places; docs/printing.md has the differences.
///
/// Pages wait in a temporary file until end writes the document, so the header is complete on any output and memory
/// does not grow with the document; when that file takes no more, end writes nothing and writeFailed() is true. Text
/// given to send becomes part of the page under way; it should not rely on text sent to other pages, and the bounding
/// box does not know what it paints. The samples of colour bitmaps are written without a call of writeImage, which is
/// kept for derived devices' own use.
///
/// An encoder whose decoder is a filter must write the filter's end mark, since images are read up to it. Levels other
/// than 1 and 2 are taken as 3.
class QSD_API QsdPSPrintDevice : public QsdPSDevice {
public:
    /// A device without an open document. The display is not owned and must outlive it.
    QsdPSPrintDevice(QsdDisplay* display, QsdPSColorModel model);
    ~QsdPSPrintDevice() override;

    /// The title in the header of the next document (copied), in UTF-8; what is no UTF-8 is taken for Latin-1. Null:
    /// the name of its file without folders; empty: none. Of a long one the header has as much as a line holds.
    void setTitle(const char* title);
    /// Whether the tiles of patterns lie as in a window: upright, in rows and columns from the port's origin (true),
    /// or where QsdPSDevice puts them (false, as at first).
    void setScreenPatterns(bool screenPatterns);
    /// Whether tiles lie as in a window.
    [[nodiscard]] bool screenPatterns() const { return _screenPatterns; }

    /// An encoder for the images and patterns of which the device's own makes more text (owned by the device; null:
    /// none, as at first): what compression makes larger is written plainly, say. Each image is encoded with both, and
    /// that takes the time of both; ties go to the device's. Without a filter, either of them takes all. The second
    /// encoder stays when the level is set, and must suit it.
    void setSecondEncoder(std::unique_ptr<QsdPostScriptEncoder> encoder);

    bool initDevice(const char* fileName, QsdRect* bbox = nullptr) override;
    /// Always true. A document with a bounding box that gets a second page is no longer called encapsulated.
    bool newPage() const override;
    /// What is no finite number counts as 0, and the others are held between 1e-30 and 1e20 in size.
    void setTransformer(const QsdTransformer& given) override;
    void clip(const QsdRect* rect) const override;
    void clip(const QsdRegion* region) const override;

    /// A point is a square of one unit.
    void drawPoint(const QsdPalette* palette, const QsdPoint& point) const override;
    void drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    /// The outline obeys setZoomableLineWidths as every other does.
    void drawRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    void fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    using QsdPSDevice::drawBitmap;
    using QsdPSDevice::stretchBitmap;
    using QsdPSDevice::stretchTransparentBitmap;
    void drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                    const QsdPoint& at) const override;
    void drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                               const QsdPoint& at) const override;
    void stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap, const QsdTransformer& t,
                       const QsdRect* clip) const override;
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                  const QsdTransformer& t, const QsdRect* clip) const override;

    using QsdPSDevice::drawTransformedString;
    void drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& given,
                               const QsdRegion* clip) const override;

    void setForeground(const QsdPalette* palette) const override;
    /// An unknown fill style fills as QsdFillPattern does.
    void fillWithPattern(const QsdPalette* palette) const override;

protected:
    void writeHeader(const QsdRect* bbox) override;
    void initFile() override;
    void writeFirstPageStart(const QsdRect* bbox) override;
    void writeTrailer() override;
    void writeInitialClip(const QsdRect& rect) const override;
    void writeLineWidthMode(bool zoomable) const override;
    [[nodiscard]] bool beginOperation(const QsdPalette* palette, QsdPSUse use, const QsdPSShape& shape) const override;
    void writePalette(const QsdPalette* palette, QsdPSUse use) const override;
    void writeFontSelection(int size, const char* name, const char* suffix, QsdPSGlyphs glyphs) const override;
    void writeFontFile(const char* fileName, const char* name, const char* suffix) const override;

private:
    void writeComments();
    void writeProcedures();
    void writeSetup();
    void writePages();
    void beginPage() const;
    void endPage() const;
    /// Takes what is drawn into account in the page's extent; false when nothing of it shows.
    bool reach(const QsdPalette* palette, QsdPSUse use, const QsdPSShape& shape) const;
    void writePageClip(const QsdPSPlacedClip& clip) const;
    void noteClip(QsdPSPlacedClip&& noted) const;
    void noteTransformer(const QsdTransformer& t) const;
    void writeDashes(const QsdPalette* palette) const;
    [[nodiscard]] bool inColor() const;

    void writeTile(const QsdPalette* palette) const;
    [[nodiscard]] unsigned definePattern(const QsdPalette* palette) const;
    void writePattern(QsdPSSpool& out, unsigned number, const QsdPSTile& tile) const;

    void writeBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect, const QsdPoint& at,
                     bool transparent) const;
    void writeStretched(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                        const QsdTransformer& given, const QsdRect* clip, bool transparent) const;
    /// The encoder of samples: the device's own, or one that suits the document where the level was changed within it.
    [[nodiscard]] QsdPostScriptEncoder* imageEncoder() const;
    /// Whether samples that an encoder writes are hexadecimal and read without a filter.
    [[nodiscard]] bool readsHexadecimal(const QsdPostScriptEncoder* encoder) const;
    /// Writes samples and the text around them to a stream, to which the encoder writes as well; the same each time.
    using SamplesWriter = std::function<void(std::ostream&, QsdPostScriptEncoder&)>;
    /// Calls `write` so that the shorter text stands in `out` in the end; there is an image encoder.
    void writeSamples(QsdPSSpool& out, const SamplesWriter& write) const;
    void writeSourceString(QsdPSWriter& out, const QsdPostScriptEncoder& encoder, std::size_t rowBytes) const;
    void writeDataSource(QsdPSWriter& out, const QsdPostScriptEncoder& encoder) const;
    void writeBits(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                   const QsdPSImagePlace& place, bool opaque) const;
    void writeColors(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                     const QsdPSImagePlace& place) const;
    void writeMasked(const QsdPalette* palette, const QsdSystemPort* source, const QsdSystemPort* mask,
                     const QsdRect& rect, const QsdPoint& at) const;
    void writeRuns(const QsdPalette* palette, const QsdSystemPort* source, const QsdSystemPort* mask,
                   const QsdRect& rect, const QsdPoint& at) const;

    std::unique_ptr<QsdPSPrintDocument> _document; ///< under construction
    std::unique_ptr<QsdPSPageState> _state;        ///< what the interpreter has in effect
    std::unique_ptr<QsdPSPageReach> _reach;        ///< how far the page reaches
    std::unique_ptr<QsdPostScriptEncoder> _secondEncoder;
    QsString _fileName;
    QsString _title;
    bool _hasTitle = false;
    bool _screenPatterns = false;
};
