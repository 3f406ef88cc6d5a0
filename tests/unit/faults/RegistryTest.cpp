// What is promised when memory runs out while the registry of fonts is filled: nothing leaks, and what is in it is
// whole.
#include "ps/QsdPSFonts_.h"
#include "tests/unit/faults/FailingMemory.h"
#include "toolkit/base/QsdMessages.h"

#include <gtest/gtest.h>
#include <new>
#include <optional>
#include <sstream>

namespace {

constexpr const char* Map = "// QsdPSFonts 1.0\n// Encoding: ISO8859-1\n"
                            "Family courier\nNormalName AnotherNameForCourier\nAsDefault yes\n"
                            "Family one\nNormalName ANameOfSomeLength\nBoldFontFile /a/file/of/some/length\n"
                            "Family two\nNormalName Short\n";

void expectBuiltIn(const QsdPSFonts_& registry)
{
    for (const char* const family : {"times", "courier", "helvetica"}) {
        const QsdPSFontNames_* const names = registry.getPSFontNames(QsEncodingLatin1, family);
        ASSERT_NE(names, nullptr);
        EXPECT_NE(names->normalName(), nullptr);
    }
    EXPECT_GE(registry.getPSFontNames(registry.getDefaultFontNames(QsEncodingLatin1)), 0);
}

TEST(Registry, IsMadeAndFilledWithoutMemory)
{
    QsdSetWarningHandler([](const char*, void*) {}, nullptr);
    for (const auto failing : {FailingMemory::Once, FailingMemory::FromThenOn}) {
        bool failed = true;
        unsigned long allowed = 0;
        for (; failed; ++allowed) {
            std::istringstream stream(Map);
            const long blocks = FailingMemory::LiveBlocks();
            {
                // Small, so that it has to grow on the way.
                std::optional<QsdPSFonts_> registry;
                bool read = false;
                {
                    const FailingMemory memory(allowed, failing);
                    try {
                        registry.emplace(1U);
                        read = registry->read(stream, "map");
                    } catch (const std::bad_alloc&) {
                    }
                    failed = memory.hasFailed();
                }
                EXPECT_EQ(read, !failed) << allowed;
                if (registry.has_value()) {
                    expectBuiltIn(*registry);
                    std::istringstream again(Map);
                    EXPECT_TRUE(registry->read(again, "map"));
                    EXPECT_EQ(registry->count(), 16U);
                    EXPECT_STREQ(registry->getDefaultFontNames(QsEncodingLatin1)->normalName(),
                                 "AnotherNameForCourier");
                }
            }
            ASSERT_EQ(FailingMemory::LiveBlocks(), blocks) << allowed;
        }
        EXPECT_GT(allowed, 50U);
    }
    QsdSetWarningHandler(nullptr, nullptr);
}

} // namespace
