// Draws every way to draw a bitmap on one page, or looks at the pixels of that page:
// bitmaps draw|compare classic|print LEVEL rgb|grey DEPTH FILE; bitmaps size tells width and height of the page.
#include "expected_picture.h"
#include "page_pixels.h"
#include "render_device.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <cstdlib>
#include <iostream>

namespace {

int rowsOf(const std::vector<Form>& forms)
{
    return (static_cast<int>(forms.size()) + CellColumns - 1) / CellColumns;
}

QsdPoint originOf(std::size_t number)
{
    const auto cell = static_cast<int>(number);
    return {cell % CellColumns * CellSide, cell / CellColumns * CellSide};
}

bool draw(const std::vector<Form>& forms, const std::string& kind, unsigned long level, bool grey, unsigned short depth,
          const char* file)
{
    QsdMemoryDisplay display(depth);
    const std::unique_ptr<QsdPSDevice> device = makeDevice(kind, display, grey ? QsdPSGrey : QsdPSRGB);
    const auto width = static_cast<unsigned long>(CellColumns) * CellSide;
    const auto height = static_cast<unsigned long>(rowsOf(forms)) * CellSide;
    device->setPaperWidth(width);
    device->setPaperHeight(height);
    device->setPostScriptLevel(level);
    if (!device->initDevice(file, nullptr)) {
        return false;
    }
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    palette->setForeground(colorOf(Ground).get());
    device->fillRectangle(palette.get(), {0, 0, static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height)});
    palette->setForeground(colorOf(Foreground).get());
    palette->setBackground(colorOf(Background).get());
    const SourcePixels pixels(depth);
    for (std::size_t i = 0; i < forms.size(); ++i) {
        QsdRegion clip = QsdRegion::Full();
        if (!forms[i].paletteClip.empty()) {
            clip.empty();
            for (const QsdRect& rect : forms[i].paletteClip) {
                clip.unite(rect);
            }
            clip.translate(originOf(i).x, originOf(i).y);
        }
        palette->setClipRegion(clip);
        forms[i].draw({*device, display, pixels, *palette, originOf(i)}, forms[i]);
    }
    device->end();
    return !device->writeFailed();
}

/// Whether the cell looks as it should; if not, tells how.
bool compareCell(const Form& form, const PagePixels& page, const QsdPoint& origin, const SourcePixels& pixels,
                 bool grey)
{
    int wrong = 0;
    for (int y = 0; y < CellSide; ++y) {
        for (int x = 0; x < CellSide; ++x) {
            const QsdRGB expected = expectedColor(form, pixels, x, y).value_or(Ground);
            if (!page.shows(origin.x + x, origin.y + y, expected, grey) && wrong++ == 0) {
                std::cout << form.name << ": at " << x << " " << y << " " << page.pixel(origin.x + x, origin.y + y)
                          << ", not " << expected;
            }
        }
    }
    if (wrong != 0) {
        std::cout << ", " << wrong << " wrong\n";
    }
    return wrong == 0;
}

bool compare(const std::vector<Form>& forms, bool grey, unsigned short depth, const char* file)
{
    const PagePixels page(file);
    if (!page.hasSize(CellColumns * CellSide, rowsOf(forms) * CellSide)) {
        std::cout << file << " is not the page\n";
        return false;
    }
    const SourcePixels pixels(depth);
    bool equal = true;
    for (std::size_t i = 0; i < forms.size(); ++i) {
        equal = compareCell(forms[i], page, originOf(i), pixels, grey) && equal;
    }
    return equal;
}

} // namespace

int main(int count, char** argv)
{
    std::vector<Form> forms = bitmapForms();
    const std::string what = count > 1 ? argv[1] : "";
    if (what == "size") {
        std::cout << CellColumns * CellSide << "x" << rowsOf(forms) * CellSide << "\n";
        return 0;
    }
    if (count != 7) {
        return 2;
    }
    const std::string kind = argv[2];
    const unsigned long level = std::strtoul(argv[3], nullptr, 10);
    const bool grey = std::string(argv[4]) == "grey";
    const auto depth = static_cast<unsigned short>(std::strtoul(argv[5], nullptr, 10));
    if (kind == "print") {
        // That a masked bitmap comes out low is of the other device alone.
        for (Form& form : forms) {
            form.rowsLow = 0;
        }
    }
    const bool good =
        what == "draw" ? draw(forms, kind, level, grey, depth, argv[6]) : compare(forms, grey, depth, argv[6]);
    return good ? 0 : 1;
}
