// The text of the prolog of a QsdPSPrintDevice, besides the procedures that it shares with QsdPSDevice.
#pragma once

#include <string_view>

// clang-format off

/// Short names, points, clips and outlines. The rectangle operators are for interpreters that lack them; rc keeps a
/// font only where one was set. An arc that reaches beyond the interpreter's coordinates leaves an empty path.
inline constexpr std::string_view QsdPSPrintBasics = R"PS(/sg/setgray load def
/sr/setrgbcolor load def
/rectclip where{pop}{/rectclip{4 -2 roll rect clip n}bd}ifelse
/rectfill where{pop}{/rectfill{G n 4 -2 roll rect fill g}bd}ifelse
/px{1 1 rectfill}bd
/arc{{arc}stopped{5{pop}repeat n}if}bd
/rk{4 2 roll M 1 index 0 rL 0 exch rL neg 0 rL c s}bd
/sf{scalefont setfont}bd
/rc{currentrgbcolor currentlinewidth currentdash currentfont grestore
dup/FontType known{setfont}{pop}ifelse setdash slw setrgbcolor}bd
/enc{findfont dup length dict begin{1 index/FID ne{def}{pop pop}ifelse}forall
/Encoding Encoding dup length array copy Latin1Encoding
{aload pop 2 index 3 1 roll put}forall def currentdict end definefont def}bd
)PS";

/// Pattern fills. ft lays tiles as fillpat does, fo from the origin of the coordinates; both leave a path that encloses
/// nothing alone. fo lays no tiles beyond the clip, of which there may be millions. The samples of a pattern are an array of strings, which pn hands out in turn.
inline constexpr std::string_view QsdPSPrintPatterns = R"PS(/pn{pi get/pi pi 1 add def}bd
/ft{flattenpath{pathbbox}stopped{pop pop pop pop}
{pop pop pop pop G 1 -1 scale fillpat g}ifelse n}bd
/fo{flattenpath{pathbbox}stopped{pop pop pop pop n}
{pop pop pop pop G{eoclip}{clip}ifelse n/th exch def/tw exch def/tp exch def
clippath{pathbbox}stopped not{/ty exch def/tx exch def/by exch def/bx exch def
n tx bx gt ty by gt and{by th div floor th mul th ty{bx tw div floor tw mul tw tx
{1 index G t 1 -1 scale tp g}for pop}for}if}if g n}ifelse}bd
)PS";

/// Lays a page into its place on a sheet that it shares, given its box: left, bottom, right, top; pw and ph are its
/// paper's. CUPS clips to a page of the printer's paper, whatever the document's is, and tells that sheets are shared by
/// a name of its own; a page that is larger is turned to the side of its place, so that it is upright where the sheets
/// lie on their side, and made smaller. A place in the middle of the box and no larger was made for the page.
inline constexpr std::string_view QsdPSPrintSharedSheets = R"PS(/pf{userdict/CUPSsetpagedevice known
{/bt x def/br x def/bb x def/bl x def
clippath pathbbox n/ct x def/cr x def/cb x def/cl x def
/cw cr cl sub def/ch ct cb sub def
cl bl 2 sub ge cb bb 2 sub ge and
cl cr add bl br add sub abs 4 le and cb ct add bb bt add sub abs 4 le and
pw cw 2 add le ph ch 2 add le and or not
{cl cw 2 div add cb ch 2 div add t
pw ph sub cw ch sub mul 0 lt{1 0 dtransform matrix defaultmatrix idtransform
exch pop 0 gt{-90}{90}ifelse rotate/ct cw def/cw ch def/ch ct def}if
cw pw div ch ph div 2 copy gt{x}if pop dup 1 gt{pop 1}if dup scale
pw -2 div ph -2 div t}if}
{pop pop pop pop}ifelse}bd
)PS";

/// Image data at every level: rh reads a string of hexadecimal digits, hr the next samples of an image into st.
inline constexpr std::string_view QsdPSPrintHexData = R"PS(/hs{/st exch string def}bd
/hr{currentfile st readhexstring pop}bd
/rh{string currentfile exch readhexstring pop}bd
)PS";

/// Images of level 1.
inline constexpr std::string_view QsdPSPrintLevel1Images = R"PS(/I{false 3 colorimage}bd
/Ig{image}bd
/Im{imagemask}bd
)PS";

/// Images of the other levels. They read their data to its end mark, so that none of it is left for the interpreter.
inline constexpr std::string_view QsdPSPrintImages = R"PS(/ff{dup type/filetype eq{flushfile}{pop}ifelse}bd
/rs{dup 3 -1 roll readstring pop exch ff}bd
/I{dup/qs exch def false 3 colorimage /qs load ff}bd
/Ig{dup/qs exch def image /qs load ff}bd
/Im{dup/qs exch def imagemask /qs load ff}bd
/Ix{/qs exch def G[/Indexed/DeviceRGB 5 -2 roll]setcolorspace
10 dict begin/ImageType 1 def/ImageMatrix exch def
dup/BitsPerComponent exch def 1 exch bitshift 1 sub[exch 0 exch]/Decode exch def
/Height exch def/Width exch def/DataSource/qs load def currentdict end image g /qs load ff}bd
)PS";

/// Masked images, whose data is a row of the mask and a row of samples in turn.
inline constexpr std::string_view QsdPSPrintMaskedImages = R"PS(/Ik{/qs exch def/qn exch def/qm exch def/qb exch def/qh exch def/qw exch def
<</ImageType 3/InterleaveType 2
/DataDict<</ImageType 1/Width qw/Height qh/BitsPerComponent qb/ImageMatrix qm
/Decode qn 0 eq{[0 1 qb bitshift 1 sub]}{[qn{0 1}repeat]}ifelse/DataSource/qs load>>
/MaskDict<</ImageType 1/Width qw/Height qh/BitsPerComponent 1/ImageMatrix qm/Decode[1 0]>>
>>{image}stopped{pop}if/qs load ff}bd
)PS";

// clang-format on
