// What a document begins and ends with, and what stands between its pages.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSFonts_.h"
#include "ps/QsdPSString.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsdDate.h"
#include "toolkit/base/QsdGlobalContext.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/encoder/QsdPostScriptEncoder.h"
#include "toolkit/port/QsdDisplay.h"

#include <ostream>
#include <utility>

// A document that has begun at all is closed again when it cannot begin as it should.
bool QsdPSDevice::initDevice(const char* fileName, QsdRect* bbox)
{
    _writeFailed = false;
    _ownStream = openStream(fileName);
    _stream = _ownStream;
    try {
        if (_stream == nullptr || _stream->fail()) {
            QsdFatalError(display()->getMessage("&QsdMsg015100"), fileName == nullptr ? "" : fileName);
            close();
            return false;
        }
        beginDocument(bbox);
    } catch (...) {
        _writeFailed = true;
        close();
        throw;
    }
    return true;
}

void QsdPSDevice::beginDocument(const QsdRect* bbox)
{
    if (_encoder != nullptr) {
        _encoder->setStream(_stream);
    }
    _clipCache.setFull();
    writeHeader(bbox);
    forgetPalette();
    _pageCount = 1;

    CurrentEncoding = QsdGlobalContext::GetInstance().getLocale().getEncoding();
    if (CurrentEncoding == QsEncodingASCII) {
        CurrentEncoding = QsEncodingLatin1;
    }
    loadFontMapFile();
    QsdPSFonts_::GetInstance()->resetDownloaded();
    initFile();
    writeFirstPageStart(bbox);
}

// An override of closeStream may still send, so the device keeps the stream until it returns.
void QsdPSDevice::close()
{
    try {
        closeStream(std::exchange(_ownStream, nullptr));
    } catch (...) {
        letGo();
        throw;
    }
    letGo();
}

void QsdPSDevice::letGo()
{
    // An override of closeStream may have begun the next document.
    if (_ownStream == nullptr) {
        redirect(nullptr);
        forgetPalette();
    }
}

void QsdPSDevice::writeFirstPageStart(const QsdRect* bbox)
{
    QsdPSWriter out(_stream);
    if (bbox != nullptr) {
        out << "initclip " << bbox->width << QsdSpc() << bbox->height << QsdSpc() << bbox->x << QsdSpc() << bbox->y
            << " rect clip" << EOL;
    }
    out << " gsave" << EOL;
}

void QsdPSDevice::writeHeader(const QsdRect* bbox)
{
    QsdPSWriter out(_stream);
    if (bbox != nullptr) {
        _boundingBox = *bbox;
        const long paperHeight = static_cast<long>(_paperHeight);
        out << "%!PS-Adobe-2.0 EPSF-2.0" << EOL;
        out << "%%BoundingBox: " << bbox->x << QsdSpc() << paperHeight - bbox->bottom() << QsdSpc() << bbox->right()
            << QsdSpc() << paperHeight - bbox->y << EOL;
    } else {
        out << "%!PS-Adobe-2.0" << EOL;
    }
    out << "%%Creator: Dravonset Dump module" << EOL;
    out << "%%Date: " << QsdGetCurrentDate().view() << EOL;
    out << "%%Pages: (atend)" << EOL;
}

// The file is looked for until it is found, and read once, even when it turns out to be bad.
void QsdPSDevice::loadFontMapFile()
{
    static bool _Read_Font_File_ = true;
    if (!_Read_Font_File_) {
        return;
    }
    const QsString path = display()->findInPath("psfonts/fontname.qsd", false);
    if (path.isEmpty()) {
        return;
    }
    if (!QsdPSFonts_::GetInstance()->load(path.c_str(), CurrentEncoding)) {
        QsdWarning("Failed to load %s", path.c_str());
    }
    _Read_Font_File_ = false;
}

// Only the first page gets a save level of its own; the clip of a page carries over to the next.
bool QsdPSDevice::newPage() const
{
    ++_pageCount;
    QsdPSWriter out(_stream);
    out << "showpage" << EOL;
    out << "%%Page: " << _pageCount << QsdSpc() << _pageCount << EOL;
    forgetPalette();
    out << "%%BeginPageSetup" << EOL;
    out << "realmatrix setmatrix" << EOL;
    out << "%%EndPageSetup" << EOL;
    return true;
}

// The device is closed before a failure is reported, so that a handler may do with it what it likes.
void QsdPSDevice::end()
{
    // An override of closeStream that comes here has the stream already.
    if (_ownStream == nullptr) {
        return;
    }
    // Memory may run out on the way, and a stream may be told to throw when it fails.
    try {
        writeTrailer();
        _stream->flush();
        _writeFailed = _stream->fail();
    } catch (...) {
        _writeFailed = true;
    }
    close();
    if (_writeFailed) {
        QsdFatalError("%s", display()->getMessage("&QsdMsg015102"));
    }
}

void QsdPSDevice::writeTrailer()
{
    QsdPSWriter(_stream) << "showpage" << EOL  //
                         << "%%Trailer" << EOL //
                         << "end" << EOL       //
                         << "%%Pages: " << _pageCount << EOL << "%%EOF" << EOL;
}

void QsdPSDevice::redirect(std::ostream* stream)
{
    _stream = stream;
    if (_encoder != nullptr) {
        _encoder->setStream(stream);
    }
}

void QsdPSDevice::send(const char* text) const
{
    if (text != nullptr) {
        QsdPSWriter(_stream) << text << EOL;
    }
}

void QsdPSDevice::forgetPalette() const
{
    _currentPalette = QsdHandle<QsdPalette>();
}
