// Drawing calls in any order, with numbers that nobody means.
#include "check.h"
#include "choices.h"
#include "kept_document.h"
#include "ps/QsdPSPrintDevice.h"
#include "scanner.h"
#include "silence.h"
#include "toolkit/encoder/QsdLZWEncoder.h"
#include "toolkit/encoder/QsdRunLengthEncoder.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#include "toolkit/port/QsdBitmap.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

constexpr int MostCalls = 60;
/// Pictures larger than that take their time and show nothing new.
constexpr std::uint64_t MostPixels = 1 << 16;

/// Objects for the calls of one document, chosen by the bytes.
class Drawing {
public:
    Drawing(Choices& choices, QsdMemoryDisplay& display, QsdPSDevice& device)
        : _choices(choices), _display(display), _device(device), _color(&display, 5, 4, 24)
    {
        _color.setMask(std::make_unique<QsdBitmap>(&display, 3U, 9U, std::uint16_t{1}));
        const unsigned char bits[] = {0xA5, 0x5A, 0xFF};
        _bits = QsdBitmap::FromBits(&display, 7, 3, bits);
    }

    /// Whether no samples, which are no tokens, stand in the document.
    [[nodiscard]] bool isTextOnly() const { return _textOnly; }

    void call()
    {
        const auto palette = makePalette();
        const QsdPalette* const p = palette.get();
        switch (_choices.below(9)) {
        case 0:
            return state();
        case 1:
        case 2:
            return line(p);
        case 3:
        case 4:
            return area(p);
        case 5:
            return curve(p);
        case 6:
            return image(p);
        case 7:
            return text(p);
        default:
            return composed(p);
        }
    }

private:
    QsdPoint point() { return {_choices.integer<std::int32_t>(), _choices.integer<std::int32_t>()}; }
    QsdRect rect()
    {
        const QsdPoint corner = point();
        return {corner.x, corner.y, _choices.integer<std::uint32_t>(), _choices.integer<std::uint32_t>()};
    }
    /// A rectangle of so few pixels that they can be read.
    QsdRect pixels()
    {
        QsdRect result = rect();
        if (std::max<std::uint64_t>(result.width, 1) * std::max<std::uint64_t>(result.height, 1) > MostPixels) {
            result.width %= 256;
            result.height %= 256;
        }
        return result;
    }
    std::vector<QsdPoint> points()
    {
        std::vector<QsdPoint> result(1 + (_choices.byte() % 32 == 0 ? _choices.below(5000) : _choices.below(9)));
        for (QsdPoint& each : result) {
            each = point();
        }
        return result;
    }
    QsdTransformer transformer()
    {
        double values[6];
        for (double& value : values) {
            value = _choices.real();
        }
        return {values[0], values[1], values[2], values[3], values[4], values[5]};
    }
    float angle() { return static_cast<float>(_choices.real()); }
    QsdRegion region()
    {
        QsdRegion result;
        for (std::uint32_t i = _choices.below(4); i != 0; --i) {
            result.add(rect());
        }
        return _choices.flag() ? QsdRegion::Full() : result;
    }
    QsdPosition position() { return static_cast<QsdPosition>(_choices.below(40)); }

    QsdHandle<QsdPalette> makePalette()
    {
        auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&_display));
        const std::uint32_t which = _choices.byte();
        if ((which & 1) != 0) {
            const auto color = QsdHandle<QsdColor>::Adopt(new QsdColor(_choices.integer<std::uint16_t>(),
                                                                       _choices.integer<std::uint16_t>(),
                                                                       _choices.integer<std::uint16_t>()));
            palette->setForeground(color.get());
        }
        if ((which & 2) != 0) {
            const std::string dashes = _choices.text();
            const auto style = QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(
                static_cast<std::uint16_t>(dashes.size()), reinterpret_cast<const std::uint8_t*>(dashes.data())));
            palette->setLineStyle(style.get(), _choices.integer<std::uint16_t>());
        }
        if ((which & 4) != 0) {
            const auto font = QsdHandle<QsdFont>::Adopt(new QsdFont(
                _choices.text().c_str(), _choices.integer<std::uint16_t>(), _choices.integer<std::uint16_t>()));
            palette->setFont(font.get());
        }
        if ((which & 8) != 0) {
            setPattern(*palette);
        }
        if ((which & 16) != 0) {
            palette->setClipRegion(region());
        }
        palette->setFillRule(static_cast<std::uint16_t>(which >> 5 & 1));
        palette->setArcMode(static_cast<std::uint16_t>(which >> 6 & 1));
        return palette;
    }
    void setPattern(QsdPalette& palette)
    {
        const auto width = static_cast<std::uint16_t>(1 + _choices.below(20));
        const auto height = static_cast<std::uint16_t>(1 + _choices.below(9));
        palette.setFillStyle(static_cast<std::uint16_t>(_choices.below(4)));
        _textOnly = false;
        if (palette.fillStyle() == QsdFillColorPattern) {
            const QsdRGBBitmapData data(width, height);
            const auto pattern = QsdHandle<QsdColorPattern>::Adopt(_display.createColorPattern(data));
            palette.setColorPattern(_choices.flag() ? pattern.get() : nullptr);
        } else {
            std::string bits = _choices.text();
            bits.resize(std::size_t{3} * height);
            const auto pattern = QsdHandle<QsdPattern>::Adopt(
                new QsdPattern(width, height, reinterpret_cast<const unsigned char*>(bits.data())));
            palette.setPattern(pattern.get());
        }
    }

    void state()
    {
        switch (_choices.below(7)) {
        case 0:
            return _device.setTransformer(transformer());
        case 1: {
            const QsdRect clip = rect();
            return _device.clip(_choices.flag() ? &clip : nullptr);
        }
        case 2: {
            const QsdRegion clip = region();
            return _device.clip(_choices.flag() ? &clip : nullptr);
        }
        case 3:
            (void)_device.newPage();
            return;
        case 4:
            return _device.setZoomableLineWidths(_choices.flag());
        case 5:
            return _device.setColorModel(_choices.flag() ? QsdPSRGB : QsdPSGrey);
        default:
            return _device.initClip(rect());
        }
    }
    void line(const QsdPalette* p)
    {
        const std::vector<QsdPoint> corners = points();
        switch (_choices.below(7)) {
        case 0:
            return _device.drawPoints(p, corners.size(), corners.data());
        case 1:
            return _device.drawLine(p, corners.front(), corners.back());
        case 2:
            return _device.drawSegments(p, corners.size() / 2, corners.data(), corners.data() + corners.size() / 2);
        case 3:
            return _device.drawPolyLine(p, corners.size(), corners.data());
        case 4: {
            const std::vector<QsdDeltaPoint> steps = deltas(corners);
            return _device.drawPolyLine(p, corners.front(), steps.size(), steps.data());
        }
        case 5:
            return _device.drawRectangle(p, rect());
        default:
            return _device.drawArc(p, rect(), angle(), angle());
        }
    }
    static std::vector<QsdDeltaPoint> deltas(const std::vector<QsdPoint>& corners)
    {
        std::vector<QsdDeltaPoint> steps(corners.size());
        for (std::size_t i = 0; i < steps.size(); ++i) {
            steps[i] = {static_cast<decltype(steps[i].dx)>(corners[i].x),
                        static_cast<decltype(steps[i].dy)>(corners[i].y)};
        }
        return steps;
    }
    void area(const QsdPalette* p)
    {
        const std::vector<QsdPoint> corners = points();
        switch (_choices.below(6)) {
        case 0:
            return _device.fillPolyLine(p, corners.size(), corners.data(), _choices.flag());
        case 1: {
            const std::vector<QsdDeltaPoint> steps = deltas(corners);
            return _device.fillPolyLine(p, corners.front(), steps.size(), steps.data(), _choices.flag());
        }
        case 2:
            return _device.fillRectangle(p, rect());
        case 3:
            return _device.fillArc(p, rect(), angle(), angle());
        case 4: {
            const QsdPointArray rings[] = {QsdPointArray(corners), QsdPointArray(), QsdPointArray(points())};
            return _device.fillPaths(p, _choices.below(4), rings);
        }
        default:
            return _device.clearArea(p, rect());
        }
    }
    void curve(const QsdPalette* p)
    {
        const std::vector<QsdPoint> corners = points();
        switch (_choices.below(3)) {
        case 0:
            return _device.drawBezier(p, corners.size(), corners.data());
        case 1:
            return _device.drawClosedBezier(p, corners.size(), corners.data());
        default:
            return _device.fillBezier(p, corners.size(), corners.data());
        }
    }
    void image(const QsdPalette* p)
    {
        _textOnly = false;
        const QsdBitmap& source = _choices.flag() ? _color : *_bits;
        const QsdRect clip = rect();
        switch (_choices.below(7)) {
        case 0:
            return _device.drawBitmap(p, &source, pixels(), point());
        case 1:
            return _device.drawTransparentBitmap(p, &source, pixels(), point());
        case 2:
            return _device.stretchBitmap(p, point(), &source, transformer(), &clip);
        case 3:
            return _device.stretchTransparentBitmap(p, point(), &source, transformer(), nullptr);
        case 4:
            return _device.stretchTransparentBitmap(p, rect(), &source, &clip);
        case 5: {
            const QsdRegion limits = region();
            return _device.drawBitmap(p, &source, pixels(), pixels(), &limits, position(), _choices.flag());
        }
        default: {
            const QsdRGBBitmapData data(6, 2);
            return _device.stretchBitmapData(p, &data, pixels(), rect(), _choices.flag());
        }
        }
    }
    void text(const QsdPalette* p)
    {
        const std::string bytes = _choices.text();
        const int length = _choices.flag() ? -1 : static_cast<int>(bytes.size());
        const std::wstring wide(bytes.begin(), bytes.end());
        const QsdRegion clip = region();
        switch (_choices.below(6)) {
        case 0:
            return _device.drawString(p, point(), bytes.c_str(), length, position());
        case 1:
            return _device.drawIString(p, point(), bytes.c_str(), length, position());
        case 2:
            return _device.drawTransformedString(p, bytes.c_str(), length, transformer(), &clip);
        case 3:
            return _device.drawWChar(p, point(), wide.c_str(), static_cast<int>(wide.size()), position());
        case 4:
            return _device.drawIWChar(p, point(), wide.c_str(), _choices.integer<std::int16_t>(), position());
        default:
            return _device.drawLabel(p, rect(), bytes.c_str(), length, &clip, position());
        }
    }
    void composed(const QsdPalette* p)
    {
        const auto width = _choices.integer<std::uint16_t>();
        switch (_choices.below(8)) {
        case 0:
            return _device.drawRoundRectangle(p, rect(), width);
        case 1:
            return _device.fillRoundRectangle(p, rect(), width);
        case 2:
            return _device.drawArrow(p, point(), point(), angle());
        case 3:
            return _device.drawMarker(p, point(), static_cast<QsdMarkerType>(_choices.below(12)), width);
        case 4:
            return _device.drawReliefRectangle(p, p, p, rect(), width);
        case 5:
            return _device.drawReliefDiamond(p, p, p, rect(), width);
        case 6:
            return _device.drawReliefLine(p, p, point(), point(), width);
        default:
            return _device.drawShadowRectangle(p, p, rect(), width, position());
        }
    }

    Choices& _choices;
    QsdMemoryDisplay& _display;
    QsdPSDevice& _device;
    QsdBitmap _color;
    std::unique_ptr<QsdBitmap> _bits;
    bool _textOnly = true;
};

void checkDocument(const std::string& document)
{
    const Scan found = scan(document);
    check(found.wellFormed, "Something is not closed", document);
    int depth = 0;
    for (const Token& token : found.tokens) {
        if (token.kind == Token::Kind::Bracket) {
            depth += token.text == "[" || token.text == "{" || token.text == "<<" ? 1 : -1;
        }
    }
    check(depth == 0, "Brackets do not match", document);
}

void setUp(Choices& choices, QsdPSDevice& device)
{
    device.setPostScriptLevel(choices.below(4));
    switch (choices.below(4)) {
    case 0:
        device.setEncoder(new QsdLZWEncoder(nullptr));
        break;
    case 1:
        device.setEncoder(new QsdRunLengthEncoder(nullptr));
        break;
    default:
        break;
    }
    device.setPaperWidth(choices.integer<std::uint32_t>());
    device.setPaperHeight(choices.integer<std::uint32_t>());
}

template <class Device>
void draw(Choices& choices)
{
    constexpr std::uint16_t Depths[] = {1, 8, 24};
    QsdMemoryDisplay display(Depths[choices.below(3)]);
    KeptDocument<Device> device(&display, choices.flag() ? QsdPSRGB : QsdPSGrey);
    setUp(choices, device);
    Drawing drawing(choices, display, device);
    QsdRect box{-5, 7, 4000000000U, 300};
    device.initDevice("fuzz", choices.flag() ? &box : nullptr);
    for (int i = 0; i < MostCalls && !choices.atEnd(); ++i) {
        drawing.call();
    }
    device.end();
    if (drawing.isTextOnly()) {
        checkDocument(device.document());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    dropMessages();
    Choices choices(data, size);
    if (choices.flag()) {
        draw<QsdPSDevice>(choices);
    } else {
        draw<QsdPSPrintDevice>(choices);
    }
    return 0;
}
