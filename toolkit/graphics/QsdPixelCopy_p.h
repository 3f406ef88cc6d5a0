// Handing pixels out to callers who free them.
#pragma once

#include "toolkit/base/QsMalloc.h"

#include <cstring>
#include <vector>

/// A copy of `bytes` from QsMalloc; `size` is set to its length.
[[nodiscard]] inline unsigned char* QsdCopyOfPixels(const std::vector<unsigned char>& bytes, unsigned long& size)
{
    auto* const copy = static_cast<unsigned char*>(QsMalloc(bytes.size()));
    if (!bytes.empty()) {
        std::memcpy(copy, bytes.data(), bytes.size());
    }
    size = bytes.size();
    return copy;
}
