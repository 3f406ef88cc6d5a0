// The document of a QsdPSPrintDevice, written when all of it is known.
#include "ps/QsdPSPrintDevice.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSMedia_p.h"
#include "ps/QsdPSName_p.h"
#include "ps/QsdPSPrintDocument_p.h"
#include "ps/QsdPSPrintPrologText_p.h"
#include "ps/QsdPSPrologParts_p.h"
#include "ps/QsdPSPrologText_p.h"
#include "ps/QsdPSString.h"
#include "ps/QsdPSTitle_p.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsLocale.h"
#include "toolkit/base/QsdDate.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

namespace {

std::string_view baseName(std::string_view path)
{
    return path.substr(path.rfind('/') + 1);
}

/// Writes the smallest box of whole points around an extent.
void writeBox(QsdPSWriter& out, const QsdPSExtent& extent)
{
    const std::array<std::int32_t, 4> box = QsdPSBoxOf(extent);
    out << box[0] << QsdSpc() << box[1] << QsdSpc() << box[2] << QsdSpc() << box[3];
}

/// Writes a number of thousandths as a decimal fraction without trailing zeros.
void writeThousandths(QsdPSWriter& out, std::int64_t thousandths)
{
    const std::int64_t positive = std::abs(thousandths);
    out << (thousandths < 0 ? "-" : "") << positive / 1000;
    const auto fraction = static_cast<int>(positive % 1000);
    if (fraction == 0) {
        return;
    }
    const char digits[] = {static_cast<char>('0' + fraction / 100), static_cast<char>('0' + fraction / 10 % 10),
                           static_cast<char>('0' + fraction % 10)};
    const std::string_view text(digits, sizeof digits);
    out << "." << text.substr(0, text.find_last_not_of('0') + 1);
}

/// Writes the smallest box of thousandths of points around an extent.
void writeFineBox(QsdPSWriter& out, const QsdPSExtent& extent)
{
    constexpr double Thousand = 1000;
    const QsdPSExtent box = QsdPSHeldExtent(extent);
    writeThousandths(out, static_cast<std::int64_t>(std::floor(box.left * Thousand)));
    out << QsdSpc();
    writeThousandths(out, static_cast<std::int64_t>(std::floor(box.bottom * Thousand)));
    out << QsdSpc();
    writeThousandths(out, static_cast<std::int64_t>(std::ceil(box.right * Thousand)));
    out << QsdSpc();
    writeThousandths(out, static_cast<std::int64_t>(std::ceil(box.top * Thousand)));
}

/// Writes comments that tell an extent, in whole points and in parts of them.
void writeBoxComments(QsdPSWriter& out, std::string_view keyword, std::string_view fineKeyword,
                      const QsdPSExtent& extent)
{
    out << keyword << QsdSpc();
    writeBox(out, extent);
    out << EOL << fineKeyword << QsdSpc();
    writeFineBox(out, extent);
    out << EOL;
}

/// A comment that lists resources, one a line.
class ResourceList {
public:
    ResourceList(QsdPSWriter& out, std::string_view keyword) : _out(out), _keyword(keyword) {}

    void add(std::string_view kind, std::string_view name)
    {
        _out << (_begun ? std::string_view("%%+") : _keyword) << " " << kind << " " << name << EOL;
        _begun = true;
    }

private:
    QsdPSWriter& _out;
    std::string_view _keyword;
    bool _begun = false;
};

constexpr std::string_view ProcedureSet = "QsdPrint 1.0 0";

} // namespace

void QsdPSPrintDevice::writeTrailer()
{
    finishPage();
    QsdPSPrintDocument& document = *_document;
    redirect(document.output);
    if (document.isLost()) {
        stream()->setstate(std::ios_base::badbit);
        return;
    }
    writeComments();
    writeProcedures();
    writeSetup();
    writePages();
    QsdPSWriter(stream()) << "%%Trailer" << EOL << "%%EOF" << EOL;
}

void QsdPSPrintDevice::writeComments()
{
    QsdPSPrintDocument& document = *_document;
    const QsdPSPrintResources& resources = document.resources;
    const bool encapsulated = document.bbox.has_value() && document.pages.size() == 1;
    const long height = static_cast<long>(document.paperHeight);
    const long width = static_cast<long>(document.paperWidth);
    QsdPSWriter out(stream());
    out << "%!PS-Adobe-3.0" << (encapsulated ? " EPSF-3.0" : "") << EOL;
    if (document.bbox) {
        const QsdRect& box = *document.bbox;
        for (const char* const keyword : {"%%BoundingBox: ", "%%HiResBoundingBox: "}) {
            out << keyword << box.x << QsdSpc() << height - box.bottom() << QsdSpc() << box.right() << QsdSpc()
                << height - box.y << EOL;
        }
    } else {
        writeBoxComments(out, "%%BoundingBox:", "%%HiResBoundingBox:", document.extent());
    }
    const std::string title = QsdPSTitleText(_hasTitle ? _title.view() : baseName(document.fileName));
    if (!title.empty()) {
        out << "%%Title: " << title << EOL;
    }
    out << "%%Creator: Dravonset" << EOL;
    out << "%%CreationDate: " << QsdGetCurrentDate().view() << EOL;
    if (document.sevenBits) {
        out << "%%DocumentData: Clean7Bit" << EOL;
    }
    out << "%%LanguageLevel: " << document.level << EOL;
    if (document.level == 1 && inColor()) {
        out << "%%Extensions: CMYK" << EOL;
    }
    out << "%%Pages: " << document.pages.size() << EOL;
    if (!encapsulated) {
        out << "%%PageOrder: Ascend" << EOL;
        out << "%%DocumentMedia: " << QsdPSMediaName(document.paperWidth, document.paperHeight) << QsdSpc() << width
            << QsdSpc() << height << " 0 () ()" << EOL;
    }
    double x11, x12, x21, x22, x0, y0;
    document.page.getValues(x11, x12, x21, x22, x0, y0);
    out << "%%Orientation: " << (std::fabs(x12) > std::fabs(x11) ? "Landscape" : "Portrait") << EOL;
    ResourceList needed(out, "%%DocumentNeededResources:");
    for (const std::string& name : resources.neededFonts()) {
        needed.add("font", QsdPSShortCommentName(name));
    }
    ResourceList supplied(out, "%%DocumentSuppliedResources:");
    supplied.add("procset", ProcedureSet);
    for (const std::string& name : resources.suppliedFonts()) {
        supplied.add("font", QsdPSShortCommentName(name));
    }
    out << "%%EndComments" << EOL;
}

void QsdPSPrintDevice::writeProcedures()
{
    const QsdPSPrintDocument& document = *_document;
    constexpr std::size_t ProcedureCount = 120;
    QsdPSWriter out(stream());
    out << "%%BeginProlog" << EOL << "%%BeginResource: procset " << ProcedureSet << EOL;
    out << "/QsdPrintDict " << ProcedureCount + document.resources.definitionCount() << " dict def" << EOL
        << "QsdPrintDict begin" << EOL;
    QsdPSWriteText(out, QsdPSPrologProcedures);
    if (_QsdGetMaxCharSize() > 1) {
        QsdPSWriteText(out, QsdPSPrologMultiByte);
    }
    QsdPSWriteLatin1Encoding(out);
    QsdPSWriteText(out, QsdPSPrintBasics);
    QsdPSWriteText(out, QsdPSPrintPatterns);
    QsdPSWriteText(out, QsdPSPrintHexData);
    if (document.level == 1) {
        QsdPSWriteText(out, QsdPSPrintLevel1Images);
    } else {
        QsdPSWriteText(out, QsdPSPrintImages);
        if (document.level > 2) {
            QsdPSWriteText(out, QsdPSPrintMaskedImages);
        }
    }
    {
        double x11, x12, x21, x22, x0, y0;
        document.page.getValues(x11, x12, x21, x22, x0, y0);
        const QsdPSClassicNumbers classicNumbers;
        out << "/realmatrix{[" << x11 << QsdSpc() << x21 << QsdSpc() << x12 << QsdSpc() << x22 << QsdSpc() << x0
            << QsdSpc() << y0 << "]imtrx matrix concatmatrix}bd" << EOL;
    }
    // What a page starts from; each page sees the matrix that it is placed under.
    const bool placed = !document.bbox;
    if (placed) {
        QsdPSWriteText(out, QsdPSPrintSharedSheets);
        out << "/pw " << document.paperWidth << " def/ph " << document.paperHeight << " def" << EOL;
    }
    out << "/bp{/pagesave save def" << (placed ? " pf" : "") << "/imtrx matrix currentmatrix def" << EOL
        << "realmatrix setmatrix}bd" << EOL << "/ep{pagesave restore end}bd" << EOL;
    out << "end" << EOL << "%%EndResource" << EOL << "%%EndProlog" << EOL;
}

void QsdPSPrintDevice::writeSetup()
{
    QsdPSPrintDocument& document = *_document;
    QsdPSPrintResources& resources = document.resources;
    QsdPSWriter(stream()) << "%%BeginSetup" << EOL;
    if (!document.bbox) {
        QsdPSWriter(stream()) << "%%BeginFeature: *PageSize "
                              << QsdPSMediaName(document.paperWidth, document.paperHeight) << EOL
                              << "mark{2 dict dup/PageSize[" << document.paperWidth << QsdSpc() << document.paperHeight
                              << "]put dup/ImagingBBox null put setpagedevice}stopped cleartomark" << EOL
                              << "%%EndFeature" << EOL;
    }
    for (const std::string& name : resources.neededFonts()) {
        QsdPSWriter(stream()) << "%%IncludeResource: font " << QsdPSShortCommentName(name) << EOL;
    }
    document.copy(resources.fontFiles());
    QsdPSWriter(stream()) << "QsdPrintDict begin" << EOL;
    unsigned number = 0;
    for (const QsdPSPrintResources::Font& font : resources.fonts()) {
        QsdPSWriter out(stream());
        ++number;
        std::string_view japanese;
        if (font.glyphs == QsdPSGlyphs::Latin) {
            out << "/F" << number;
            QsdPSWriteName(out, font.name, "-Qsd");
            QsdPSWriteName(out, font.name);
            out << " enc" << EOL;
        } else {
            if (font.glyphs == QsdPSGlyphs::MultiByte && QsdPSIsOwnComposite(font.name, japanese)) {
                QsdPSWriteCompositeFont(out, japanese, _EUCFontScale);
            }
            out << "/F" << number;
            QsdPSWriteName(out, font.name);
            out << " findfont def" << EOL;
        }
    }
    document.copy(resources.patternDefinitions());
    QsdPSWriter(stream()) << "end" << EOL << "%%EndSetup" << EOL;
}

void QsdPSPrintDevice::writePages()
{
    QsdPSPrintDocument& document = *_document;
    std::uint64_t begin = 0;
    std::size_t number = 0;
    for (const QsdPSPageRecord& record : document.pages) {
        ++number;
        {
            QsdPSWriter out(stream());
            out << "%%Page: " << number << QsdSpc() << number << EOL;
            writeBoxComments(out, "%%PageBoundingBox:", "%%PageHiResBoundingBox:", record.extent);
            ResourceList fonts(out, "%%PageResources:");
            const std::vector<bool>& used = document.fontSets[record.fonts];
            std::vector<std::string> listed;
            for (std::size_t i = 0; i < used.size(); ++i) {
                if (!used[i]) {
                    continue;
                }
                for (const std::string& part : QsdPSPrintResources::partsOf(document.resources.fonts()[i])) {
                    if (std::find(listed.begin(), listed.end(), part) == listed.end()) {
                        listed.push_back(part);
                        fonts.add("font", QsdPSShortCommentName(part));
                    }
                }
            }
            out << "%%BeginPageSetup" << EOL << "QsdPrintDict begin ";
            if (!document.bbox) {
                writeBox(out, record.extent);
                out << QsdSpc();
            }
            out << "bp" << EOL;
        }
        document.copy(document.pageTexts, begin, record.end);
        begin = record.end;
        QsdPSWriter(stream()) << "%%PageTrailer" << EOL << "ep showpage" << EOL;
    }
}
