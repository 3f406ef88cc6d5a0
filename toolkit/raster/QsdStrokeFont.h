// An alphabet of lines, for texts where no window system draws them.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/raster/QsdFlatten.h"

#include <vector>

/// The lines of one character. x runs from 0 to 1 over its advance, y is its height over the baseline, upwards, in
/// parts of the font's size. `code` is one of the encoding that documents give to Latin fonts; others have a box.
[[nodiscard]] QSD_API std::vector<QsdChain> QsdStrokeLetter(unsigned code);
