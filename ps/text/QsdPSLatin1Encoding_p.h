// The glyphs of the codes above ASCII.
#pragma once

/// One code of the encoding that Latin fonts are given.
struct QsdPSGlyph {
    unsigned char code;
    const char* name;
};

/// Pairs of codes as the prolog lists them, a line each; the code 0214 stands alone on its line.
struct QsdPSGlyphLine {
    QsdPSGlyph first;
    QsdPSGlyph second; ///< a null name: none
};

// clang-format off
inline constexpr QsdPSGlyphLine QsdPSLatin1Encoding[] = {
    {{0202, "quotesinglbase"},    {0203, "florin"}},
    {{0204, "quotedblbase"},      {0205, "ellipsis"}},
    {{0206, "dagger"},            {0207, "daggerdbl"}},
    {{0210, "circumflex"},        {0211, "perthousand"}},
    {{0212, "Scaron"},            {0213, "guilsinglleft"}},
    {{0214, "OE"},                {0, nullptr}},
    {{0220, "dotlessi"},          {0221, "quoteleft"}},
    {{0222, "quoteright"},        {0223, "quotedblleft"}},
    {{0224, "quotedblright"},     {0225, "bullet"}},
    {{0226, "endash"},            {0227, "emdash"}},
    {{0230, "tilde"},             {0231, "trademark"}},
    {{0232, "scaron"},            {0233, "guilsinglright"}},
    {{0234, "oe"},                {0235, "hungarumlaut"}},
    {{0236, "ogonek"},            {0237, "Ydieresis"}},
    {{0240, "space"},             {0241, "exclamdown"}},
    {{0242, "cent"},              {0243, "sterling"}},
    {{0244, "currency"},          {0245, "yen"}},
    {{0246, "brokenbar"},         {0247, "section"}},
    {{0250, "dieresis"},          {0251, "copyright"}},
    {{0252, "ordfeminine"},       {0253, "guillemotleft"}},
    {{0254, "logicalnot"},        {0255, "hyphen"}},
    {{0256, "registered"},        {0257, "macron"}},
    {{0260, "ring"},              {0261, "plusminus"}},
    {{0262, "twosuperior"},       {0263, "threesuperior"}},
    {{0264, "acute"},             {0265, "mu"}},
    {{0266, "paragraph"},         {0267, "periodcentered"}},
    {{0270, "cedilla"},           {0271, "onesuperior"}},
    {{0272, "ordmasculine"},      {0273, "guillemotright"}},
    {{0274, "onequarter"},        {0275, "onehalf"}},
    {{0276, "threequarters"},     {0277, "questiondown"}},
    {{0300, "Agrave"},            {0301, "Aacute"}},
    {{0302, "Acircumflex"},       {0303, "Atilde"}},
    {{0304, "Adieresis"},         {0305, "Aring"}},
    {{0306, "AE"},                {0307, "Ccedilla"}},
    {{0310, "Egrave"},            {0311, "Eacute"}},
    {{0312, "Ecircumflex"},       {0313, "Edieresis"}},
    {{0314, "Igrave"},            {0315, "Iacute"}},
    {{0316, "Icircumflex"},       {0317, "Idieresis"}},
    {{0320, "Eth"},               {0321, "Ntilde"}},
    {{0322, "Ograve"},            {0323, "Oacute"}},
    {{0324, "Ocircumflex"},       {0325, "Otilde"}},
    {{0326, "Odieresis"},         {0327, "multiply"}},
    {{0330, "Oslash"},            {0331, "Ugrave"}},
    {{0332, "Uacute"},            {0333, "Ucircumflex"}},
    {{0334, "Udieresis"},         {0335, "Yacute"}},
    {{0336, "Thorn"},             {0337, "germandbls"}},
    {{0340, "agrave"},            {0341, "aacute"}},
    {{0342, "acircumflex"},       {0343, "atilde"}},
    {{0344, "adieresis"},         {0345, "aring"}},
    {{0346, "ae"},                {0347, "ccedilla"}},
    {{0350, "egrave"},            {0351, "eacute"}},
    {{0352, "ecircumflex"},       {0353, "edieresis"}},
    {{0354, "igrave"},            {0355, "iacute"}},
    {{0356, "icircumflex"},       {0357, "idieresis"}},
    {{0360, "eth"},               {0361, "ntilde"}},
    {{0362, "ograve"},            {0363, "oacute"}},
    {{0364, "ocircumflex"},       {0365, "otilde"}},
    {{0366, "odieresis"},         {0367, "divide"}},
    {{0370, "oslash"},            {0371, "ugrave"}},
    {{0372, "uacute"},            {0373, "ucircumflex"}},
    {{0374, "udieresis"},         {0375, "yacute"}},
    {{0376, "thorn"},             {0377, "ydieresis"}},
};
// clang-format on
