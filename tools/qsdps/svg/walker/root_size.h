// The size of a whole drawing.
#pragma once

#include "svg/css/styled_document.h"
#include "svg/walker/scene.h"
#include "svg/walker/svg_options.h"
#include "values/length.h"

namespace qsdps::svg {

/// The drawing's own size in CSS pixels; never negative, zero where nothing at all says how large it is.
/// Measuring counts against `budget`.
[[nodiscard]] Size rootSize(const StyledDocument& document, const SvgOptions& options, Budget& budget);

} // namespace qsdps::svg
