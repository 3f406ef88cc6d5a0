// Puts a clip back when an operation is done.
#pragma once

#include "ps/QsdPSDevice.h"

/// Remembers a clip of the device and, when it goes, on whatever way, takes the one then in force away and sets the
/// remembered one again.
class QsdPSClipRestorer {
public:
    QsdPSClipRestorer(const QsdPSDevice& device, const QsdRegion& clip) : _device(device), _clip(clip) {}
    QsdPSClipRestorer(const QsdPSClipRestorer&) = delete;
    QsdPSClipRestorer& operator=(const QsdPSClipRestorer&) = delete;
    ~QsdPSClipRestorer()
    {
        // A derived device's clip may throw while an exception passes already; that one tells enough.
        try {
            _device.clip(static_cast<const QsdRect*>(nullptr));
            _device.clip(&_clip);
        } catch (...) {
        }
    }

private:
    const QsdPSDevice& _device;
    QsdRegion _clip;
};
