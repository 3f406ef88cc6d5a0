#include "ps/QsdPSFontFile_p.h"

#include "ps/QsdPSFontText_p.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsdMessages.h"

#include <filesystem>
#include <string_view>
#include <system_error>

// A folder cannot be read, and a device or a pipe may never come to its end.
QsdPSFontFile::QsdPSFontFile(const char* fileName) : _fileName(fileName)
{
    std::error_code error;
    if (std::filesystem::is_regular_file(fileName, error)) {
        _file.open(fileName, std::ios_base::in | std::ios_base::binary);
    }
    if (!_file.is_open()) {
        QsdWarning("Couldn't open font file %s", fileName);
    }
}

template <class Use>
bool QsdPSFontFile::forEachPart(Use use)
{
    char block[4096];
    bool wanted = true;
    while (_file.good() && wanted) {
        _file.read(block, sizeof block);
        wanted = use(std::string_view(block, static_cast<std::size_t>(_file.gcount())));
    }
    if (_file.bad()) {
        QsdWarning("Couldn't read font file %s", _fileName);
        return false;
    }
    return true;
}

void QsdPSFontFile::copyTo(QsdPSWriter& out)
{
    forEachPart([&](std::string_view part) {
        out << part;
        return true;
    });
}

bool QsdPSFontFile::writeAsText(QsdPSWriter& out)
{
    QsdPSFontText text(out);
    if (!forEachPart([&](std::string_view part) { return text.put(part); })) {
        return false;
    }
    const QsdPSFontText::Fault fault = text.finish();
    if (fault != QsdPSFontText::Fault::None) {
        QsdWarning("Left out font file %s: %s", _fileName, QsdPSFontText::Describe(fault));
        return false;
    }
    _sevenBits = text.isSevenBits();
    return true;
}
