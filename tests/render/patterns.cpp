// Fills a rectangle with each kind of pattern, each on a page of its own, and looks at the pixels:
// patterns list|draw|compare classic|print|screen. The list has a line for each page: its name, what the interpreter
// does (paint, or the error it stops with, or "nothing" where it takes the rest of the document for samples and shows
// no page), and its kind. The documents are NAME.ps in the current folder, and their pages, as far as they are painted,
// NAME-1.ppm.
#include "page_pixels.h"
#include "render_device.h"
#include "toolkit/graphics/QsdRGBBitmapData.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

constexpr int Side = 40;
constexpr QsdRect Filled = {5, 7, 25, 22};
constexpr int TileWidth = 9;
constexpr int TileHeight = 5;
/// Rows of two bytes, without symmetry.
constexpr unsigned char TileBits[] = {0xB2, 0x80, 0x01, 0x00, 0x7C, 0x80, 0x40, 0x00, 0x40, 0x80};

/// How tiles lie. Either way they begin at the left end of the filled path's box and end at its bottom.
enum class Lie {
    Upright,
    Mirrored, ///< in x, and a row further up
    Screen    ///< upright, from the page's top left corner
};

/// One kind of page.
struct Form {
    QsdFillStyle style;
    unsigned long level;
    bool grey;
    std::vector<unsigned short> depths;
    Lie lie;
    std::string outcome; ///< as in the list
};

const std::string Paint = "paint";

const std::vector<Form> Forms = {
    {QsdFillPattern, 1, false, {1, 8, 24}, Lie::Mirrored, Paint},
    {QsdFillPattern, 1, true, {1, 8, 24}, Lie::Mirrored, Paint},
    {QsdFillPattern, 2, false, {1, 8, 24}, Lie::Mirrored, Paint},
    {QsdFillPattern, 2, true, {1, 8, 24}, Lie::Mirrored, Paint},
    {QsdFillMaskPattern, 1, false, {1, 8, 24}, Lie::Mirrored, Paint},
    {QsdFillMaskPattern, 1, true, {1, 8, 24}, Lie::Mirrored, Paint},
    {QsdFillMaskPattern, 2, false, {1, 8, 24}, Lie::Mirrored, "nocurrentpoint"},
    {QsdFillMaskPattern, 2, true, {1, 8, 24}, Lie::Mirrored, "nocurrentpoint"},
    {QsdFillColorPattern, 1, false, {8, 24}, Lie::Upright, Paint},
    {QsdFillColorPattern, 1, true, {8}, Lie::Mirrored, Paint},
    {QsdFillColorPattern, 1, true, {24}, Lie::Mirrored, "rangecheck"},
    {QsdFillColorPattern, 1, false, {1}, Lie::Mirrored, "nothing"},
    {QsdFillColorPattern, 1, true, {1}, Lie::Mirrored, "nothing"},
    {QsdFillColorPattern, 2, false, {8, 24}, Lie::Upright, Paint},
    {QsdFillColorPattern, 2, true, {8}, Lie::Mirrored, Paint},
    {QsdFillColorPattern, 2, true, {24}, Lie::Mirrored, "rangecheck"},
    {QsdFillColorPattern, 2, false, {1}, Lie::Mirrored, Paint},
    {QsdFillColorPattern, 2, true, {1}, Lie::Mirrored, Paint},
};

struct Page {
    const Form* form;
    unsigned short depth;
};

/// The device for printing paints where the other does, and everything that the other fails at, at all levels.
std::vector<Form> formsOf(const std::string& kind)
{
    std::vector<Form> forms = Forms;
    if (kind == "classic") {
        return forms;
    }
    for (const Form& form : Forms) {
        if (form.level == 2) {
            forms.push_back(form);
            forms.back().level = 3;
        }
    }
    for (Form& form : forms) {
        form.outcome = Paint;
        form.lie = kind == "screen" ? Lie::Screen : form.lie;
    }
    return forms;
}

std::vector<Page> pages(const std::vector<Form>& forms)
{
    std::vector<Page> all;
    for (const Form& form : forms) {
        for (const unsigned short depth : form.depths) {
            all.push_back({&form, depth});
        }
    }
    return all;
}

bool tileBit(int x, int y)
{
    return (TileBits[2 * y + x / 8] & (0x80U >> (x % 8))) != 0;
}

/// Colours that a screen of the depth shows without loss.
QsdRGB tileColor(int x, int y, unsigned short depth)
{
    if (depth == 1) {
        return tileBit(x, y) ? QsdRGB{} : QsdRGB{255, 255, 255};
    }
    const auto component = [](int level) { return static_cast<std::uint8_t>(level % 6 * 51); };
    return {component(x), component(y), component(x / 6 + 2 * y)};
}

bool draw(const Page& page, const std::string& kind, const std::string& file)
{
    const Form& form = *page.form;
    QsdMemoryDisplay display(page.depth);
    const std::unique_ptr<QsdPSDevice> device = makeDevice(kind, display, form.grey ? QsdPSGrey : QsdPSRGB);
    device->setPaperWidth(Side);
    device->setPaperHeight(Side);
    device->setPostScriptLevel(form.level);
    if (!device->initDevice(file.c_str(), nullptr)) {
        return false;
    }
    QsdRGBBitmapData colors(TileWidth, TileHeight);
    for (int y = 0; y < TileHeight; ++y) {
        for (int x = 0; x < TileWidth; ++x) {
            colors.setPixel(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y), tileColor(x, y, page.depth));
        }
    }
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    palette->setForeground(colorOf(Ground).get());
    device->fillRectangle(palette.get(), {0, 0, Side, Side});
    palette->setForeground(colorOf(Foreground).get());
    palette->setBackground(colorOf(Background).get());
    palette->setPattern(QsdHandle<QsdPattern>::Adopt(new QsdPattern(TileWidth, TileHeight, TileBits)).get());
    palette->setColorPattern(QsdHandle<QsdColorPattern>::Adopt(display.createColorPattern(colors)).get());
    palette->setFillStyle(form.style);
    device->fillRectangle(palette.get(), Filled);
    device->end();
    return !device->writeFailed();
}

QsdRGB expectedColor(const Page& page, int x, int y)
{
    if (!Filled.contains({x, y})) {
        return Ground;
    }
    const bool screen = page.form->lie == Lie::Screen;
    const bool mirrored = page.form->lie == Lie::Mirrored;
    const int column = (x - Filled.x) % TileWidth;
    const int up = static_cast<int>(Filled.bottom()) - 1 - y + (mirrored ? TileHeight - 1 : 0);
    const int tileX = screen ? x % TileWidth : mirrored ? TileWidth - 1 - column : column;
    const int tileY = screen ? y % TileHeight : TileHeight - 1 - up % TileHeight;
    if (page.form->style == QsdFillColorPattern) {
        return tileColor(tileX, tileY, page.depth);
    }
    const QsdRGB clear = page.form->style == QsdFillPattern ? Background : Ground;
    return tileBit(tileX, tileY) ? Foreground : clear;
}

bool compare(const Page& page, const std::string& file)
{
    const PagePixels pixels(file.c_str());
    if (!pixels.hasSize(Side, Side)) {
        std::cout << file << " is not the page\n";
        return false;
    }
    for (int y = 0; y < Side; ++y) {
        for (int x = 0; x < Side; ++x) {
            const QsdRGB expected = expectedColor(page, x, y);
            if (!pixels.shows(x, y, expected, page.form->grey)) {
                std::cout << file << ": at " << x << " " << y << " " << pixels.pixel(x, y) << ", not " << expected
                          << "\n";
                return false;
            }
        }
    }
    return true;
}

} // namespace

int main(int count, char** argv)
{
    const std::string what = count > 1 ? argv[1] : "";
    const std::string kind = count > 2 ? argv[2] : "";
    if (count != 3 || (kind != "classic" && kind != "print" && kind != "screen")) {
        return 2;
    }
    const std::vector<Form> forms = formsOf(kind);
    bool good = true;
    int number = 0;
    for (const Page& page : pages(forms)) {
        const Form& form = *page.form;
        const std::string name = kind + "-" + std::to_string(number++);
        if (what == "list") {
            std::cout << name << " " << form.outcome << " style " << form.style << ", level " << form.level
                      << (form.grey ? ", grey" : ", rgb") << ", depth " << page.depth << "\n";
        } else if (what == "draw") {
            good = draw(page, kind, name + ".ps") && good;
        } else if (what == "compare") {
            good = (form.outcome != Paint || compare(page, name + "-1.ppm")) && good;
        } else {
            return 2;
        }
    }
    return good ? 0 : 1;
}
