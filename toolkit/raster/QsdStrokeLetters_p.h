// The lines of the letters.
#pragma once

/// How a character is drawn. The strokes are separated by blanks; each is a list of points, of which a digit tells the
/// column (0 to 8) and a letter the height (c: the baseline, h: the small letters, j: the capitals, a: the descenders).
struct QsdStrokeLetterShape {
    const char* strokes;
    unsigned char base = 0; ///< the code of the character to which the strokes are added; 0: none
};

namespace QsdStrokeAccents {

inline constexpr char Grave[] = "3j5i";
inline constexpr char Acute[] = "5j3i";
inline constexpr char Circumflex[] = "2i4j6i";
inline constexpr char Tilde[] = "1i3j5i7j";
inline constexpr char Dieresis[] = "2j2i 6j6i";
inline constexpr char Ring[] = "3i3j5j5i3i";
inline constexpr char Caron[] = "2j4i6j";
inline constexpr char Cedilla[] = "4c5b3a";
// On capitals.
inline constexpr char HighGrave[] = "3l5k";
inline constexpr char HighAcute[] = "5l3k";
inline constexpr char HighCircumflex[] = "2k4l6k";
inline constexpr char HighTilde[] = "1k3l5k7l";
inline constexpr char HighDieresis[] = "2l2k 6l6k";
inline constexpr char HighRing[] = "3k3l5l5k3k";
inline constexpr char HighCaron[] = "2l4k6l";

} // namespace QsdStrokeAccents

inline constexpr char QsdStrokeBox[] = "1c1j7j7c1c";
inline constexpr unsigned char QsdDotlessI = 0x90;

// clang-format off
/// The characters of the codes 32 to 255, eight codes a group.
inline constexpr QsdStrokeLetterShape QsdStrokeLetters[224] = {
    // 32: blank ! " # $ % & '
    {""}, {"4j4e 4d4c"}, {"3j3h 5j5h"}, {"2c3j 5c6j 1e7e 1h7h"},
    {"7i6j2j1i1g2f6f7e7d6c2c1d 4k4b"}, {"1c7j 1j3j3h1h1j 5e7e7c5c5e"}, {"8c2i2j4j5i5h1e1d2c5c8f"}, {"4j4h"},
    // 40: ( ) * + , - . /
    {"5k3i3d5b"}, {"3k5i5d3b"}, {"4i4e 2h6f 2f6h"}, {"4g4c 1e7e"},
    {"4d4c3b"}, {"2e6e"}, {"4d4c"}, {"1b7k"},
    // 48: digits
    {"3c1e1h3j5j7h7e5c3c"}, {"2i4j4c 2c6c"}, {"1i2j6j7i7g1c7c"}, {"1i2j6j7i7g6f3f 6f7e7d6c2c1d"},
    {"6c6j1e8e"}, {"7j2j1f2g5g7f7d5c2c1d"}, {"6j3i1f1d2c6c7d7f6g2g1f"}, {"1j7j3c"},
    // 56: 8 9 : ; < = > ?
    {"2f1g1i2j6j7i7g6f2f1e1d2c6c7d7e6f"}, {"7g6f2f1g1i2j6j7i7g7f5c2c"}, {"4h4g 4d4c"}, {"4h4g 4d4c3b"},
    {"7g1e7c"}, {"1f7f 1d7d"}, {"1g7e1c"}, {"1i2j6j7i7h4f4e 4d4c"},
    // 64: @ and capitals
    {"6e5d3d2e2g3h5h6g6e7d8e8h6j2j0h0d2b6b"}, {"0c4j8c 1e7e"}, {"1c1j6j7i7g6f1f 6f7e7d6c1c"}, {"8i6j2j0h0e2c6c8d"},
    {"1c1j5j8h8e5c1c"}, {"8c1c1j8j 1f6f"}, {"1c1j8j 1f6f"}, {"8i6j2j0h0e2c6c8d8f5f"},
    {"1c1j 7c7j 1f7f"}, {"4c4j"}, {"6j6d5c2c1d1e"}, {"1c1j 7j1e 3f8c"},
    {"1j1c8c"}, {"0c0j4d8j8c"}, {"1c1j7c7j"}, {"2j0h0e2c6c8e8h6j2j"},
    {"1c1j6j8i8g6f1f"}, {"2j0h0e2c6c8e8h6j2j 5e8b"}, {"1c1j6j8i8g6f1f 5f8c"}, {"7i6j2j1i1g2f6f7e7d6c2c1d"},
    {"0j8j 4j4c"}, {"1j1d3c5c7d7j"}, {"0j4c8j"}, {"0j2c4i6c8j"},
    // 88: X Y Z [ \ ] ^ _
    {"0c8j 0j8c"}, {"0j4f8j 4f4c"}, {"1j7j0c8c"}, {"5k3k3b5b"},
    {"1k7b"}, {"3k5k5b3b"}, {"1g4j7g"}, {"0b8b"},
    // 96: ` and small letters
    {"3j5i"}, {"1g2h5h7g7c 7f2f1e1d2c5c7d"}, {"1j1c 1d3c5c7d7g5h3h1g"}, {"7g5h3h1g1d3c5c7d"},
    {"7j7c 7d5c3c1d1g3h5h7g"}, {"1e7e7g5h3h1g1d3c5c7d"}, {"7j5j4i4c 2h7h"}, {"7h7b5a2a1b 7d5c3c1d1g3h5h7g"},
    {"1j1c 1g3h5h7g7c"}, {"4h4c 4j4i"}, {"5h5b4a2a 5j5i"}, {"1j1c 6h1e 3f7c"},
    {"4j4c"}, {"0h0c 0g1h3h4g4c 4g5h7h8g8c"}, {"1h1c 1g3h5h7g7c"}, {"3h1g1d3c5c7d7g5h3h"},
    {"1h1a 1d3c5c7d7g5h3h1g"}, {"7h7a 7d5c3c1d1g3h5h7g"}, {"2h2c 2f4h7h"}, {"7g5h3h1g2f6e7d5c3c1d"},
    {"4j4d5c7c 2h7h"}, {"1h1d3c5c7d 7h7c"}, {"0h4c8h"}, {"0h2c4h6c8h"},
    // 120: x y z { | } ~ and no character
    {"1c7h 1h7c"}, {"1h4c 7h3a1a"}, {"1h7h1c7c"}, {"6k4j4g2f4e4c6b"},
    {"4k4b"}, {"2k4j4g6f4e4c2b"}, {"0e2f5d8e"}, {""},
    // 128: low and high marks of typography
    {""}, {""}, {"4d4c3b"}, {"7j5j4i4b2a 2h7h"},
    {"3d3c2b 6d6c5b"}, {"1d1c 4d4c 7d7c"}, {"4j4c 2h6h"}, {"4j4c 2h6h 2e6e"},
    {QsdStrokeAccents::Circumflex}, {"1c6j 0j2j2h0h0j 3e5e5c3c3e 6e8e8c6c6e"}, {QsdStrokeAccents::HighCaron, 'S'}, {"5g3e5c"},
    {"4j2j0h0e2c4c4j8j 4c8c 4f7f"}, {""}, {""}, {""},
    // 144: dotless i, quotation marks, bullet, dashes
    {"4h4c"}, {"5j4i4h"}, {"4j4i3h"}, {"4j3i3h 7j6i6h"},
    {"3j3i2h 6j6i5h"}, {"3e3g5g5e3e"}, {"0e8e"}, {"0e8e"},
    {QsdStrokeAccents::Tilde}, {"0j3j 1j1g 4g4j6h8j8g"}, {QsdStrokeAccents::Caron, 's'}, {"3g5e3c"},
    {"4g3h1h0g0d1c3c4d5c8d 4d4g5h7h8g8e4e"}, {"4j2i 7j5i"}, {QsdStrokeAccents::Caron}, {QsdStrokeAccents::HighDieresis, 'Y'},
    // 160: the signs of Latin-1
    {""}, {"4h4g 4f4a"}, {"4i4b", 'c'}, {"7i5j4j3i3d1c7c 1f6f"},
    {"0h1g 8h7g 0c1d 8c7d", 'o'}, {"1e7e 1d7d", 'Y'}, {"4k4g 4e4b"}, {"6i4j2i2h6f6e5e 3h2g2f6d6c4b2c"},
    {QsdStrokeAccents::Dieresis}, {"5g4h3g3e4d5e", 'O'}, {"2j6j6g3g2h6h 2f6f"}, {"3g1e3c 6g4e6c"},
    {"1f7f7d"}, {"2e6e"}, {"3d3h5h5f3f5d", 'O'}, {"1j7j"},
    {"3j2i3h5h6i5j3j"}, {"4h4d 1f7f 1c7c"}, {"3j5j6i3g6g"}, {"3j6j4i6h5g3g"},
    {QsdStrokeAccents::Acute}, {"1d1a", 'u'}, {"5c5j3j1i1g3f5f 7j7c 5j7j"}, {"4f4e"},
    {QsdStrokeAccents::Cedilla}, {"3i4j4g"}, {"3j2i2h3g5g6h6i5j3j 2f6f"}, {"2g4e2c 5g7e5c"},
    {"1i2j2g 1c7j 7c7f5d8d"}, {"1i2j2g 1c7j 5f7f7e5c8c"}, {"0j2j1i2h1g0g 1c7j 7c7f5d8d"}, {"7c6b2b1c1d4f4g 4h4i"},
    // 192: capitals with accents
    {QsdStrokeAccents::HighGrave, 'A'}, {QsdStrokeAccents::HighAcute, 'A'},
    {QsdStrokeAccents::HighCircumflex, 'A'}, {QsdStrokeAccents::HighTilde, 'A'},
    {QsdStrokeAccents::HighDieresis, 'A'}, {QsdStrokeAccents::HighRing, 'A'},
    {"0c4j8j 4j4c8c 4f7f 1e4e"}, {QsdStrokeAccents::Cedilla, 'C'},
    {QsdStrokeAccents::HighGrave, 'E'}, {QsdStrokeAccents::HighAcute, 'E'},
    {QsdStrokeAccents::HighCircumflex, 'E'}, {QsdStrokeAccents::HighDieresis, 'E'},
    {QsdStrokeAccents::HighGrave, 'I'}, {QsdStrokeAccents::HighAcute, 'I'},
    {QsdStrokeAccents::HighCircumflex, 'I'}, {QsdStrokeAccents::HighDieresis, 'I'},
    {"0f4f", 'D'}, {QsdStrokeAccents::HighTilde, 'N'},
    {QsdStrokeAccents::HighGrave, 'O'}, {QsdStrokeAccents::HighAcute, 'O'},
    {QsdStrokeAccents::HighCircumflex, 'O'}, {QsdStrokeAccents::HighTilde, 'O'},
    {QsdStrokeAccents::HighDieresis, 'O'}, {"1c7g 1g7c"},
    {"0c8j", 'O'}, {QsdStrokeAccents::HighGrave, 'U'},
    {QsdStrokeAccents::HighAcute, 'U'}, {QsdStrokeAccents::HighCircumflex, 'U'},
    {QsdStrokeAccents::HighDieresis, 'U'}, {QsdStrokeAccents::HighAcute, 'Y'},
    {"1c1j 1i6i8h8f6e1e"}, {"1c1i2j5j6i6h4g7e7d6c4c"},
    // 224: small letters with accents
    {QsdStrokeAccents::Grave, 'a'}, {QsdStrokeAccents::Acute, 'a'},
    {QsdStrokeAccents::Circumflex, 'a'}, {QsdStrokeAccents::Tilde, 'a'},
    {QsdStrokeAccents::Dieresis, 'a'}, {QsdStrokeAccents::Ring, 'a'},
    {"0g1h3h4g4c 4e1e0d1c3c4d 4e8e8g7h5h4g 4d5c8d"}, {QsdStrokeAccents::Cedilla, 'c'},
    {QsdStrokeAccents::Grave, 'e'}, {QsdStrokeAccents::Acute, 'e'},
    {QsdStrokeAccents::Circumflex, 'e'}, {QsdStrokeAccents::Dieresis, 'e'},
    {QsdStrokeAccents::Grave, QsdDotlessI}, {QsdStrokeAccents::Acute, QsdDotlessI},
    {QsdStrokeAccents::Circumflex, QsdDotlessI}, {QsdStrokeAccents::Dieresis, QsdDotlessI},
    {"7g5h3h1g1d3c5c7d7g4j 3i6j"}, {QsdStrokeAccents::Tilde, 'n'},
    {QsdStrokeAccents::Grave, 'o'}, {QsdStrokeAccents::Acute, 'o'},
    {QsdStrokeAccents::Circumflex, 'o'}, {QsdStrokeAccents::Tilde, 'o'},
    {QsdStrokeAccents::Dieresis, 'o'}, {"4h4g 1e7e 4c4b"},
    {"1c7h", 'o'}, {QsdStrokeAccents::Grave, 'u'},
    {QsdStrokeAccents::Acute, 'u'}, {QsdStrokeAccents::Circumflex, 'u'},
    {QsdStrokeAccents::Dieresis, 'u'}, {QsdStrokeAccents::Acute, 'y'},
    {"1j1a 1d3c5c7d7g5h3h1g"}, {QsdStrokeAccents::Dieresis, 'y'},
};
// clang-format on
