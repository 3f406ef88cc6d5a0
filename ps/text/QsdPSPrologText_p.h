// The text of the prolog. Every line of it reaches the document as it stands here, blanks and tabs included.
#pragma once

#include <string_view>

// clang-format off

/// The dictionary.
inline constexpr std::string_view QsdPSPrologStart = R"PS(%%BeginProlog
80 dict begin
)PS";

/// The short names, and the procedures for strokes, clips, pattern fills and text.
inline constexpr std::string_view QsdPSPrologProcedures = R"PS(/qsdlw true def
/bd{bind def}bind def
/ld{load def}bind def
/x/exch load def
/t/translate load def
/G/gsave load def
/g/grestore load def
/M/moveto load def
/L/lineto load def
/rM/rmoveto load def
/rL/rlineto load def
/r/roll load def
/n/newpath load def
/sc/gsave load def
/c/closepath load def
/slw/setlinewidth load def
/s{qsdlw{stroke}{matrix currentmatrix imtrx
   setmatrix stroke setmatrix}ifelse}bind def
/rc{currentrgbcolor currentlinewidth currentdash
currentfont grestore setfont setdash slw setrgbcolor}bind def
/fillpat{flattenpath pathbbox G 5 -1 roll
    {eoclip}{clip}ifelse 3 -1 roll dup 0 exch t sub
    3 1 roll exch dup 0 t sub 4 -1 roll dup 3 1 roll div ceiling
    cvi 1 add 4 2 roll 1 index div ceiling cvi 1 add
    {3 copy pop G{4 index exec dup 0 t}repeat
     g pop dup 0 exch t}repeat g 4{pop}repeat}bind def
/rect{M dup 0 exch rL exch 0 rL neg 0 exch rL c}bind def
/qsdshow{
  {pop pop currentpoint round exch round exch M}exch kshow}bind def
/u_get {
  currentfont /FontInfo known {
    currentfont /FontInfo get dup
    /UnderlinePosition known {
      dup /UnderlinePosition get exch
      dup /UnderlineThickness known {
        /UnderlineThickness get
	0 exch currentfont /FontMatrix get transform
	exch pop exch
	0 exch currentfont /FontMatrix get transform
	exch pop true
      } { pop pop false } ifelse
    } { pop false } ifelse
  } { false } ifelse 
} bind def
/u_draw {
  gsave
  exch 0 exch rmoveto
  dup stringwidth rlineto
  exch setlinewidth stroke
  grestore
} bind def
/qsdushow{
  {pop pop currentpoint round exch round exch M}exch
  u_get { 3 2 roll u_draw } if kshow
} bind def
)PS";

/// Text procedures of locales whose characters take more than one byte.
inline constexpr std::string_view QsdPSPrologMultiByte = R"PS(/qsdjshow{show}bind def
/qsdjushow{u_get { 3 2 roll u_draw } if show} bind def
)PS";

/// Pattern data of level 1: a hexadecimal string.
inline constexpr std::string_view QsdPSPrologLevel1Readpattern = R"PS( mul string currentfile exch readhexstring pop/p exch def}bind def
)PS";

/// Gives a font the encoding of the prolog.
inline constexpr std::string_view QsdPSPrologReencode = R"PS(/qsdreencode{exch dup systemdict/findfont get exec dup
 length dict
    begin{1 index/FID ne{def}{pop pop}ifelse} forall
    exch /Encoding exch Encoding dup length array copy
    exch{aload pop 2 index 3 1 roll put}forall def
    currentdict end definefont}bind def
)PS";

/// A composite font for Japanese EUC: what stands between its name and its Latin part.
inline constexpr std::string_view QsdPSPrologCompositeStart = R"PS(/FontType 0 def
/WMode 0 def
/FMapType 3 def
/FontMatrix matrix def
/Encoding [0 1 2]def
/FDepVector
)PS";

/// The end of a composite font.
inline constexpr std::string_view QsdPSPrologCompositeEnd = R"PS(] def
FontName currentdict
end
definefont pop
)PS";

/// One row of an image at level 1.
inline constexpr std::string_view QsdPSPrologLevel1Strip = R"PS(/strip{string/st exch def newpath gsave translate
    dup -1 scale dup 1 exch 8 exch[exch 0 0 -1 0 1]
    {currentfile st readhexstring pop}}bind def
)PS";

/// One row of an image at other levels, up to its data source.
inline constexpr std::string_view QsdPSPrologStrip = R"PS(/strip{ newpath gsave translate
        dup -1 scale dup 1 exch 8 exch[exch 0 0 -1 0 1]
)PS";

/// Rectangle operators for interpreters that lack them; the end of the prolog.
inline constexpr std::string_view QsdPSPrologRectangles = R"PS(/rectclip where
{ pop }
{ /rectclip 
{ 4 -2 roll M dup 0 exch rL exch 0 rL neg 0 exch rL c } bind def } ifelse
/rectfill where
{ pop }
{ /rectfill
{ 4 -2 roll M dup 0 exch rL exch 0 rL neg 0 exch rL c fill } bind def } ifelse
/rectstroke where
{ pop }
{ /rectstroke 
{ 4 -2 roll M dup 0 exch rL exch 0 rL neg 0 exch rL c stroke } bind def } ifelse
%%EndProlog
)PS";

// clang-format on
