// Transformers in PostScript documents.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <iosfwd>

class QsdTransformer;

/// Writes `t` relative to the page: the page's own matrix and then the six values of `t`.
QSD_API void SendTransformer(std::ostream& stream, const QsdTransformer& t);
