// The registry of PostScript font names.
#pragma once

#include "ps/QsdPSFontNames_.h"
#include "toolkit/base/Qs_AList.h"
#include "toolkit/base/QsdExport.h"

#include <cstdint>
#include <iosfwd>

/// The records of all families known to the process, in order of entry, and one default record per encoding. It starts
/// with the built-in records; the font map file adds to them or replaces them.
///
/// Several threads may read at once: GetInstance, getPSFontNames, getDefaultFontNames, count, capacity, and what they
/// lead to. Nothing is locked, so meanwhile no thread may call another operation, nor begin or draw a document, which
/// loads the font map and marks the faces that it brings.
class QSD_API QsdPSFonts_ {
public:
    /// The registry of the process, made on first use.
    [[nodiscard]] static QsdPSFonts_* GetInstance();

    /// A registry of the built-in records, with room for `capacity` before it grows.
    explicit QsdPSFonts_(unsigned capacity);
    QsdPSFonts_(const QsdPSFonts_&) = delete;
    QsdPSFonts_& operator=(const QsdPSFonts_&) = delete;
    ~QsdPSFonts_();

    /// The first record of `encoding` whose family is `family` without regard to case; with a null `family` the first
    /// of that encoding. Null when there is none. The registry keeps the record.
    [[nodiscard]] QsdPSFontNames_* getPSFontNames(QsEncoding encoding, const char* family) const;
    /// The index of the record with the family (with regard to case) and encoding of `names`; -1 when there is none.
    [[nodiscard]] int getPSFontNames(const QsdPSFontNames_* names) const;
    /// The default record of `encoding`, or null.
    [[nodiscard]] QsdPSFontNames_* getDefaultFontNames(QsEncoding encoding) const;

    /// Enters `names` at the end and takes it over, unless an equal record (family with regard to case, encoding) is
    /// there: then it stays the caller's. With `asDefault` it becomes its encoding's default in either case. When there
    /// is no memory std::bad_alloc passes, nothing has changed, and `names` stays the caller's.
    void add(QsdPSFontNames_* names, bool asDefault);
    /// Enters `names` and takes it over: in the place of an equal record, which is deleted, else at the end. A record
    /// that is there itself stays in its place, and is its encoding's default if `asDefault` says so. When there is no
    /// memory std::bad_alloc passes, nothing has changed, and `names` stays the caller's.
    void addOrReplace(QsdPSFontNames_* names, bool asDefault);
    /// Clears the marks of downloaded faces of every record, so that the next document gets its own copies.
    void resetDownloaded();
    /// Enters the built-in records.
    void basicLoad();

    /// Reads the font map file at `path` into the registry. False when it cannot be opened or is not right to its end;
    /// what was read before the fault stays. The encoding is the file's own affair; the argument is not used.
    bool load(const char* path, QsEncoding encoding);
    /// Reads a font map from `stream`; `name` is for messages.
    bool read(std::istream& stream, const char* name);
    /// Reads the two header lines and stores the encoding they name. False, after a warning that begins with `name`,
    /// when they are not right.
    bool readHeader(std::istream& stream, const char* name, QsEncoding* encoding);
    /// Applies one entry of a font map to `record`, the record being read; a new family first enters a copy of it,
    /// unless it is entered itself: then it changes where it is. `value` may be null. False for a key that nobody
    /// knows.
    bool loadValue(QsdPSFontNames_* record, char* key, char* value);

    /// Number of records.
    [[nodiscard]] std::uint32_t count() const { return _count; }
    /// Number of slots allocated for records.
    [[nodiscard]] std::uint32_t capacity() const { return _capacity; }

private:
    QsdPSFonts_(QsdPSFontNames_** slots, unsigned capacity);
    void setDefault(QsdPSFontNames_* names);

    QsdPSFontNames_** _fonts;
    std::uint32_t _capacity;
    std::uint32_t _count = 0;
    Qs_AList _defaults;
};
