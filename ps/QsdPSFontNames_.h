// The PostScript names of one font family.
#pragma once

#include "toolkit/base/QsEncoding.h"
#include "toolkit/base/QsdExport.h"

#include <cstdint>

/// The four faces of a style: which bits of bold and italic are set.
enum class QsdPSFace : unsigned { Normal = 0, Bold = 1, Italic = 2, BoldItalic = 3 };

/// What one toolkit family in one encoding is called in PostScript, face by face, and which font files bring the faces
/// into a document. The record owns copies of its texts.
class QSD_API QsdPSFontNames_ {
public:
    /// Copies the texts; each may be null: a null name is derived from the normal one when a face is selected, a null
    /// file means that the font is the printer's.
    QsdPSFontNames_(QsEncoding encoding, const char* family, const char* normalName, const char* boldName,
                    const char* italicName, const char* boldItalicName, const char* normalFile, const char* boldFile,
                    const char* italicFile, const char* boldItalicFile);
    QsdPSFontNames_(const QsdPSFontNames_&) = delete;
    QsdPSFontNames_& operator=(const QsdPSFontNames_&) = delete;
    ~QsdPSFontNames_();

    /// Each setter frees the old text and keeps a copy of the new one; null, and a text of the record's own, are
    /// allowed.
    void setFamily(const char* family);
    /// The PostScript name of the upright face.
    void setNormalName(const char* name);
    /// The PostScript name of the bold face.
    void setBoldName(const char* name);
    /// The PostScript name of the italic face.
    void setItalicName(const char* name);
    /// The PostScript name of the bold italic face.
    void setBoldItalicName(const char* name);
    /// The font file of the upright face.
    void setNormalDownloadFileName(const char* fileName);
    /// The font file of the bold face.
    void setBoldDownloadFileName(const char* fileName);
    /// The font file of the italic face.
    void setItalicDownloadFileName(const char* fileName);
    /// The font file of the bold italic face.
    void setBoldItalicDownloadFileName(const char* fileName);

    /// The encoding of texts that the record is for.
    [[nodiscard]] QsEncoding encoding() const { return _encoding; }
    /// The toolkit family; null when there is none. Like the texts below it stays the record's, up to its next change.
    [[nodiscard]] const char* family() const { return _family; }
    /// The PostScript name of the upright face; null when there is none.
    [[nodiscard]] const char* normalName() const { return _normalName; }
    /// The PostScript name of the bold face; null when there is none.
    [[nodiscard]] const char* boldName() const { return _boldName; }
    /// The PostScript name of the italic face; null when there is none.
    [[nodiscard]] const char* italicName() const { return _italicName; }
    /// The PostScript name of the bold italic face; null when there is none.
    [[nodiscard]] const char* boldItalicName() const { return _boldItalicName; }
    /// The font file of the upright face; null when there is none.
    [[nodiscard]] const char* normalDownloadFileName() const { return _normalDownloadFileName; }
    /// The font file of the bold face; null when there is none.
    [[nodiscard]] const char* boldDownloadFileName() const { return _boldDownloadFileName; }
    /// The font file of the italic face; null when there is none.
    [[nodiscard]] const char* italicDownloadFileName() const { return _italicDownloadFileName; }
    /// The font file of the bold italic face; null when there is none.
    [[nodiscard]] const char* boldItalicDownloadFileName() const { return _boldItalicDownloadFileName; }

    /// The PostScript name of a face; null when there is none.
    [[nodiscard]] const char* name(QsdPSFace face) const;
    /// The font file of a face; null when there is none.
    [[nodiscard]] const char* downloadFileName(QsdPSFace face) const;

    /// Whether the file of a face was copied into the current document, or tried.
    [[nodiscard]] bool isDownloaded(QsdPSFace face) const { return _downloaded[static_cast<unsigned>(face)] != 0; }
    /// Marks the file of a face as copied into the current document.
    void setDownloaded(QsdPSFace face) { _downloaded[static_cast<unsigned>(face)] = 1; }
    /// Clears the marks of all four faces.
    void resetDownloaded();

    /// Whether the record is to become its encoding's default, while it is being read from a file.
    [[nodiscard]] bool isDefault() const { return _asDefault != 0; }
    /// Marks the record as the coming default of its encoding, or takes the mark away.
    void setDefault(bool asDefault) { _asDefault = asDefault ? 1 : 0; }

    /// Whether the fonts have an encoding of their own, which QsdPSPrintDevice leaves to them; false at first.
    [[nodiscard]] bool hasOwnEncoding() const { return _ownEncoding; }
    /// Says whether the fonts have an encoding of their own.
    void setOwnEncoding(bool own) { _ownEncoding = own; }

private:
    explicit QsdPSFontNames_(QsEncoding encoding) : _encoding(encoding) {}

    QsEncoding _encoding;
    char* _family = nullptr;
    char* _normalName = nullptr;
    char* _boldName = nullptr;
    char* _italicName = nullptr;
    char* _boldItalicName = nullptr;
    char* _normalDownloadFileName = nullptr;
    char* _boldDownloadFileName = nullptr;
    char* _italicDownloadFileName = nullptr;
    char* _boldItalicDownloadFileName = nullptr;
    std::uint32_t _downloaded[4] = {}; ///< by face
    std::uint32_t _asDefault = 0;
    bool _ownEncoding = false;
};
