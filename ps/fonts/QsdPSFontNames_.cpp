#include "ps/QsdPSFontNames_.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

/// `text` may be the field's own.
void assign(char*& field, const char* text)
{
    char* copy = nullptr;
    if (text != nullptr) {
        copy = new char[std::strlen(text) + 1];
        std::strcpy(copy, text);
    }
    delete[] field;
    field = copy;
}

} // namespace

QsdPSFontNames_::QsdPSFontNames_(QsEncoding encoding, const char* family, const char* normalName, const char* boldName,
                                 const char* italicName, const char* boldItalicName, const char* normalFile,
                                 const char* boldFile, const char* italicFile, const char* boldItalicFile)
    : QsdPSFontNames_(encoding)
{
    setFamily(family);
    setNormalName(normalName);
    setBoldName(boldName);
    setItalicName(italicName);
    setBoldItalicName(boldItalicName);
    setNormalDownloadFileName(normalFile);
    setBoldDownloadFileName(boldFile);
    setItalicDownloadFileName(italicFile);
    setBoldItalicDownloadFileName(boldItalicFile);
}

QsdPSFontNames_::~QsdPSFontNames_()
{
    for (const char* text : {_family, _normalName, _boldName, _italicName, _boldItalicName, _normalDownloadFileName,
                             _boldDownloadFileName, _italicDownloadFileName, _boldItalicDownloadFileName}) {
        delete[] text;
    }
}

void QsdPSFontNames_::setFamily(const char* family)
{
    assign(_family, family);
}
void QsdPSFontNames_::setNormalName(const char* name)
{
    assign(_normalName, name);
}
void QsdPSFontNames_::setBoldName(const char* name)
{
    assign(_boldName, name);
}
void QsdPSFontNames_::setItalicName(const char* name)
{
    assign(_italicName, name);
}
void QsdPSFontNames_::setBoldItalicName(const char* name)
{
    assign(_boldItalicName, name);
}
void QsdPSFontNames_::setNormalDownloadFileName(const char* fileName)
{
    assign(_normalDownloadFileName, fileName);
}
void QsdPSFontNames_::setBoldDownloadFileName(const char* fileName)
{
    assign(_boldDownloadFileName, fileName);
}
void QsdPSFontNames_::setItalicDownloadFileName(const char* fileName)
{
    assign(_italicDownloadFileName, fileName);
}
void QsdPSFontNames_::setBoldItalicDownloadFileName(const char* fileName)
{
    assign(_boldItalicDownloadFileName, fileName);
}

const char* QsdPSFontNames_::name(QsdPSFace face) const
{
    const char* const names[] = {_normalName, _boldName, _italicName, _boldItalicName};
    return names[static_cast<unsigned>(face)];
}

const char* QsdPSFontNames_::downloadFileName(QsdPSFace face) const
{
    const char* const fileNames[] = {_normalDownloadFileName, _boldDownloadFileName, _italicDownloadFileName,
                                     _boldItalicDownloadFileName};
    return fileNames[static_cast<unsigned>(face)];
}

void QsdPSFontNames_::resetDownloaded()
{
    std::fill(std::begin(_downloaded), std::end(_downloaded), 0U);
}
