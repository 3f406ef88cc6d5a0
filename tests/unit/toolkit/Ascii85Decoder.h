// Reads back what the encoders of base 85 write.
#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

using Bytes = std::vector<unsigned char>;

/// What the filter of the language makes of the text; fails the test where it would complain.
inline Bytes decoded85(const std::string& text)
{
    Bytes data;
    std::uint64_t value = 0;
    int count = 0;
    std::size_t i = 0;
    for (; i < text.size() && text[i] != '~'; ++i) {
        const char c = text[i];
        if (c == ' ' || c == '\n') {
            continue;
        }
        if (c == 'z') {
            EXPECT_EQ(count, 0);
            data.insert(data.end(), 4, 0);
            continue;
        }
        EXPECT_TRUE(c >= '!' && c <= 'u');
        value = value * 85 + static_cast<unsigned>(c - '!');
        if (++count == 5) {
            EXPECT_LE(value, UINT32_MAX);
            for (int shift = 24; shift >= 0; shift -= 8) {
                data.push_back(static_cast<unsigned char>(value >> shift));
            }
            value = 0;
            count = 0;
        }
    }
    EXPECT_EQ(text.substr(i), "~>\n");
    EXPECT_NE(count, 1);
    if (count > 1) {
        for (int padding = count; padding < 5; ++padding) {
            value = value * 85 + 84;
        }
        for (int byte = 0; byte < count - 1; ++byte) {
            data.push_back(static_cast<unsigned char>(value >> (24 - 8 * byte)));
        }
    }
    return data;
}

inline void expectGoodLines(const std::string& text)
{
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LT(line.size(), 80U);
        EXPECT_FALSE(line.starts_with("%%") || line.starts_with("%!")) << line;
    }
}
