// What the tests of the X display share.
#pragma once

#include "toolkit/base/QsMalloc.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/port/QsdBitmap.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/x11/QsdXDisplay.h"
#include "toolkit/x11/QsdXPixmap.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// Collects warnings and fatal errors as long as it lives.
class Messages {
public:
    Messages()
    {
        QsdSetWarningHandler(Add, &_warnings);
        QsdSetFatalErrorHandler(Add, &_fatal);
    }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;
    ~Messages()
    {
        QsdSetWarningHandler(nullptr, nullptr);
        QsdSetFatalErrorHandler(nullptr, nullptr);
    }

    [[nodiscard]] const std::vector<std::string>& warnings() const { return _warnings; }
    [[nodiscard]] const std::vector<std::string>& fatal() const { return _fatal; }

private:
    static void Add(const char* message, void* list)
    {
        static_cast<std::vector<std::string>*>(list)->emplace_back(message);
    }

    std::vector<std::string> _warnings;
    std::vector<std::string> _fatal;
};

/// The colours of all pixels of a port, row by row; those of a one-bit port on a deeper screen are black where set.
inline std::vector<QsdRGB> colorsOf(const QsdSystemPort& port, const QsdRect& rect)
{
    unsigned long size = 0;
    const std::unique_ptr<unsigned char, QsFreeDeleter> data(port.display()->getBitmapData(&port, size, rect));
    QsdPixels pixels(rect.width, rect.height, port.depth());
    std::vector<QsdRGB> colors;
    if (data == nullptr || size != pixels.bytes().size()) {
        return colors;
    }
    std::copy_n(data.get(), size, pixels.row(0));
    const QsdColorTable table = port.depth() == 1 ? QsdColorTable::BlackAndWhite() : port.display()->colors();
    for (std::uint32_t y = 0; y < rect.height; ++y) {
        for (std::uint32_t x = 0; x < rect.width; ++x) {
            colors.push_back(QsdPixels::ColorOf(pixels.get(x, y), port.depth(), table));
        }
    }
    return colors;
}

inline QsdRect areaOf(const QsdPort& port)
{
    return {0, 0, static_cast<std::uint32_t>(port.width()), static_cast<std::uint32_t>(port.height())};
}

/// A palette of one's own that can be changed.
inline QsdHandle<QsdPalette> paletteOf(const QsdDisplay& display)
{
    return QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
}

/// A colour of 8-bit components.
inline QsdHandle<QsdColor> colorOf(QsdRGB color)
{
    const auto widened = [](std::uint8_t component) { return static_cast<std::uint16_t>(component * 257); };
    return QsdHandle<QsdColor>::Adopt(new QsdColor(widened(color.red), widened(color.green), widened(color.blue)));
}

inline void setColors(QsdPalette& palette, QsdRGB foreground, QsdRGB background)
{
    palette.setForeground(colorOf(foreground).get());
    palette.setBackground(colorOf(background).get());
}

inline std::ostream& operator<<(std::ostream& out, const QsdRGB& color)
{
    return out << int{color.red} << "," << int{color.green} << "," << int{color.blue};
}

/// A test on the server of the environment variable DISPLAY, at the end of which nothing must have gone wrong.
class XTest : public testing::Test {
protected:
    XTest() : display(QsdXDisplay::Open()) {}
    void SetUp() override { ASSERT_NE(display, nullptr); }
    void TearDown() override
    {
        if (display != nullptr) {
            display->sync();
        }
        EXPECT_EQ(messages.warnings(), std::vector<std::string>());
        EXPECT_EQ(messages.fatal(), std::vector<std::string>());
    }

    Messages messages;
    std::unique_ptr<QsdXDisplay> display;
};
