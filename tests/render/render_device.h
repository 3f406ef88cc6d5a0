// The devices whose pages are looked at.
#pragma once

#include "ps/QsdPSPrintDevice.h"

#include <memory>
#include <string>

/// "classic": QsdPSDevice; "print": QsdPSPrintDevice; "screen": the same with patterns as in a window. Null for others.
inline std::unique_ptr<QsdPSDevice> makeDevice(const std::string& kind, QsdDisplay& display, QsdPSColorModel model)
{
    if (kind == "classic") {
        return std::make_unique<QsdPSDevice>(&display, model);
    }
    if (kind != "print" && kind != "screen") {
        return nullptr;
    }
    auto device = std::make_unique<QsdPSPrintDevice>(&display, model);
    device->setScreenPatterns(kind == "screen");
    return device;
}
