// Font, colour, dashes and line width: written when they differ from what is in force.
#include "ps/QsdPSDevice.h"

#include "ps/QsdPSClassicNumbers_p.h"
#include "ps/QsdPSComponent_p.h"
#include "ps/QsdPSGrey_p.h"
#include "ps/QsdPSLineLength_p.h"
#include "ps/QsdPSWriter_p.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/port/QsdDisplay.h"

void QsdPSDevice::setCurrentPalette(const QsdPalette* palette) const
{
    if (_stream == nullptr) {
        QsdFatalError("%s", display()->getMessage("&QsdMsg015101"));
    }
    writePalette(palette);
}

// Shared objects are compared by identity. The cached palette holds references, so an address in it cannot come to mean
// another object.
void QsdPSDevice::writePalette(const QsdPalette* palette) const
{
    if (!_currentPalette) {
        writeFirstPalette(palette);
        return;
    }
    // Held, since an override of setForeground may begin a page.
    const QsdHandle<QsdPalette> held = _currentPalette;
    QsdPalette& current = *held;
    bool changed = false;
    if (palette->font() != current.font()) {
        setFont(palette);
        current.setFont(palette->font());
        changed = true;
    }
    if (palette->foreground() != current.foreground()) {
        writeOtherForeground(palette, current);
        changed = true;
    }
    if (palette->lineStyle() != current.lineStyle()) {
        setLineStyle(palette);
        current.setLineStyle(palette->lineStyle(), current.lineWidth());
        changed = true;
    }
    if (palette->lineWidth() != current.lineWidth()) {
        setLineWidth(palette);
        current.setLineStyle(current.lineStyle(), palette->lineWidth());
        changed = true;
    }
    if (changed) {
        QsdPSWriter(_stream) << EOL;
    }
}

// The copy is made before anything is written: an override of setForeground may come back here. When memory runs out on
// the way, the next drawing writes all again.
void QsdPSDevice::writeFirstPalette(const QsdPalette* palette) const
{
    _currentPalette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(palette));
    try {
        setFont(palette);
        setLineStyle(palette);
        setForeground(palette);
        setLineWidth(palette);
    } catch (...) {
        forgetPalette();
        throw;
    }
}

// The colour is stored before it is written as well, for the same reason: what comes back finds it in force.
void QsdPSDevice::writeOtherForeground(const QsdPalette* palette, QsdPalette& current) const
{
    const QsdHandle<const QsdColor> before(current.foreground());
    current.setForeground(palette->foreground());
    try {
        setForeground(palette);
    } catch (...) {
        current.setForeground(before.get());
        throw;
    }
    current.setForeground(palette->foreground());
}

void QsdPSDevice::setForeground(const QsdPalette* palette) const
{
    const QsdColor& color = *palette->foreground();
    const QsdPSClassicNumbers classicNumbers;
    QsdPSWriter out(_stream);
    if (color.red() == color.green() && color.green() == color.blue()) {
        out << QsdPSComponent(color.green()).view() << " setgray";
    } else if (_colorModel != QsdPSGrey) {
        out << QsdPSComponent(color.red()).view() << QsdSpc() << QsdPSComponent(color.green()).view() << QsdSpc()
            << QsdPSComponent(color.blue()).view() << " setrgbcolor";
    } else {
        out << QsdPSGreyOf(color.red() >> 8, color.green() >> 8, color.blue() >> 8) / 255.0 << " setgray";
    }
    out << EOL;
}

// The number of dashes stands where the operator takes the offset into them; documents have always been so.
void QsdPSDevice::setLineStyle(const QsdPalette* palette) const
{
    const QsdLineStyle* const style = palette->lineStyle();
    QsdPSWriter out(_stream);
    if (style == palette->display()->solidLineStyle()) {
        out << "[] 0";
    } else {
        out << "[";
        for (std::uint16_t i = 0; i < style->count(); ++i) {
            out << unsigned{style->dashes()[i]} << QsdSpc();
            out.breakLine(lineLength().elements);
        }
        out << "] " << style->count();
    }
    out << " setdash" << EOL;
}

void QsdPSDevice::setLineWidth(const QsdPalette* palette) const
{
    const unsigned long width = palette->lineWidth() == 0 ? _defaultLineWidth : palette->lineWidth();
    QsdPSWriter(_stream) << width << " slw" << EOL;
}
