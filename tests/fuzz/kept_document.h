// Devices whose document stays in memory.
#pragma once

#include <ostream>
#include <sstream>
#include <string>

/// `Device`, which is QsdPSDevice or derived from it, writing into a string.
template <class Device>
class KeptDocument : public Device {
public:
    using Device::Device;

    std::ostream* openStream(const char*) override { return &_text; }
    void closeStream(std::ostream*) override {}
    [[nodiscard]] std::string document() const { return _text.str(); }

private:
    std::ostringstream _text;
};
