// What a device remembers of the calls before must not be seen: the same calls are drawn with palettes of their own,
// with one palette that changes, and after everything was made to be forgotten.
#include "minimise.h"
#include "paper.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t CallsPerPage = 10;
constexpr unsigned PageCount = 24;

void drawWithOnePalette(QsdPSDevice& device, const Scene& scene)
{
    const QsdHandle<QsdPalette> palette = paletteOf(*device.display());
    for (const Call& call : scene) {
        call.draw(device, *palette);
    }
}

/// Puts another transformer, clip, font, colour, line style and line width in force than any call has.
void disturb(QsdPSDevice& device)
{
    const std::uint8_t dashes[] = {77, 11};
    const QsdRect clip{3, 5, 7, 9};
    const QsdHandle<QsdPalette> palette = paletteOf(*device.display());
    palette->setForeground(QsdHandle<QsdColor>::Adopt(new QsdColor(12345, 23456, 34567)).get());
    palette->setFont(QsdHandle<QsdFont>::Adopt(new QsdFont("Courier", QsdFontItalic, 77)).get());
    palette->setLineStyle(QsdHandle<QsdLineStyle>::Adopt(new QsdLineStyle(2, dashes)).get(), 99);
    device.setTransformer(QsdTransformer().scale(0.3, 0.7).translate(11, 13));
    device.clip(&clip);
    device.setCurrentPalette(palette.get());
    device.clip(static_cast<const QsdRect*>(nullptr));
}

void drawForgetfully(QsdPSDevice& device, const Scene& scene)
{
    for (const Call& call : scene) {
        disturb(device);
        call.draw(device, *paletteOf(*device.display()));
    }
}

bool differ(const Scene& scene, const Printing& printing, const SceneDrawing& other)
{
    const Pages expected = onPaper({scene}, printing);
    const Pages found = onPaper({scene}, printing, other);
    return expected.messages != found.messages || expected.pictures != found.pictures;
}

void compare(const Printing& printing, const SceneDrawing& other)
{
    const auto any = [](const Operation&) { return true; };
    std::vector<Scene> scenes;
    for (unsigned seed = 1; seed <= PageCount; ++seed) {
        scenes.push_back(randomScene(seed, CallsPerPage, any));
    }
    const Pages expected = onPaper(scenes, printing);
    const Pages found = onPaper(scenes, printing, other);
    ASSERT_EQ(expected.messages, "");
    ASSERT_EQ(found.messages, "");
    for (std::size_t i = 0; i < scenes.size(); ++i) {
        if (expected.pictures[i] != found.pictures[i]) {
            const Scene least = minimised(scenes[i], [&](const Scene& s) { return differ(s, printing, other); });
            ADD_FAILURE() << "seed " << i + 1 << "\n"
                          << told(scenes[i]) << "the same with fewer calls:\n"
                          << told(least);
        }
    }
}

class CacheTest : public testing::TestWithParam<Printing> {};

TEST_P(CacheTest, OnePaletteThatChangesDrawsAsManyDo)
{
    compare(GetParam(), drawWithOnePalette);
}

TEST_P(CacheTest, WhatIsRememberedDrawsAsWhatIsWrittenAnew)
{
    compare(GetParam(), drawForgetfully);
}

std::string nameOf(const testing::TestParamInfo<Printing>& parameter)
{
    return parameter.param.device + std::to_string(parameter.param.level);
}

INSTANTIATE_TEST_SUITE_P(Paper, CacheTest,
                         testing::Values(Printing{"classic", 1}, Printing{"screen", 1}, Printing{"screen", 3},
                                         Printing{"print", 2}),
                         nameOf);

} // namespace
