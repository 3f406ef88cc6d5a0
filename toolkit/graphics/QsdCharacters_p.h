// The characters of a text in the encoding of the process.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstddef>
#include <functional>

/// One character of a text.
struct QsdCharacter {
    const char* bytes;
    std::size_t length; ///< number of its bytes; the last one of a text that was cut off may have fewer than it needs
    bool half;          ///< of a multi-byte encoding: half as wide as high
};

/// Calls `use` with each character of `length` bytes of `text` (negative: up to its terminating zero; null: none).
QSD_API void QsdForEachCharacter(const char* text, int length, const std::function<void(const QsdCharacter&)>& use);
