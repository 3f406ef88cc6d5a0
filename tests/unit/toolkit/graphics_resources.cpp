// Counted objects and palettes.
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

class Counted : public QsdResource {
public:
    explicit Counted(int& deaths) : _deaths(deaths) {}

protected:
    ~Counted() override { ++_deaths; }

private:
    int& _deaths;
};

TEST(Resource, LivesAsLongAsSomebodyHoldsIt)
{
    int deaths = 0;
    auto* const object = new Counted(deaths);
    EXPECT_EQ(object->references(), 1U);
    object->reference();
    object->destroy();
    EXPECT_EQ(deaths, 0);
    object->destroy();
    EXPECT_EQ(deaths, 1);
}

TEST(Resource, HandlesShareAdoptAndMove)
{
    int deaths = 0;
    {
        auto first = QsdHandle<Counted>::Adopt(new Counted(deaths));
        QsdHandle<Counted> second = first;
        EXPECT_EQ(first->references(), 2U);
        QsdHandle<Counted> third = std::move(second);
        EXPECT_FALSE(second);
        EXPECT_EQ(first->references(), 2U);
        first = third;
        EXPECT_EQ(third->references(), 2U);
        EXPECT_EQ(deaths, 0);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(Palette, StartsWithTheDefaultsOfItsDisplay)
{
    const QsdMemoryDisplay display;
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    EXPECT_EQ(palette->display(), &display);
    EXPECT_EQ(palette->foreground(), display.black());
    EXPECT_EQ(palette->background(), display.white());
    EXPECT_EQ(palette->font(), display.defaultFont());
    EXPECT_EQ(palette->lineStyle(), display.solidLineStyle());
    EXPECT_EQ(palette->pattern(), display.solidPattern());
    EXPECT_EQ(palette->colorPattern(), nullptr);
    EXPECT_EQ(palette->alpha(), 65535);
    EXPECT_TRUE(palette->clipRegion().isFull());
}

TEST(Palette, SharesWhatItIsGiven)
{
    const QsdMemoryDisplay display;
    const auto palette = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    const auto red = QsdHandle<QsdColor>::Adopt(new QsdColor(65535, 0, 0));
    palette->setForeground(red.get());
    EXPECT_EQ(red->references(), 2U);
    palette->setForeground(red.get());
    EXPECT_EQ(red->references(), 2U);
    palette->setForeground(nullptr);
    EXPECT_EQ(red->references(), 1U);
    EXPECT_EQ(palette->foreground(), display.black());
}

TEST(Palette, ACopyHasAllAttributesAndALifeOfItsOwn)
{
    const QsdMemoryDisplay display;
    const auto red = QsdHandle<QsdColor>::Adopt(new QsdColor(65535, 0, 0));
    const unsigned char pixel[] = {0, 1, 2, 3};
    const auto tile = QsdHandle<QsdColorPattern>::Adopt(new QsdColorPattern(1, 1, 24, pixel, 4));
    const auto original = QsdHandle<QsdPalette>::Adopt(new QsdPalette(&display));
    original->setBackground(red.get());
    original->setColorPattern(tile.get());
    original->setLineStyle(nullptr, 7);
    original->setFillStyle(9);
    original->setFillRule(QsdWindingRule);
    original->setArcMode(QsdArcChord);
    original->setAlpha(5);
    original->setAntialiasing(6);
    original->setClipRegion(QsdRegion(QsdRect{1, 2, 3, 4}));

    const auto copy = QsdHandle<QsdPalette>::Adopt(new QsdPalette(original.get()));
    original->setBackground(nullptr);
    original->setClipRegion(QsdRegion());
    EXPECT_EQ(copy->background(), red.get());
    EXPECT_EQ(copy->colorPattern(), tile.get());
    EXPECT_EQ(copy->lineWidth(), 7);
    EXPECT_EQ(copy->fillStyle(), 9);
    EXPECT_EQ(copy->fillRule(), QsdWindingRule);
    EXPECT_EQ(copy->arcMode(), QsdArcChord);
    EXPECT_EQ(copy->alpha(), 5);
    EXPECT_EQ(copy->antialiasing(), 6);
    EXPECT_EQ(copy->clipRegion(), QsdRegion(QsdRect{1, 2, 3, 4}));
    EXPECT_EQ(copy->references(), 1U);
}

} // namespace
