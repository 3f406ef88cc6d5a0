// Devices of every kind whose documents are kept in memory.
#pragma once

#include <cstddef>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

/// Keeps what it is given, up to a megabyte, without allocating.
class CapturingBuffer : public std::streambuf {
public:
    CapturingBuffer() : _room(std::size_t{1} << 20) { clear(); }

    void clear() { setp(_room.data(), _room.data() + _room.size()); }
    [[nodiscard]] std::string text() const { return {pbase(), pptr()}; }

private:
    std::vector<char> _room;
};

/// A `Device`, one that writes in blocks too, whose documents can be read as soon as they have ended.
template <class Device>
class CapturedDevice : public Device {
public:
    using Device::Device;

    std::ostream* openStream(const char* fileName) override
    {
        _buffer.clear();
        if constexpr (requires(Device & device, std::ostream * target) { device.setTarget(target); }) {
            this->setTarget(&_target);
            return Device::openStream(fileName);
        } else {
            return new std::ostream(&_buffer);
        }
    }
    /// The last document, or what is there of the one that is open.
    [[nodiscard]] std::string text() const { return _buffer.text(); }

private:
    CapturingBuffer _buffer;
    std::ostream _target{&_buffer};
};
