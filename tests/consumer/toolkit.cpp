#include <toolkit/memory/QsdMemoryDisplay.h>
#include <toolkit/port/QsdBitmap.h>
#include <toolkit/port/QsdPalette.h>

int main()
{
    QsdMemoryDisplay display;
    const QsdBitmap bitmap(&display, 8, 8, 1);
    const auto palette = QsdMake<QsdPalette>(&display);
    bitmap.fillRectangle(palette.get(), {2, 2, 4, 4});
    return bitmap.pixels().get(3, 3) == 1 && bitmap.pixels().get(0, 0) == 0 ? 0 : 1;
}
