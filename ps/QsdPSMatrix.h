// Transformers in PostScript documents.
#pragma once

#include <iosfwd>

class QsdTransformer;

/// Writes `t` relative to the page: the page's own matrix and then the six values of `t`.
void SendTransformer(std::ostream& stream, const QsdTransformer& t);
