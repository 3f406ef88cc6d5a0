// Association list of untyped pointers.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Pairs of pointer keys and pointer values in order of entry. Keys are compared by address and kept unique by the
/// caller; neither keys nor values are owned.
class QSD_API Qs_AList {
public:
    /// The value of the first pair with `key`, or null.
    [[nodiscard]] void* get(const void* key) const;
    /// Gives the first pair with `key` a new value. False, and nothing changed, when there is no such pair.
    bool replace(const void* key, void* value);
    /// Adds a pair at the end, whether or not the key is there already.
    void append(const void* key, void* value);
    /// Removes the first pair that has both `key` and `value`. False when there is none.
    bool remove(const void* key, const void* value);
    /// Number of pairs.
    [[nodiscard]] std::size_t length() const { return _pairs.size(); }

private:
    std::vector<std::pair<const void*, void*>> _pairs;
};
