// A stream for documents of millions of lines.
#pragma once

#include "toolkit/base/QsdExport.h"

#include <memory>
#include <ostream>

/// Collects what is written in a block of 64 KiB and hands it on when that is full. Flushing it does nothing, so a
/// device may flush each line as it promises; finish() is what completes the output. Once something could not be
/// written the stream has failed and takes nothing more.
class QSD_API QsdPSBulkStream : public std::ostream {
public:
    /// Opens a file for writing, emptying it; the stream fails when that cannot be done. Null stands for no name.
    explicit QsdPSBulkStream(const char* fileName);
    /// Hands its blocks to `target` (not owned): standard output, a pipe, memory.
    explicit QsdPSBulkStream(std::ostream& target);
    /// Writes what is still held, as far as it can.
    ~QsdPSBulkStream() override;

    /// Hands on what is held and flushes what it goes to; fails when that fails. More may be written afterwards.
    void finish();

private:
    class Buffer;

    std::unique_ptr<std::ostream> _file;
    std::unique_ptr<Buffer> _buffer;
};
