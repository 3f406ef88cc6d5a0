#include "ps/print/QsdPSPrintDocument_p.h"

#include "toolkit/encoder/QsdASCII85Encoder.h"
#include "toolkit/encoder/QsdASCIIHexEncoder.h"

void QsdPSPrintDocument::begin(std::ostream* output, const QsdPSDocumentTerms& terms)
{
    _output = output;
    _terms = terms;
    _resources.reset();
    _pageTexts.reset();
    _pages.clear();
    _pageFonts.clear();
    _fontSets.clear();
    _fontSetNumbers.clear();
    _substituteEncoder.reset();
}

void QsdPSPrintDocument::useFont(unsigned number)
{
    if (_pageFonts.size() <= number) {
        _pageFonts.resize(number + 1);
    }
    _pageFonts[number] = true;
}

// What lies off the paper is not on the page.
void QsdPSPrintDocument::endPage(const QsdPSExtent& extent)
{
    QsdPSPageRecord record;
    record.end = _pageTexts.size();
    record.extent = extent;
    auto place = _fontSetNumbers.find(_pageFonts);
    if (place == _fontSetNumbers.end()) {
        // A set without a number does no harm when there is no memory for the other, but a number without a set would.
        _fontSets.push_back(_pageFonts);
        place = _fontSetNumbers.emplace(_pageFonts, static_cast<std::uint32_t>(_fontSets.size() - 1)).first;
    }
    record.fonts = place->second;
    _pages.push_back(record);
    _pageFonts.clear();
}

QsdPSExtent QsdPSPrintDocument::extent() const
{
    QsdPSExtent all;
    for (const QsdPSPageRecord& record : _pages) {
        all.add(record.extent);
    }
    return all;
}

QsdPostScriptEncoder& QsdPSPrintDocument::substituteEncoder()
{
    if (_substituteEncoder == nullptr) {
        if (_terms.level == 1) {
            _substituteEncoder = std::make_unique<QsdASCIIHexEncoder>(nullptr, false);
        } else {
            _substituteEncoder = std::make_unique<QsdASCII85Encoder>(nullptr);
        }
    }
    return *_substituteEncoder;
}

// A stream may be told to throw when it fails, and there may be no memory for the copying. The output stays failed and
// says so when the document ends.
void QsdPSPrintDocument::copy(QsdPSSpool& spool, std::uint64_t begin, std::uint64_t end)
{
    try {
        spool.copyTo(*_output, begin, end);
    } catch (...) {
        try {
            _output->setstate(std::ios_base::badbit);
        } catch (const std::ios_base::failure&) {
            return;
        }
    }
}
