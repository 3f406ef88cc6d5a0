#include "toolkit/base/QsMalloc.h"

#include <algorithm>
#include <cstdlib>
#include <new>

void* QsMalloc(std::size_t size)
{
    return QsRealloc(nullptr, size);
}

void* QsRealloc(void* block, std::size_t size)
{
    void* const resized = std::realloc(block, std::max<std::size_t>(size, 1));
    if (resized == nullptr) {
        throw std::bad_alloc();
    }
    return resized;
}

void QsFree(void* block) noexcept
{
    std::free(block);
}
