#include "toolkit/base/QsMalloc.h"
#include "toolkit/base/QsdMessages.h"
#include "toolkit/base/QsdReadString.h"

#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Messages = std::vector<std::string>;

void collect(const char* message, void* messages)
{
    static_cast<Messages*>(messages)->push_back(message);
}

TEST(Messages, GoToTheInstalledHandlers)
{
    Messages warnings;
    Messages errors;
    EXPECT_EQ(QsdSetWarningHandler(collect, &warnings), nullptr);
    EXPECT_EQ(QsdSetFatalErrorHandler(collect, &errors), nullptr);
    QsdWarning("%s is %d", "this", 7);
    QsdFatalError("done");
    EXPECT_EQ(warnings, Messages{"this is 7"});
    EXPECT_EQ(errors, Messages{"done"});
    EXPECT_EQ(QsdSetWarningHandler(nullptr, nullptr), collect);
    EXPECT_EQ(QsdSetFatalErrorHandler(nullptr, nullptr), collect);
}

TEST(Messages, MayBeOfAnyLength)
{
    Messages warnings;
    QsdSetWarningHandler(collect, &warnings);
    for (const std::size_t length : {0U, 510U, 511U, 512U, 513U, 100000U}) {
        QsdWarning("%s", std::string(length, 'x').c_str());
        EXPECT_EQ(warnings.back(), std::string(length, 'x'));
    }
    QsdSetWarningHandler(nullptr, nullptr);
}

TEST(Messages, GoToStandardErrorAsOneLine)
{
    ::testing::internal::CaptureStderr();
    QsdWarning("careful");
    QsdFatalError("lost");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Warning: careful\nError: lost\n");
}

std::string readString(const std::string& text, std::string* rest = nullptr)
{
    std::istringstream stream(text);
    const std::unique_ptr<char, QsFreeDeleter> value(QsdReadString(stream));
    if (rest != nullptr) {
        stream.clear();
        *rest = std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return value.get();
}

TEST(ReadString, Words)
{
    std::string rest;
    EXPECT_EQ(readString(" \t word and\nmore", &rest), "word");
    EXPECT_EQ(rest, " and\nmore");
    EXPECT_EQ(readString("wo\"rd\\ x"), "wo\"rd\\");
}

TEST(ReadString, QuotedStrings)
{
    std::string rest;
    EXPECT_EQ(readString("\"two words\" rest", &rest), "two words");
    EXPECT_EQ(rest, " rest");
    EXPECT_EQ(readString("\"a\\\"b\\\\c\\n\\t\\r\\101\\7x\\q\""), "a\"b\\c\n\t\r\101\7xq");
    EXPECT_EQ(readString("\"\""), "");
}

TEST(ReadString, StaysOnItsLine)
{
    std::string rest;
    EXPECT_EQ(readString("   \nnext", &rest), "");
    EXPECT_EQ(rest, "\nnext");
    EXPECT_EQ(readString("\"open\nnext", &rest), "open");
    EXPECT_EQ(rest, "\nnext");
    EXPECT_EQ(readString("\"open\\\nnext", &rest), "open\\");
    EXPECT_EQ(readString("word\r\n"), "word");
    EXPECT_EQ(readString(""), "");
}

TEST(ReadString, KeepsWhatThereIsRoomFor)
{
    std::string rest;
    EXPECT_EQ(readString(std::string(100000, 'x') + " y", &rest).size(), 65535U);
    EXPECT_EQ(rest, " y");
}

} // namespace
