#include "toolkit/base/QsLocale.h"

#include "toolkit/base/QsdGlobalContext.h"

#include <string>
#include <string_view>

namespace {

struct EncodingName {
    std::string_view name; ///< in lower case, without what does not count
    QsEncoding encoding;
};

// clang-format off
constexpr EncodingName EncodingNames[] = {
    {"ascii",       QsEncodingASCII},    {"usascii",     QsEncodingASCII},
    {"iso646us",    QsEncodingASCII},    {"ansix3.41968", QsEncodingASCII},
    {"iso88591",    QsEncodingLatin1},   {"latin1",      QsEncodingLatin1},
    {"l1",          QsEncodingLatin1},   {"88591",       QsEncodingLatin1},
    {"cp1252",      QsEncodingCP1252},   {"windows1252", QsEncodingCP1252},
    {"eucjp",       QsEncodingEUCJP},    {"ujis",        QsEncodingEUCJP},
    {"jajpeuc",     QsEncodingEUCJP},
    {"shiftjis",    QsEncodingShiftJIS}, {"sjis",        QsEncodingShiftJIS},
    {"cp932",       QsEncodingShiftJIS}, {"windows31j",  QsEncodingShiftJIS},
    {"gb2312",      QsEncodingGB2312},   {"euccn",       QsEncodingGB2312},
    {"gbk",         QsEncodingGBK},      {"cp936",       QsEncodingGBK},
};
// clang-format on

struct PreferredName {
    QsEncoding encoding;
    const char* name;
};

constexpr PreferredName PreferredNames[] = {
    {QsEncodingASCII, "ASCII"},   {QsEncodingLatin1, "ISO8859-1"},
    {QsEncodingEUCJP, "EUC-JP"},  {QsEncodingShiftJIS, "Shift_JIS"},
    {QsEncodingGB2312, "GB2312"}, {QsEncodingCP1252, "CP1252"},
    {QsEncodingGBK, "GBK"},
};

bool isSingleByte(QsEncoding encoding)
{
    return encoding == QsEncodingASCII || encoding == QsEncodingLatin1 || encoding == QsEncodingCP1252;
}

/// The name in lower case, without blanks, '-' and '_'.
std::string normalized(std::string_view name)
{
    std::string result;
    for (const char c : name) {
        const bool counts = c != ' ' && c != '-' && c != '_';
        if (counts) {
            result.push_back(c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c);
        }
    }
    return result;
}

QsEncoding encodingOfLocale(std::string_view name)
{
    name = name.substr(0, name.find('@'));
    const std::size_t dot = name.find('.');
    if (dot != std::string_view::npos) {
        const std::string codeset(name.substr(dot + 1));
        const QsEncoding encoding = QsLocale::GetQsEncoding(codeset.c_str());
        return encoding == QsEncodingUnknown ? QsEncodingLatin1 : encoding;
    }
    if (name.empty() || name == "C" || name == "POSIX") {
        return QsEncodingASCII;
    }
    if (name.starts_with("ja")) {
        return QsEncodingEUCJP;
    }
    return name.starts_with("zh_CN") ? QsEncodingGB2312 : QsEncodingLatin1;
}

} // namespace

QsLocale::QsLocale() : QsLocale("C", QsEncodingASCII) {}

QsLocale::QsLocale(const char* name) : QsLocale(name, encodingOfLocale(name == nullptr ? "" : name)) {}

QsLocale::QsLocale(const char* name, QsEncoding encoding) : _name(name), _encoding(encoding) {}

int QsLocale::getMaxCharSize() const
{
    switch (_encoding) {
    case QsEncodingEUCJP:
        return 3;
    case QsEncodingShiftJIS:
    case QsEncodingGB2312:
    case QsEncodingGBK:
        return 2;
    default:
        return 1;
    }
}

bool QsLocale::isEncodingCompatible(QsEncoding encoding) const
{
    return (encoding == _encoding && encoding != QsEncodingUnknown) || isSingleByte(encoding);
}

QsEncoding QsLocale::GetQsEncoding(const char* name)
{
    if (name != nullptr) {
        const std::string wanted = normalized(name);
        for (const EncodingName& known : EncodingNames) {
            if (known.name == wanted) {
                return known.encoding;
            }
        }
    }
    return QsEncodingUnknown;
}

const char* QsLocale::GetEncodingName(QsEncoding encoding)
{
    for (const PreferredName& preferred : PreferredNames) {
        if (preferred.encoding == encoding) {
            return preferred.name;
        }
    }
    return nullptr;
}

int _QsdGetMaxCharSize()
{
    return QsdGlobalContext::GetInstance().getLocale().getMaxCharSize();
}
