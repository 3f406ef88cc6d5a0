// The port that writes PostScript for spoolers, page tools and every interpreter.
#pragma once

#include "ps/QsdPSDevice.h"
#include "toolkit/base/QsdExport.h"

#include <cstdint>

class QsdPSPrintDocument;
class QsdPSSpool;
class QsdPSWriter;
struct QsdPSExtent;
struct QsdPSPageClip;
struct QsdPSTile;

/// A PostScript device whose documents keep the document structuring conventions 3.0: every page stands alone, fonts
/// and patterns are in the setup, once, and the header tells what the document needs and how large it is. It draws what
/// QsdPSDevice draws, in the same places; docs/device.md has the differences.
///
/// Pages wait in a temporary file until end writes the document, so the header is complete on any output and memory
/// does not grow with the document. Text given to send becomes part of the page under way; it should not rely on text
/// sent to other pages, and the bounding box does not know what it paints. The samples of colour bitmaps are written
/// without a call of writeImage, which is kept for derived devices' own use.
///
/// An encoder whose decoder is a filter must write the filter's end mark, since images are read up to it. Levels other
/// than 1 and 2 are taken as 3.
class QSD_API QsdPSPrintDevice : public QsdPSDevice {
public:
    QsdPSPrintDevice(QsdDisplay* display, QsdPSColorModel model);
    ~QsdPSPrintDevice() override;

    /// The title in the header of the next document (copied); null: the name of its file.
    void setTitle(const char* title);
    /// Whether the tiles of patterns lie as in a window: upright, in rows and columns from the port's origin (true),
    /// or where QsdPSDevice puts them (false, as at first).
    void setScreenPatterns(bool screenPatterns);
    [[nodiscard]] bool screenPatterns() const { return _screenPatterns; }

    bool initDevice(const char* fileName, QsdRect* bbox = nullptr) override;
    /// Always true. A document with a bounding box that gets a second page is no longer called encapsulated.
    bool newPage() const override;
    void setTransformer(const QsdTransformer& t) override;
    void send(const char* text) const override;
    void clip(const QsdRect* rect) const override;
    void clip(const QsdRegion* region) const override;

    /// A point is a square of one unit.
    void drawPoint(const QsdPalette* palette, const QsdPoint& point) const override;
    void drawPoints(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawLine(const QsdPalette* palette, const QsdPoint& from, const QsdPoint& to) const override;
    void drawSegments(const QsdPalette* palette, unsigned long count, const QsdPoint* starts,
                      const QsdPoint* ends) const override;
    void drawPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                      const QsdDeltaPoint* deltas) const override;
    void fillPolyLine(const QsdPalette* palette, unsigned long count, const QsdPoint* points,
                      bool convex) const override;
    void fillPolyLine(const QsdPalette* palette, const QsdPoint& origin, unsigned long count,
                      const QsdDeltaPoint* deltas, bool convex) const override;
    /// The outline obeys setZoomableLineWidths as every other does.
    void drawRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void fillRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    void fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    void fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const override;
    void drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;

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

    using QsdPSDevice::drawIString;
    using QsdPSDevice::drawString;
    using QsdPSDevice::drawTransformedString;
    void drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                    QsdPosition position) const override;
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                     QsdPosition position) const override;
    void drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                               const QsdRegion* clip) const override;

    void setForeground(const QsdPalette* palette) const override;
    /// An unknown fill style fills as QsdFillPattern does.
    void fillWithPattern(const QsdPalette* palette) const override;

protected:
    void writeHeader(const QsdRect* bbox) override;
    void writeProlog() override;
    void writeFirstPageStart(const QsdRect* bbox) override;
    void writeTrailer() override;
    void writeInitialClip(const QsdRect& rect) const override;
    void writeLineWidthMode(bool zoomable) const override;
    void writePalette(const QsdPalette* palette) const override;
    void writeFontSelection(int size, const char* name, const char* suffix, bool multiByte) const override;
    void writeFontFile(const char* fileName, const char* name, const char* suffix) const override;

private:
    void writeComments();
    void writeProcedures();
    void writeSetup();
    void writePages();
    void beginPage() const;
    void finishPage() const;
    void writePageClip(const QsdPSPageClip& clip) const;
    void noteClip(QsdPSPageClip&& noted) const;
    void noteClipBox() const;
    void reach(double x1, double y1, double x2, double y2, double margin) const;
    void reachRect(const QsdRect& rect, double margin) const;
    void reachPoints(unsigned long count, const QsdPoint* points) const;
    void reachStroke(const QsdPalette* palette, unsigned long count, const QsdPoint* points, bool closed) const;
    void noteText(const char* text, int length) const;
    void reachString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                     QsdPosition position) const;
    [[nodiscard]] double halfLineWidth(const QsdPalette* palette) const;
    [[nodiscard]] bool inColor() const;

    void writeTile(const QsdPalette* palette) const;
    [[nodiscard]] unsigned definePattern(const QsdPalette* palette) const;
    void writePattern(QsdPSSpool& out, unsigned number, const QsdPSTile& tile) const;

    void writeBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect, const QsdPoint& at,
                     bool transparent) const;
    void writeStretched(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap, const QsdTransformer& t,
                        const QsdRect* clip, bool transparent) const;
    /// The encoder of samples: the device's own, or one that suits the document where the level was changed within it.
    [[nodiscard]] QsdPostScriptEncoder* imageEncoder() const;
    /// Whether samples are written in hexadecimal and read without a filter.
    [[nodiscard]] bool readsHexadecimal() const;
    void writeSourceString(QsdPSWriter& out, std::size_t rowBytes) const;
    void writeDataSource(QsdPSWriter& out) const;
    void writeBits(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect, const QsdPoint& at,
                   bool opaque) const;
    void writeColors(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                     const QsdPoint& at) const;
    void writeMasked(const QsdPalette* palette, const QsdSystemPort* source, const QsdSystemPort* mask,
                     const QsdRect& rect, const QsdPoint& at) const;
    void writeRuns(const QsdPalette* palette, const QsdSystemPort* source, const QsdSystemPort* mask,
                   const QsdRect& rect, const QsdPoint& at) const;

    std::unique_ptr<QsdPSPrintDocument> _document;
    QsString _title;
    bool _hasTitle = false;
    bool _screenPatterns = false;
};
