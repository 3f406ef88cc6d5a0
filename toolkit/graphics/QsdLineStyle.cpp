#include "toolkit/graphics/QsdLineStyle.h"

QsdLineStyle::QsdLineStyle(std::uint16_t count, const std::uint8_t* dashes) : _dashes(dashes, dashes + count) {}
