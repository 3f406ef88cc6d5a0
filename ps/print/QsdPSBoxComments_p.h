// How far pages and documents reach, as documents tell it.
#pragma once

#include "ps/print/QsdPSExtent_p.h"

#include <string_view>

class QsdPSWriter;

/// Writes the smallest box of whole points around an extent: left, bottom, right, top; zeros for an empty one.
void QsdPSWriteBox(QsdPSWriter& out, const QsdPSExtent& extent);

/// Writes two comments that tell an extent: `keyword` in whole points, `fineKeyword` in thousandths of them.
void QsdPSWriteBoxComments(QsdPSWriter& out, std::string_view keyword, std::string_view fineKeyword,
                           const QsdPSExtent& extent);
