// The port that writes PostScript.
#pragma once

#include "ps/QsdPSColorModel.h"
#include "ps/QsdPSFontNames_.h"
#include "ps/QsdPSFonts_.h"
#include "ps/QsdPSGlyphs.h"
#include "toolkit/base/QsdExport.h"
#include "toolkit/port/QsdPort.h"

#include <cstdint>
#include <iosfwd>
#include <memory>

class QsdPostScriptEncoder;
class QsdPSFilteredSource;
class QsdPSShape;
class QsdPixelRows;
struct QsdPSLineLength;
enum class QsdPSUse : std::uint8_t;

/// Turns drawing calls into one PostScript document per initDevice and end.
///
/// Order of use: construct; set paper, level, colour model, encoder; initDevice; draw, with newPage between pages; end;
/// then the same again for the next document. The document is complete when end has returned and writeFailed() is
/// false. Every line written ends with a newline and a flush of the stream. Drawing without an open document is
/// reported with the message "&QsdMsg015101" through QsdFatalError and writes nothing. One document at a time in a
/// process.
class QSD_API QsdPSDevice : public QsdPort {
public:
    /// A device for `display` (not owned), which is asked for the resources "paperWidth" and "paperHeight" (points
    /// above 0, else 595 and 842) and, process-wide, for the font scales: environment QSDPSFONTSCALE or resource
    /// "PSFontScale", and QSDPSEUCFONTSCALE or "PSEUCFontScale" (percent from 1; anything else is a warning and changes
    /// nothing).
    QsdPSDevice(QsdDisplay* display, QsdPSColorModel model);
    /// Closes an open stream without finishing the document.
    ~QsdPSDevice() override;

    [[nodiscard]] bool isADevice() const override;
    /// True when no document is open.
    [[nodiscard]] bool isBad() const override;
    /// Opens `fileName` and writes everything up to the first drawing. With `bbox`, in device coordinates, the document
    /// is encapsulated and clipped to it. False, after QsdFatalError with the message "&QsdMsg015100", when the file
    /// cannot be opened. A document still open is abandoned, not closed: call end first. When memory runs out,
    /// std::bad_alloc passes, the document is closed again and has failed.
    bool initDevice(const char* fileName, QsdRect* bbox = nullptr) override;
    /// Finishes the last page and the document and closes its stream. When some of it could not be written, for want
    /// of memory too, that is reported once, through QsdFatalError with the message "&QsdMsg015102". Nothing happens
    /// when none is open.
    void end() override;
    /// Ends the page and begins the next. The clip in force counts as in force there too, though interpreters reset it:
    /// take it away before, and set it again. Always true.
    bool newPage() const override;
    /// Sets the transformer and writes it, relative to the page. Clips are kept.
    void setTransformer(const QsdTransformer& t) override;
    /// Writes `text` and a line end into the document, unchanged.
    void send(const char* text) const override;
    /// Sets the clip in the space of the current transformer; null or a full region: none. Nothing is written when it
    /// is the clip in force.
    void clip(const QsdRect* rect) const override;
    void clip(const QsdRegion* region) const override;

    /// Points are not drawn: both forms write nothing.
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
    /// The outline of a rectangle follows the current scale whatever setZoomableLineWidths says.
    void drawRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void fillRectangle(const QsdPalette* palette, const QsdRect& rect) const override;
    void drawArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    void fillArc(const QsdPalette* palette, const QsdRect& rect, float start, float range) const override;
    /// In every form of the bitmap operations a null bitmap, or null pixels, draw nothing, and pixels that the source
    /// does not have are 0: those outside it, those of a drawable that cannot be read, and the bytes that it is short
    /// of in the layout of the palette's display. When there is no memory for the pixels std::bad_alloc passes before
    /// any of the image is written; so it does for an area of which more than 256 MiB lie outside the source.
    void drawBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                    const QsdPoint& at) const override;
    void drawTransparentBitmap(const QsdPalette* palette, const QsdSystemPort* source, const QsdRect& rect,
                               const QsdPoint& at) const override;
    void stretchBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap, const QsdTransformer& t,
                       const QsdRect* clip) const override;
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                                  const QsdTransformer& t, const QsdRect* clip) const override;
    void drawString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                    QsdPosition position) const override;
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const char* text, int length,
                     QsdPosition position) const override;
    void drawTransformedString(const QsdPalette* palette, const char* text, int length, const QsdTransformer& t,
                               const QsdRegion* clip) const override;
    void fillPaths(const QsdPalette* palette, unsigned long count, const QsdPointArray* arrays) const override;
    void stretchBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                       const QsdRect* clip) const override;
    void stretchTransparentBitmap(const QsdPalette* palette, const QsdRect& dest, const QsdBitmap* bitmap,
                                  const QsdRect* clip) const override;
    void drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& dest, const QsdRegion* clip,
                    QsdPosition position, bool transparent) const override;
    void drawBitmap(const QsdPalette* palette, const QsdBitmap* bitmap, const QsdRect& from, const QsdRect& dest,
                    const QsdRegion* clip, QsdPosition position, bool transparent) const override;
    void drawWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                   QsdPosition position) const override;
    void drawIWChar(const QsdPalette* palette, const QsdPoint& at, const wchar_t* text, int length,
                    QsdPosition position) const override;
    void drawBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    void drawClosedBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    /// Two points are stroked, not filled.
    void fillBezier(const QsdPalette* palette, unsigned long count, const QsdPoint* points) const override;
    /// Bidirectional texts are not drawn: the three forms write nothing.
    void drawString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                    QsdPosition position) const override;
    void drawIString(const QsdPalette* palette, const QsdPoint& at, const QsdBidiString* text, int length,
                     QsdPosition position) const override;
    void drawTransformedString(const QsdPalette* palette, const QsdBidiString* text, int length,
                               const QsdTransformer& t, const QsdRegion* clip) const override;
    void stretchBitmapData(const QsdPalette* palette, const QsdBitmapData* source, const QsdRect& from,
                           const QsdRect& dest, bool smooth) const override;

    /// Makes the stream that a document goes to; the device owns it until it hands it to closeStream. The default opens
    /// a file for writing, emptying it. A null or failed result makes initDevice fail.
    virtual std::ostream* openStream(const char* fileName);
    /// Takes the stream back, by end behind the last line, or when initDevice fails. The default deletes it; null is
    /// allowed. An override may still send before it deletes the stream; the document is closed when it returns.
    /// Whether what it sends arrives is for it to find out: writeFailed knows of what came before.
    virtual void closeStream(std::ostream* stream);
    /// Sets the map from device coordinates to points on the paper for the next document. Set it after the paper
    /// height.
    virtual void setPageTransformer(const QsdTransformer& t);
    /// Writes the colour of the palette's foreground.
    virtual void setForeground(const QsdPalette* palette) const;
    /// Writes the sample data of one image through the encoder: `height` rows of size / height bytes at `data`, in the
    /// layout of QsdDisplay::getBitmapData for `depth`. Bytes that a row is short of count as 0, and so do all of null
    /// `data`. Nothing at all when width or height is 0.
    virtual void writeImage(const QsdDisplay* display, unsigned long depth, unsigned long width, unsigned long height,
                            const unsigned char* data, unsigned long size) const;
    /// Fills the current path of the document by the palette's fill style, fill rule and patterns.
    virtual void fillWithPattern(const QsdPalette* palette) const;
    /// Bytes of one row of `width` samples as the image operator reads them.
    [[nodiscard]] virtual unsigned long imageStringSize(unsigned long width) const;
    /// The operator, with its last operands, that paints an image of the colour model.
    [[nodiscard]] virtual const char* imageOperatorString() const;
    /// Writes the prolog and the setup of the first page. initDevice calls it; without an open document it writes
    /// nothing.
    virtual void initFile();

    /// Sets the paper width in points for the next document; the page transformer stays.
    void setPaperWidth(unsigned long width);
    /// Sets the paper height in points for the next document and makes the page transformer a flip about it.
    void setPaperHeight(unsigned long height);
    /// The paper width in points.
    [[nodiscard]] unsigned long getPaperWidth() const { return _paperWidth; }
    /// The paper height in points.
    [[nodiscard]] unsigned long getPaperHeight() const { return _paperHeight; }
    /// The map from device coordinates to those of the page, in points.
    [[nodiscard]] const QsdTransformer& getPageTransformer() const { return _pageTransformer; }

    /// Sets how colours and images are written from now on.
    void setColorModel(QsdPSColorModel model);
    /// The colour model in force.
    [[nodiscard]] QsdPSColorModel getColorModel() const { return _colorModel; }
    /// Sets the language level (1 or 2; others are kept as given) and installs the level's encoder. Takes effect with
    /// the next document, whose prolog depends on it.
    void setPostScriptLevel(unsigned long level);
    /// The language level, as it was given.
    [[nodiscard]] unsigned long getPostScriptLevel() const { return _level; }
    /// Gives the device an encoder of image data, which it owns from now on; the one before is deleted first,
    /// unless it is the same. At level 1 the argument is deleted and hexadecimal data stays. Null is allowed at other
    /// levels: then draw no images.
    void setEncoder(QsdPostScriptEncoder* encoder);
    /// The encoder of image data; it stays the device's. Null when null was given.
    [[nodiscard]] QsdPostScriptEncoder* getEncoder() const { return _encoder.get(); }

    /// Writes whether the widths of the lines that follow grow with the drawing (true, as at the start of a document)
    /// or are measured in points.
    void setZoomableLineWidths(bool zoomable);

    /// Writes `region` as the clip unless it is in force already.
    void checkClip(const QsdRegion& region) const;
    /// Starts from the initial clip of the page again, clipped to `rect`.
    void initClip(const QsdRect& rect) const;
    /// Writes what of the palette's font, colour, dashes and line width is not in force yet.
    void setCurrentPalette(const QsdPalette* palette) const;
    /// Writes the selection of the palette's font, and its font file when this document does not have it yet.
    void setFont(const QsdPalette* palette) const;
    /// Writes the palette's dash pattern.
    void setLineStyle(const QsdPalette* palette) const;
    /// Writes the palette's line width.
    void setLineWidth(const QsdPalette* palette) const;

    /// Whether some of the open document, or of the last one, could not be written (a full disk, say).
    [[nodiscard]] bool writeFailed() const;

    /// Null: there is no prefix. This and SetPrefix are kept for programs that call them.
    [[nodiscard]] static const char* GetPrefix();
    /// Does nothing.
    static void SetPrefix(const char* prefix);

    /// Font scale in percent of ordinary fonts, for every device of the process.
    static int _PSFontScale;
    /// Font scale in percent of the Latin part of Japanese composite fonts, for every device of the process.
    static int _EUCFontScale;
    /// Text of the scale of ordinary fonts when no setting is found.
    static const char* const _DefaultPSFontScale;
    /// The same of the Latin part of Japanese composite fonts.
    static const char* const _DefaultEUCFontScale;

protected:
    /// The stream of the open document; null when none is open.
    [[nodiscard]] std::ostream* stream() const { return _stream; }
    /// The rectangle last given to initDevice or initClip, device coordinates; all zero before.
    [[nodiscard]] const QsdRect& boundingBox() const { return _boundingBox; }
    /// Keeps the rectangle that boundingBox() tells; nothing is written.
    void setBoundingBox(const QsdRect& rect) { _boundingBox = rect; }
    /// The clip that operations are written under.
    [[nodiscard]] const QsdRegion& currentClip() const { return _clipCache; }
    /// The transformer that operations are written under.
    [[nodiscard]] const QsdTransformer& currentTransformer() const { return _currentTransformer; }
    /// Sends what is written from now on, samples included, to `stream` (not owned) in the place of the document's
    /// own. The device closes its own stream wherever it was sent to.
    void redirect(std::ostream* stream);
    /// From now on breaks paths, clips, dashes and texts where their lines would become longer than the 255 bytes that
    /// the document structuring conventions take. At first lines become as long as what stands on them.
    void keepLinesShort();
    /// Narrows the clip for one operation to the palette's clip and, unless it is null, to `rect`.
    void restrictClip(const QsdPalette* palette, const QsdRect* rect) const;

    // The steps of a document. A derived device that writes another kind of document replaces them.

    /// Writes the comments that a document begins with; `bbox` is null for one that is not encapsulated.
    virtual void writeHeader(const QsdRect* bbox);
    /// Writes what the drawing of the first page starts from.
    virtual void writeFirstPageStart(const QsdRect* bbox);
    /// Writes everything behind the last drawing.
    virtual void writeTrailer();
    /// Writes what initClip asks for.
    virtual void writeInitialClip(const QsdRect& rect) const;
    /// Writes what setZoomableLineWidths asks for.
    virtual void writeLineWidthMode(bool zoomable) const;
    /// Begins a drawing operation, each in the same way: puts the palette's clip in force, then its state, of which
    /// `use` tells the parts that the operation draws with. `shape` tells what will be drawn to a device that wants to
    /// know how far it reaches. Reports a missing document as setCurrentPalette does. False when the operation is to
    /// write nothing since nothing of it would show; the base device always returns true.
    [[nodiscard]] virtual bool beginOperation(const QsdPalette* palette, QsdPSUse use, const QsdPSShape& shape) const;
    /// Writes what is not in force yet of the parts of a palette that `use` names; the base device writes all parts.
    virtual void writePalette(const QsdPalette* palette, QsdPSUse use) const;
    /// Writes the selection of the font `name` followed by `suffix` in a size of `size` units; `glyphs` tells what
    /// its codes stand for.
    virtual void writeFontSelection(int size, const char* name, const char* suffix, QsdPSGlyphs glyphs) const;
    /// Copies a font file, which defines the font `name` followed by `suffix`, into the document.
    virtual void writeFontFile(const char* fileName, const char* name, const char* suffix) const;

private:
    void beginDocument(const QsdRect* bbox);
    void close();
    void letGo();
    void loadFontMapFile();
    void forgetPalette() const;

    /// Where to break lines.
    [[nodiscard]] const QsdPSLineLength& lineLength() const { return *_lineLength; }

    void bringUpToDate(const QsdPalette* palette, QsdPSUse use) const;
    void writeFirstPalette(const QsdPalette* palette) const;
    void writeOtherForeground(const QsdPalette* palette, QsdPalette& current) const;
    void sendCurrentTransformer() const;
    void removeClip() const;

    void fillPath(const QsdPalette* palette) const;
    void writeOpaqueStart(const QsdPalette* palette) const;
    void writeMaskTile(const QsdPalette* palette, bool opaque) const;
    void writeColorPattern(const QsdPalette* palette) const;

    /// Writes the path of an arc, and strokes it unless it is to be filled; false when it does not show.
    bool writeArc(const QsdPalette* palette, const QsdRect& rect, float start, float range, bool fill) const;
    void writeClosedCurves(unsigned long count, const QsdPoint* points, bool fill) const;

    void writeBitmapMask(const QsdPalette* palette, const QsdPixelRows& pixels, const QsdRect& rect,
                         const QsdPSFilteredSource& source, const char* level2Operator) const;
    void stretchMask(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                     const QsdTransformer& t) const;
    void stretchStrips(const QsdPalette* palette, const QsdPoint& at, const QsdBitmap* bitmap,
                       const QsdSystemPort* mask, const QsdTransformer& t) const;

    mutable std::ostream* _stream = nullptr;
    std::ostream* _ownStream = nullptr; ///< the open document's, wherever _stream was redirected to
    mutable QsdHandle<QsdPalette> _currentPalette;
    mutable unsigned long _pageCount = 0;
    unsigned long _paperWidth;
    unsigned long _paperHeight;
    unsigned long _defaultLineWidth = 1;
    unsigned long _level = 2;
    std::unique_ptr<QsdPostScriptEncoder> _encoder;
    QsdTransformer _pageTransformer;
    QsdPSColorModel _colorModel;
    mutable QsdRect _boundingBox;
    mutable QsdRegion _clipCache = QsdRegion::Full();
    QsdTransformer _currentTransformer;
    const QsdPSLineLength* _lineLength;
    bool _writeFailed = false;
};
