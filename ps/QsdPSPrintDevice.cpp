// The steps of a document whose pages stand alone.
//
// Everything drawn goes to a spool. A page is a save level: its setup takes the matrix that it is placed under, puts
// the clip in force that the page before left, and forgets all other state; its text refers to fonts and patterns by
// number. When the document ends, the header, the procedures, the fonts and patterns that were used, and the pages are
// written in that order.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSFiniteMatrix_p.h"
#include "ps/QsdPSLineLength_p.h"
#include "ps/QsdPSMatrix.h"
#include "ps/QsdPSPrintDocument_p.h"
#include "ps/QsdPSWriter_p.h"

#include <string>
#include <utility>

QsdPSPrintDevice::QsdPSPrintDevice(QsdDisplay* display, QsdPSColorModel model)
    : QsdPSDevice(display, model), _document(std::make_unique<QsdPSPrintDocument>())
{
    keepLinesShort();
}

QsdPSPrintDevice::~QsdPSPrintDevice() = default;

void QsdPSPrintDevice::setTitle(const char* title)
{
    _title = QsString(title);
    _hasTitle = title != nullptr;
}

void QsdPSPrintDevice::setScreenPatterns(bool screenPatterns)
{
    _screenPatterns = screenPatterns;
}

bool QsdPSPrintDevice::initDevice(const char* fileName, QsdRect* bbox)
{
    _document->fileName = fileName == nullptr ? "" : fileName;
    return QsdPSDevice::initDevice(fileName, bbox);
}

void QsdPSPrintDevice::writeHeader(const QsdRect* bbox)
{
    QsdPSPrintDocument& document = *_document;
    document.begin(stream(), bbox, QsdPSFiniteMatrix(getPageTransformer()));
    const unsigned long level = getPostScriptLevel();
    document.level = level == 1 || level == 2 ? level : 3;
    document.paperWidth = getPaperWidth();
    document.paperHeight = getPaperHeight();
    document.paper = QsdPSExtent();
    if (bbox == nullptr) {
        document.paper.add(0, 0);
        document.paper.add(static_cast<double>(document.paperWidth), static_cast<double>(document.paperHeight));
    } else {
        setBoundingBox(*bbox);
        const double height = static_cast<double>(document.paperHeight);
        document.paper.add(bbox->x, height - static_cast<double>(bbox->bottom()));
        document.paper.add(static_cast<double>(bbox->right()), height - bbox->y);
    }
    redirect(&document.pageTexts);
}

void QsdPSPrintDevice::initFile() {}

void QsdPSPrintDevice::writeFirstPageStart(const QsdRect*)
{
    beginPage();
}

bool QsdPSPrintDevice::newPage() const
{
    if (stream() == nullptr) {
        return QsdPSDevice::newPage();
    }
    finishPage();
    beginPage();
    return true;
}

void QsdPSPrintDevice::beginPage() const
{
    QsdPSPrintDocument& document = *_document;
    document.inForce = QsdPSInForce();
    document.pageExtent = QsdPSExtent();
    if (!document.zoomableLineWidths) {
        QsdPSDevice::writeLineWidthMode(false);
    }
    // Two save levels: the outer one is that of the page's first clip, the inner one that of the others.
    for (const QsdPSPageClip* const clip : {&document.initialClip, &document.clip}) {
        QsdPSWriter(stream()) << "gsave" << EOL;
        writePageClip(*clip);
    }
    QsdPSWriter(stream()) << "%%EndPageSetup" << EOL;
    noteClipBox();
}

void QsdPSPrintDevice::finishPage() const
{
    _document->endPage();
}

// The path of an empty region is empty, which clips everything away.
void QsdPSPrintDevice::writePageClip(const QsdPSPageClip& clip) const
{
    if (clip.region.isFull()) {
        return;
    }
    const bool transformed = !clip.transformer.isIdentity();
    if (transformed) {
        SendTransformer(*stream(), clip.transformer);
    }
    QsdPSWriter out(stream());
    out << "n ";
    for (std::uint16_t i = 0; i < clip.region.count(); ++i) {
        const QsdRect& r = clip.region.rects()[i];
        out << r.width << QsdSpc() << r.height << QsdSpc() << r.x << QsdSpc() << r.y << " rect ";
        out.breakLine(QsdPSConventionalLength.elements);
    }
    out << "clip n" << EOL;
    if (transformed) {
        out << "realmatrix setmatrix" << EOL;
    }
}

void QsdPSPrintDevice::writeInitialClip(const QsdRect& rect) const
{
    if (stream() == nullptr) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    document.initialClip = {QsdRegion(rect), document.inForce.transformer};
    document.clip = QsdPSPageClip();
    QsdPSWriter(stream()) << "rc rc gsave" << EOL;
    writePageClip(document.initialClip);
    QsdPSWriter(stream()) << "gsave" << EOL;
    if (!document.inForce.transformer.isIdentity()) {
        SendTransformer(*stream(), document.inForce.transformer);
    }
    noteClipBox();
}

void QsdPSPrintDevice::setTransformer(const QsdTransformer& given)
{
    const QsdTransformer t = QsdPSFiniteMatrix(given);
    if (stream() != nullptr && t == _document->inForce.transformer && t == currentTransformer()) {
        return;
    }
    QsdPSDevice::setTransformer(t);
    if (stream() != nullptr) {
        _document->setTransformer(t);
    }
}

void QsdPSPrintDevice::send(const char* text) const
{
    if (text != nullptr) {
        _document->noteBytes(text);
    }
    QsdPSDevice::send(text);
}

void QsdPSPrintDevice::clip(const QsdRect* rect) const
{
    QsdPSPageClip noted{rect == nullptr ? QsdRegion::Full() : QsdRegion(*rect), currentTransformer()};
    if (!(noted.region == currentClip())) {
        QsdPSDevice::clip(rect);
        noteClip(std::move(noted));
    }
}

void QsdPSPrintDevice::clip(const QsdRegion* region) const
{
    QsdPSPageClip noted{region == nullptr ? QsdRegion::Full() : *region, currentTransformer()};
    if (!(noted.region == currentClip())) {
        QsdPSDevice::clip(region);
        noteClip(std::move(noted));
    }
}

// A clip that was written has brought the current transformer with it. What is noted is made before anything is
// written, so that both agree when there is no memory for it.
void QsdPSPrintDevice::noteClip(QsdPSPageClip&& noted) const
{
    if (stream() == nullptr) {
        return;
    }
    QsdPSPrintDocument& document = *_document;
    document.setTransformer(noted.transformer);
    document.clip = std::move(noted);
    noteClipBox();
}

void QsdPSPrintDevice::noteClipBox() const
{
    QsdPSPrintDocument& document = *_document;
    document.clipBox = document.paper;
    for (const QsdPSPageClip* const clip : {&document.initialClip, &document.clip}) {
        if (clip->region.isFull()) {
            continue;
        }
        QsdTransformer toPage = clip->transformer;
        toPage.compose(document.page);
        const QsdRect& box = clip->region.boundingRect();
        document.clipBox.limitTo(QsdPSExtentOf(toPage, box.x, box.y, static_cast<double>(box.x) + box.width,
                                               static_cast<double>(box.y) + box.height));
    }
}

void QsdPSPrintDevice::writeLineWidthMode(bool zoomable) const
{
    if (stream() != nullptr && _document->zoomableLineWidths != zoomable) {
        _document->zoomableLineWidths = zoomable;
        QsdPSDevice::writeLineWidthMode(zoomable);
    }
}
