#include "ps/stream/QsdPSSpool_p.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

std::string numbered(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += std::to_string(i) + "\n";
    }
    return text;
}

TEST(Spool, GivesBackAnyPart)
{
    // Small texts stay in memory; the others go through a file.
    for (const int count : {0, 10, 9000, 12000, 200000}) {
        QsdPSSpool spool;
        const std::string text = numbered(count);
        for (std::size_t i = 0; i < text.size(); i += 777) {
            spool << text.substr(i, 777) << std::flush;
        }
        EXPECT_EQ(spool.size(), text.size());
        const std::size_t places[] = {0, 1, 65535, 65536, 65537, 131072, text.size() / 2, text.size()};
        for (const std::size_t begin : places) {
            for (const std::size_t end : places) {
                if (begin <= end && end <= text.size()) {
                    std::ostringstream out;
                    spool.copyTo(out, begin, end);
                    EXPECT_TRUE(out.good());
                    EXPECT_EQ(out.str(), text.substr(begin, end - begin)) << count << " " << begin << " " << end;
                }
            }
        }
    }
}

TEST(Spool, GoesOnAfterACopy)
{
    QsdPSSpool spool;
    const std::string first = numbered(30000);
    spool << first;
    std::ostringstream ignored;
    spool.copyTo(ignored, 0, 10);
    spool << first;
    std::ostringstream out;
    spool.copyTo(out, 0, spool.size());
    EXPECT_EQ(out.str(), first + first);
}

TEST(Spool, ForgetsWhatIsCutOff)
{
    const std::string text = numbered(30000);
    for (const std::size_t kept : {std::size_t{0}, std::size_t{100}, std::size_t{70000}, text.size() - 5}) {
        QsdPSSpool spool;
        spool << text;
        spool.truncate(kept);
        EXPECT_EQ(spool.size(), kept);
        spool << text;
        std::ostringstream out;
        spool.copyTo(out, 0, spool.size());
        EXPECT_TRUE(out.str() == text.substr(0, kept) + text) << kept;
    }
}

TEST(Spool, ForgetsWhenReset)
{
    QsdPSSpool spool;
    spool << numbered(30000);
    spool.setstate(std::ios_base::badbit);
    std::ostringstream failed;
    spool.copyTo(failed, 0, 1);
    EXPECT_TRUE(failed.bad());
    spool.reset();
    EXPECT_EQ(spool.size(), 0U);
    spool << "text";
    std::ostringstream out;
    spool.copyTo(out, 0, 4);
    EXPECT_EQ(out.str(), "text");
}

TEST(Spool, KnowsOfBytesAbove127)
{
    QsdPSSpool spool;
    EXPECT_TRUE(spool.isSevenBits());
    spool << "plain";
    EXPECT_TRUE(spool.isSevenBits());
    spool << "\xE9";
    EXPECT_FALSE(spool.isSevenBits());
    spool.truncate(5);
    EXPECT_TRUE(spool.isSevenBits()) << "what was taken back does not count";
    // Enough for the file, and more behind it.
    const std::string block(200'000, 'x');
    spool << block << "\x80" << block << "~";
    EXPECT_FALSE(spool.isSevenBits());
    spool.truncate(0);
    EXPECT_TRUE(spool.isSevenBits());
    spool << "\xFF";
    spool.reset();
    EXPECT_TRUE(spool.isSevenBits());
}

} // namespace
