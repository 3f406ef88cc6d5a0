// The steps of a document whose pages stand alone.
//
// Everything drawn goes to a spool. A page is a save level: its setup takes the matrix that it is placed under, puts
// the clip in force that the page before left, and forgets all other state; its text refers to fonts and patterns by
// number. When the document ends, the header, the procedures, the fonts and patterns that were used, and the pages are
// written in that order.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSMatrix.h"
#include "ps/print/QsdPSFiniteMatrix_p.h"
#include "ps/print/QsdPSPageState_p.h"
#include "ps/print/QsdPSPrintDocument_p.h"
#include "ps/print/QsdPSShapeReach_p.h"
#include "ps/text/QsdPSLineLength_p.h"
#include "ps/text/QsdPSWriter_p.h"

#include <string>
#include <utility>

QsdPSPrintDevice::QsdPSPrintDevice(QsdDisplay* display, QsdPSColorModel model)
    : QsdPSDevice(display, model), _document(std::make_unique<QsdPSPrintDocument>()),
      _state(std::make_unique<QsdPSPageState>()), _reach(std::make_unique<QsdPSPageReach>())
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
    _fileName = QsString(fileName);
    return QsdPSDevice::initDevice(fileName, bbox);
}

void QsdPSPrintDevice::writeHeader(const QsdRect* bbox)
{
    QsdPSDocumentTerms terms;
    const unsigned long level = getPostScriptLevel();
    terms.level = level == 1 || level == 2 ? level : 3;
    terms.paperWidth = getPaperWidth();
    terms.paperHeight = getPaperHeight();
    terms.page = QsdPSFiniteMatrix(getPageTransformer());
    const double height = static_cast<double>(terms.paperHeight);
    QsdPSExtent paper;
    *_state = QsdPSPageState();
    if (bbox == nullptr) {
        paper.add(0, 0);
        paper.add(static_cast<double>(terms.paperWidth), height);
    } else {
        terms.box = *bbox;
        setBoundingBox(*bbox);
        paper.add(bbox->x, height - static_cast<double>(bbox->bottom()));
        paper.add(static_cast<double>(bbox->right()), height - bbox->y);
        _state->outerClip.region = QsdRegion(*bbox);
    }
    _document->begin(stream(), terms);
    _reach->beginDocument(paper, terms.page);
    redirect(&_document->pageTexts());
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
    endPage();
    beginPage();
    return true;
}

void QsdPSPrintDevice::beginPage() const
{
    _state->beginPage();
    if (!_state->linesZoom) {
        QsdPSDevice::writeLineWidthMode(false);
    }
    // Two save levels: the outer one is that of the page's first clip, the inner one that of the others.
    for (const QsdPSPlacedClip* const clip : {&_state->outerClip, &_state->innerClip}) {
        QsdPSWriter(stream()) << "gsave" << EOL;
        writePageClip(*clip);
    }
    QsdPSWriter(stream()) << "%%EndPageSetup" << EOL;
    _reach->beginPage(_state->outerClip, _state->innerClip);
}

void QsdPSPrintDevice::endPage() const
{
    _document->endPage(_reach->extent());
}

bool QsdPSPrintDevice::beginOperation(const QsdPalette* palette, QsdPSUse use, const QsdPSShape& shape) const
{
    return QsdPSDevice::beginOperation(palette, use, shape) && reach(palette, use, shape);
}

// Without an open document nothing is noted; it has been reported.
bool QsdPSPrintDevice::reach(const QsdPalette* palette, QsdPSUse use, const QsdPSShape& shape) const
{
    if (stream() == nullptr) {
        return true;
    }
    QsdPSShapeReach reader(*_reach, *palette, use, _state->linesZoom);
    shape.tell(reader);
    return reader.shows();
}

// The path of an empty region is empty, which clips everything away.
void QsdPSPrintDevice::writePageClip(const QsdPSPlacedClip& clip) const
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
    _state->outerClip = {QsdRegion(rect), _state->transformer};
    _state->innerClip = QsdPSPlacedClip();
    QsdPSWriter(stream()) << "rc rc gsave" << EOL;
    writePageClip(_state->outerClip);
    QsdPSWriter(stream()) << "gsave" << EOL;
    if (!_state->transformer.isIdentity()) {
        SendTransformer(*stream(), _state->transformer);
    }
    _reach->setClips(_state->outerClip, _state->innerClip);
}

void QsdPSPrintDevice::setTransformer(const QsdTransformer& given)
{
    const QsdTransformer t = QsdPSFiniteMatrix(given);
    if (stream() != nullptr && t == _state->transformer && t == currentTransformer()) {
        return;
    }
    QsdPSDevice::setTransformer(t);
    if (stream() != nullptr) {
        noteTransformer(t);
    }
}

void QsdPSPrintDevice::noteTransformer(const QsdTransformer& t) const
{
    _state->transformer = t;
    _reach->setTransformer(t);
}

void QsdPSPrintDevice::clip(const QsdRect* rect) const
{
    QsdPSPlacedClip noted{rect == nullptr ? QsdRegion::Full() : QsdRegion(*rect), currentTransformer()};
    if (!(noted.region == currentClip())) {
        QsdPSDevice::clip(rect);
        noteClip(std::move(noted));
    }
}

void QsdPSPrintDevice::clip(const QsdRegion* region) const
{
    QsdPSPlacedClip noted{region == nullptr ? QsdRegion::Full() : *region, currentTransformer()};
    if (!(noted.region == currentClip())) {
        QsdPSDevice::clip(region);
        noteClip(std::move(noted));
    }
}

// A clip that was written has brought the current transformer with it. What is noted is made before anything is
// written, so that both agree when there is no memory for it.
void QsdPSPrintDevice::noteClip(QsdPSPlacedClip&& noted) const
{
    if (stream() == nullptr) {
        return;
    }
    noteTransformer(noted.transformer);
    _state->innerClip = std::move(noted);
    _reach->setClips(_state->outerClip, _state->innerClip);
}

void QsdPSPrintDevice::writeLineWidthMode(bool zoomable) const
{
    if (stream() != nullptr && _state->linesZoom != zoomable) {
        _state->linesZoom = zoomable;
        QsdPSDevice::writeLineWidthMode(zoomable);
    }
}
