// The size of a whole drawing.
#pragma once

#include "svg/document.h"
#include "svg/length.h"
#include "svg/reader.h"
#include "svg/scene.h"

namespace qsdps::svg {

/// The drawing's own size in CSS pixels; never negative, zero where nothing at all says how large it is.
/// Measuring counts against `budget`.
[[nodiscard]] Size rootSize(const Document& document, const SvgOptions& options, Budget& budget);

} // namespace qsdps::svg
