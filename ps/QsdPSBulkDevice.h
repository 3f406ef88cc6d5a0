// Devices for documents of millions of calls.
#pragma once

#include "ps/QsdPSBulkStream.h"
#include "ps/QsdPSDevice.h"

/// A `Device` (QsdPSDevice or one derived from it) whose document reaches the system in large blocks instead of line by
/// line. The device still flushes each line; the stream decides when the bytes go. They arrive in order and are
/// complete when end() has returned, which reports a failed write as ever.
template <class Device>
class QsdPSBulkDevice : public Device {
public:
    using Device::Device;

    /// Makes the documents that follow go to `target` (not owned) instead of a file of the name that initDevice is
    /// given: standard output, a pipe, memory. Null: to files again.
    void setTarget(std::ostream* target) { _target = target; }

    /// Opens the stream of the base and puts the block in front of it.
    std::ostream* openStream(const char* fileName) override
    {
        _bulk = _target == nullptr ? new QsdPSBulkStream(fileName) : new QsdPSBulkStream(*_target);
        return _bulk;
    }
    /// Hands over what the block still holds and closes the stream of the base.
    void closeStream(std::ostream* stream) override
    {
        _bulk = nullptr;
        delete stream;
    }

protected:
    /// Writes the end of the document and hands over what the block holds.
    void writeTrailer() override
    {
        Device::writeTrailer();
        _bulk->finish();
    }

private:
    std::ostream* _target = nullptr;
    QsdPSBulkStream* _bulk = nullptr; ///< the stream of the open document, which the device owns
};
