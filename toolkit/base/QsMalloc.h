// The allocator of buffers that change hands between the toolkit and its users.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <cstddef>

/// Allocates `size` bytes (at least one), uninitialised. Release with QsFree.
/// Throws std::bad_alloc when there is no memory; never returns null.
[[nodiscard]] QSD_API void* QsMalloc(std::size_t size);

/// Resizes a block of QsMalloc, keeping its content up to the smaller size; a null `block` is allocated.
/// Throws std::bad_alloc when there is no memory, and then `block` stays valid.
[[nodiscard]] QSD_API void* QsRealloc(void* block, std::size_t size);

/// Releases a block of QsMalloc or QsRealloc; null is allowed.
QSD_API void QsFree(void* block) noexcept;

/// Deleter for std::unique_ptr over buffers of QsMalloc.
struct QsFreeDeleter {
    /// Frees the block; null is allowed.
    void operator()(void* block) const noexcept { QsFree(block); }
};
