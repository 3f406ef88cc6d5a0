// Our devices.
#include "bench/throughput/port_scene.h"
#include "bench/throughput/subject.h"
#include "ps/QsdPSBulkDevice.h"
#include "ps/QsdPSPrintDevice.h"
#include "toolkit/memory/QsdMemoryDisplay.h"
#ifdef BENCH_HAVE_ZLIB
#include "toolkit/zlib/QsdFlateEncoder.h"
#endif

#include <stdexcept>

namespace {

using namespace bench;

template <class Device>
class DeviceSubject : public Subject {
public:
    [[nodiscard]] bool draws(Workload) const override { return true; }
    void prepare(Workload workload, std::uint64_t) override { _scene.prepare(workload); }
    void write(Workload workload, std::uint64_t calls, const char* fileName) override
    {
        if (!_device.initDevice(fileName, nullptr)) {
            throw std::runtime_error("no file");
        }
        _scene.draw(_device, workload, calls);
        _device.end();
        if (_device.writeFailed()) {
            throw std::runtime_error("not written");
        }
    }

protected:
    Device& device() { return _device; }

private:
    QsdMemoryDisplay _display;
    PortScene _scene{_display};
    Device _device{&_display, QsdPSRGB};
};

#ifdef BENCH_HAVE_ZLIB
class CompressingSubject : public DeviceSubject<QsdPSBulkDevice<QsdPSPrintDevice>> {
public:
    CompressingSubject()
    {
        device().setPostScriptLevel(3);
        device().setEncoder(new QsdFlateEncoder(nullptr));
    }
    [[nodiscard]] bool draws(Workload workload) const override { return isImage(workload); }
};
#endif

} // namespace

std::unique_ptr<bench::Subject> bench::makeDevice()
{
    return std::make_unique<DeviceSubject<QsdPSDevice>>();
}

std::unique_ptr<bench::Subject> bench::makeBulkDevice()
{
    return std::make_unique<DeviceSubject<QsdPSBulkDevice<QsdPSDevice>>>();
}

std::unique_ptr<bench::Subject> bench::makePrintDevice()
{
    return std::make_unique<DeviceSubject<QsdPSPrintDevice>>();
}

std::unique_ptr<bench::Subject> bench::makeBulkPrintDevice()
{
    return std::make_unique<DeviceSubject<QsdPSBulkDevice<QsdPSPrintDevice>>>();
}

#ifdef BENCH_HAVE_ZLIB
std::unique_ptr<bench::Subject> bench::makeCompressingDevice()
{
    return std::make_unique<CompressingSubject>();
}
#endif
