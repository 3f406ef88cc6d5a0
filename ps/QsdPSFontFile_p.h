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
    /// Writes all of it, unchanged; a warning tells when it could not be read to its end.
    void copyTo(QsdPSWriter& out);
    /// Writes it as text that every interpreter and spooler takes, see QsdPSFontText. False, after a warning, when it
    /// could not be read to its end or is no font that can be brought: then what was written is of no use.
    bool writeAsText(QsdPSWriter& out);
    /// Whether the text that was written consists of 7-bit characters.
    [[nodiscard]] bool isSevenBits() const { return _sevenBits; }

private:
    /// Calls use(part) for one part of the file after the other until that is false. False, after a warning, when the
    /// file could not be read.
    template <class Use>
    bool forEachPart(Use use);

    const char* _fileName;
    std::ifstream _file;
    bool _sevenBits = true;
};
