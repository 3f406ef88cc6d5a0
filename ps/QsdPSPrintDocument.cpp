#include "ps/QsdPSPrintDocument_p.h"

#include <algorithm>
#include <cmath>
#include <limits>

QsdPSExtent QsdPSExtentOf(const QsdTransformer& t, double x1, double y1, double x2, double y2)
{
    QsdPSExtent extent;
    for (const double x : {x1, x2}) {
        for (const double y : {y1, y2}) {
            double px = x;
            double py = y;
            t.transform(px, py);
            extent.add(px, py);
        }
    }
    return extent;
}

QsdPSExtent QsdPSHeldExtent(const QsdPSExtent& extent)
{
    if (extent.isEmpty()) {
        return {0, 0, 0, 0};
    }
    const auto held = [](double value) {
        constexpr double Most = std::numeric_limits<std::int32_t>::max();
        return std::clamp(value, -Most, Most);
    };
    return {held(extent.left), held(extent.bottom), held(extent.right), held(extent.top)};
}

std::array<std::int32_t, 4> QsdPSBoxOf(const QsdPSExtent& extent)
{
    const QsdPSExtent box = QsdPSHeldExtent(extent);
    const auto below = [](double value) { return static_cast<std::int32_t>(std::floor(value)); };
    const auto above = [](double value) { return static_cast<std::int32_t>(std::ceil(value)); };
    return {below(box.left), below(box.bottom), above(box.right), above(box.top)};
}

void QsdPSPrintDocument::begin(std::ostream* newOutput, const QsdRect* box, const QsdTransformer& newPage)
{
    output = newOutput;
    bbox = box == nullptr ? std::nullopt : std::optional<QsdRect>(*box);
    resources.reset();
    pageTexts.reset();
    encoder.reset();
    pages.clear();
    fontSets.clear();
    _fontSetNumbers.clear();
    page = newPage;
    use = QsdPSUse::Everything;
    zoomableLineWidths = true;
    sevenBits = true;
    initialClip = QsdPSPageClip();
    if (box != nullptr) {
        initialClip.region = QsdRegion(*box);
    }
    clip = QsdPSPageClip();
    lastPattern = QsdHandle<const QsdResource>();
}

void QsdPSPrintDocument::noteBytes(std::string_view text)
{
    sevenBits =
        sevenBits && std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void QsdPSPrintDocument::setTransformer(const QsdTransformer& t)
{
    inForce.transformer = t;
    inForce.held = QsdPSExtent();
}

void QsdPSPrintDocument::reach(const QsdPSExtent& box, double margin)
{
    // Most drawings lie among earlier ones.
    if (!box.isEmpty() && !(margin == 0 && inForce.held.contains(box))) {
        reachFurther(box, margin);
    }
}

void QsdPSPrintDocument::reachFurther(const QsdPSExtent& box, double margin)
{
    QsdTransformer toPage = inForce.transformer;
    toPage.compose(page);
    QsdPSExtent extent = QsdPSExtentOf(toPage, box.left, box.bottom, box.right, box.top);
    // Without a turn the box around two boxes becomes the one around their images, which the page's extent holds too.
    double x11, x12, x21, x22, x0, y0;
    toPage.getValues(x11, x12, x21, x22, x0, y0);
    const bool upright = (x12 == 0 && x21 == 0) || (x11 == 0 && x22 == 0);
    if (upright && clipBox.contains(extent)) {
        inForce.held.add(box);
    }
    extent.left -= margin;
    extent.bottom -= margin;
    extent.right += margin;
    extent.top += margin;
    extent.limitTo(clipBox);
    pageExtent.add(extent);
}

// A stream may be told to throw when it fails, and there may be no memory for the copying; the output stays failed and
// says so when the document ends.
void QsdPSPrintDocument::copy(QsdPSSpool& spool, std::uint64_t begin, std::uint64_t end)
{
    try {
        spool.copyTo(*output, begin, end);
    } catch (...) {
        try {
            output->setstate(std::ios_base::badbit);
        } catch (const std::ios_base::failure&) {
            return;
        }
    }
}

// What lies off the paper is not on the page.
void QsdPSPrintDocument::endPage()
{
    QsdPSPageRecord record;
    record.end = pageTexts.size();
    record.extent = pageExtent;
    auto place = _fontSetNumbers.find(inForce.fonts);
    if (place == _fontSetNumbers.end()) {
        // A set without a number does no harm when there is no memory for the other, but a number without a set would.
        fontSets.push_back(inForce.fonts);
        place = _fontSetNumbers.emplace(inForce.fonts, static_cast<std::uint32_t>(fontSets.size() - 1)).first;
    }
    record.fonts = place->second;
    pages.push_back(record);
}

QsdPSExtent QsdPSPrintDocument::extent() const
{
    QsdPSExtent all;
    for (const QsdPSPageRecord& record : pages) {
        all.add(record.extent);
    }
    return all;
}
