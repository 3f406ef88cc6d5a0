// Font files on their way into a document.
#pragma once

#include <fstream>

class QsdPSWriter;

/// The file of a font, open for reading.
class QsdPSFontFile {
public:
    /// Opens the file; one that cannot be opened is reported as a warning. The name must outlive the object.
    explicit QsdPSFontFile(const char* fileName);

    [[nodiscard]] bool isOpen() const { return _file.is_open(); }
    /// Writes all of it, unchanged. False, after a warning, when it could not be read to its end.
    bool copyTo(QsdPSWriter& out);
    /// Whether what was written consists of 7-bit characters.
    [[nodiscard]] bool isSevenBits() const { return _sevenBits; }

private:
    const char* _fileName;
    std::ifstream _file;
    bool _sevenBits = true;
};
