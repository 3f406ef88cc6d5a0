// Matrices that every interpreter can read, and those that texts can be shown under.
#pragma once

#include "toolkit/geometry/QsdTransformer.h"

/// The transformer with values that the reals of interpreters hold: what is no number becomes 0, as does what is too
/// small for them, and what is too great becomes the greatest value that leaves room for products.
[[nodiscard]] QsdTransformer QsdPSFiniteMatrix(const QsdTransformer& t);

/// Whether a transformer flattens areas to a line or a point, as far as numbers of six digits tell.
[[nodiscard]] bool QsdPSIsFlat(const QsdTransformer& t);

/// The height of the unit square after a transformer, across its longer side.
[[nodiscard]] double QsdPSThickness(const QsdTransformer& t);
