#include "ps/QsdPSFontFile_p.h"

#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsdMessages.h"

#include <algorithm>
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

bool QsdPSFontFile::copyTo(QsdPSWriter& out)
{
    char block[4096];
    while (_file.good()) {
        _file.read(block, sizeof block);
        const std::string_view part(block, static_cast<std::size_t>(_file.gcount()));
        _sevenBits = _sevenBits &&
                     std::all_of(part.begin(), part.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
        out << part;
    }
    if (_file.bad()) {
        QsdWarning("Couldn't read font file %s", _fileName);
        return false;
    }
    return true;
}
