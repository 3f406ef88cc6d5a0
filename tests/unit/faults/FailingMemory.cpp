#include "tests/unit/faults/FailingMemory.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

bool armed = false;
unsigned long remaining = 0;
FailingMemory::Failing mode = FailingMemory::Once;
bool failed = false;
long liveBlocks = 0;

bool refuses()
{
    if (!armed) {
        return false;
    }
    if (remaining != 0) {
        --remaining;
        return false;
    }
    const bool first = !failed;
    failed = true;
    return first || mode == FailingMemory::FromThenOn;
}

} // namespace

FailingMemory::FailingMemory(unsigned long allowed, Failing failing)
{
    remaining = allowed;
    mode = failing;
    failed = false;
    armed = true;
}

FailingMemory::~FailingMemory()
{
    armed = false;
}

bool FailingMemory::hasFailed() const
{
    return failed;
}

long FailingMemory::LiveBlocks()
{
    return liveBlocks;
}

// The linker leads the calls of malloc and realloc here. QsMalloc calls one of them, as the compiler likes.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void* __wrap_malloc(std::size_t size);
void* __wrap_realloc(void* block, std::size_t size);

void* __wrap_malloc(std::size_t size)
{
    return refuses() ? nullptr : __real_malloc(size);
}

void* __wrap_realloc(void* block, std::size_t size)
{
    return refuses() ? nullptr : __real_realloc(block, size);
}
}

void* operator new(std::size_t size)
{
    void* const block = std::malloc(size != 0 ? size : 1);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++liveBlocks;
    return block;
}

void* operator new[](std::size_t size)
{
    return operator new(size);
}

void operator delete(void* block) noexcept
{
    liveBlocks -= block != nullptr ? 1 : 0;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

void operator delete[](void* block) noexcept
{
    operator delete(block);
}

void operator delete[](void* block, std::size_t) noexcept
{
    operator delete(block);
}
