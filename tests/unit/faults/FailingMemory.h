// Memory that runs out when a test wants it to.
#pragma once

/// For as long as one lives, so many allocations of the program succeed; then one fails, or all that follow do. Counted
/// are those of operator new and of QsMalloc. One at a time; make no assertion of a test while it lives.
class FailingMemory {
public:
    enum Failing { Once, FromThenOn };

    FailingMemory(unsigned long allowed, Failing failing);
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;
    ~FailingMemory();

    /// Whether an allocation has failed.
    [[nodiscard]] bool hasFailed() const;
    /// Blocks of operator new that are not deleted yet.
    [[nodiscard]] static long LiveBlocks();
};
