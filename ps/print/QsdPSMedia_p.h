// Names of paper sizes.
#pragma once

/// The name of a paper of `width` by `height` points, upright or on its side; "Custom" for a size that has none.
[[nodiscard]] constexpr const char* QsdPSMediaName(unsigned long width, unsigned long height)
{
    struct Medium {
        const char* name;
        unsigned long width;
        unsigned long height;
    };
    constexpr Medium Media[] = {
        {"A3", 842, 1191}, {"A4", 595, 842},     {"A5", 420, 595},     {"A6", 298, 420},       {"B4", 729, 1032},
        {"B5", 516, 729},  {"Letter", 612, 792}, {"Legal", 612, 1008}, {"Tabloid", 792, 1224}, {"Executive", 522, 756}};
    for (const Medium& medium : Media) {
        if ((medium.width == width && medium.height == height) || (medium.width == height && medium.height == width)) {
            return medium.name;
        }
    }
    return "Custom";
}
