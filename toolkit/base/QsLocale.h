// A locale of the toolkit: its name and the encoding of its texts.
#pragma once

#include "toolkit/base/QsEncoding.h"
#include "toolkit/base/QsString.h"
#include "toolkit/base/QsdExport.h"

/// Names a language and the encoding in which its texts are given to the toolkit.
class QSD_API QsLocale {
public:
    /// The "C" locale, whose encoding is ASCII.
    QsLocale();
    /// A locale by its name, "language_TERRITORY.codeset@modifier"; without a codeset the encoding follows from the
    /// language (ja: EUC, zh_CN: GB 2312, C and POSIX: ASCII, others: Latin-1). An unknown codeset gives Latin-1.
    explicit QsLocale(const char* name);
    /// A locale with an encoding of the caller's choice.
    QsLocale(const char* name, QsEncoding encoding);

    /// The name that it was made with.
    [[nodiscard]] const char* getName() const { return _name.c_str(); }
    /// The encoding of texts in this locale.
    [[nodiscard]] QsEncoding getEncoding() const { return _encoding; }
    /// The largest number of bytes of one character: 1, 2 or (Japanese EUC) 3.
    [[nodiscard]] int getMaxCharSize() const;
    /// Whether texts in `encoding` make sense in this locale: its own encoding, and the single-byte Latin encodings,
    /// which every locale contains or falls back to.
    [[nodiscard]] bool isEncodingCompatible(QsEncoding encoding) const;

    /// The encoding called `name` ("ISO8859-1", "EUC-JP", "Shift_JIS", ...; case, blanks, '-' and '_' do not count),
    /// QsEncodingUnknown when nobody knows it or `name` is null.
    [[nodiscard]] static QsEncoding GetQsEncoding(const char* name);
    /// The preferred name of an encoding; null for a number that is not one.
    [[nodiscard]] static const char* GetEncodingName(QsEncoding encoding);

private:
    QsString _name;
    QsEncoding _encoding;
};

/// The largest number of bytes of one character in the locale of the global context.
[[nodiscard]] QSD_API int _QsdGetMaxCharSize();
