// Direct colour pixels in memory.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/graphics/QsdBitmapData.h"

#include <vector>

/// Pixels of four bytes, an unused one and red, green and blue, row by row without padding.
class QSD_API QsdRGBBitmapData : public QsdBitmapData {
public:
    /// Black pixels. Throws std::bad_alloc when there is no memory for them.
    QsdRGBBitmapData(std::uint32_t width, std::uint32_t height);

    [[nodiscard]] QsdRGB pixel(std::uint32_t x, std::uint32_t y) const override;
    void setPixel(std::uint32_t x, std::uint32_t y, QsdRGB color) override;

    /// The bytes, 4 * width a row; valid as long as the object.
    [[nodiscard]] const unsigned char* data() const { return _data.data(); }
    /// The same bytes, to be changed.
    [[nodiscard]] unsigned char* data() { return _data.data(); }

private:
    [[nodiscard]] std::size_t offset(std::uint32_t x, std::uint32_t y) const;

    std::vector<unsigned char> _data;
};
