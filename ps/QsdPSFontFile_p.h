// Font files on their way into a document.
#pragma once

#include <fstream>

class QsdPSWriter;

/// The file of a font, open for reading.
class QsdPSFontFile {
public:
    /// Opens the file; one that cannot be opened is reported as a warning.
    explicit QsdPSFontFile(const char* fileName);

    [[nodiscard]] bool isOpen() const { return _file.is_open(); }
    /// Writes all of it, unchanged. True when it consists of 7-bit characters.
    bool copyTo(QsdPSWriter& out);

private:
    std::ifstream _file;
};
