#include "page/characters.h"

#include "toolkit/base/QsdUtf8.h"

#include <algorithm>
#include <iterator>

namespace qsdps {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

template <std::size_t Count>
bool isIn(const Range (&ranges)[Count], char32_t c)
{
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [c](const Range& r) { return c >= r.first && c <= r.last; });
}

} // namespace

char32_t takeCharacter(std::string_view& text, std::string_view& bytes)
{
    std::size_t length = 0;
    const char32_t character = QsdNextUtf8(text, length);
    bytes = text.substr(0, length);
    text.remove_prefix(length);
    return character;
}

bool isInvisibleCharacter(char32_t c)
{
    constexpr Range Invisible[] = {
        {0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},       {0x34F, 0x34F},   {0x61C, 0x61C},
        {0x180B, 0x180F}, {0x200B, 0x200F}, {0x2028, 0x202E},   {0x2060, 0x206F}, {0xFE00, 0xFE0F},
        {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE0FFF},
    };
    return isIn(Invisible, c);
}

bool isRightToLeft(char32_t c)
{
    constexpr Range RightToLeft[] = {
        {0x590, 0x8FF}, {0xFB1D, 0xFDFF}, {0xFE70, 0xFEFC}, {0x10800, 0x10FFF}, {0x1E800, 0x1EFFF},
    };
    return isIn(RightToLeft, c);
}

bool isShaped(char32_t c)
{
    constexpr Range Shaped[] = {
        {0x300, 0x36F},     {0x483, 0x489},     {0x591, 0x5BD},     {0x5BF, 0x5BF},     {0x5C1, 0x5C2},
        {0x5C4, 0x5C5},     {0x5C7, 0x5C7},     {0x610, 0x61A},     {0x620, 0x65F},     {0x66E, 0x8FF}, // Arabic
        {0x900, 0xDFF},                                                                                 // of India
        {0xE31, 0xE3A},     {0xE47, 0xE4E},     {0xEB1, 0xEBC},     {0xEC8, 0xECE},                     // Thai, Lao
        {0xF00, 0x109F},    {0x1100, 0x11FF},   {0x135D, 0x135F},   {0x1700, 0x18AF},                   // Tibetan on
        {0x1900, 0x1CFF},   {0x1DC0, 0x1DFF},   {0x20D0, 0x20FF},   {0x2DE0, 0x2DFF},   {0x302A, 0x302F},
        {0x3099, 0x309A},   {0xA66F, 0xA67D},   {0xA800, 0xA82F},   {0xA880, 0xA8FF},   {0xA930, 0xA95F},
        {0xA980, 0xAADF},   {0xABC0, 0xABFF},   {0xFB1E, 0xFB1E},   {0xFE20, 0xFE2F},   {0x10A00, 0x10AFF},
        {0x11000, 0x11FFF}, {0x16B00, 0x16B8F}, {0x1F1E6, 0x1F1FF}, {0x1F3FB, 0x1F3FF},
    };
    return isIn(Shaped, c);
}

} // namespace qsdps
