// A document into another program, here gzip: a derived device opens a stream of its own.
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <ostream>
#include <ps/QsdPSPrintDevice.h>
#include <streambuf>
#include <string>
#include <toolkit/memory/QsdMemoryDisplay.h>

namespace {

/// What is written goes through a command's standard input.
class PipeBuffer : public std::streambuf {
public:
    explicit PipeBuffer(const std::string& command) : _pipe(popen(command.c_str(), "w")) {}
    ~PipeBuffer() override { close(); }

    [[nodiscard]] bool isOpen() const { return _pipe != nullptr; }
    /// Waits for the command; false when it failed.
    bool close()
    {
        FILE* const pipe = _pipe;
        _pipe = nullptr;
        return pipe == nullptr || pclose(pipe) == 0;
    }

protected:
    int_type overflow(int_type c) override
    {
        return traits_type::eq_int_type(c, traits_type::eof()) || std::putc(c, _pipe) != EOF ? c : traits_type::eof();
    }
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        return static_cast<std::streamsize>(std::fwrite(text, 1, static_cast<std::size_t>(count), _pipe));
    }

private:
    FILE* _pipe;
};

class GzipDevice : public QsdPSPrintDevice {
public:
    using QsdPSPrintDevice::QsdPSPrintDevice;

    std::ostream* openStream(const char* fileName) override
    {
        setenv("DOCUMENT", fileName, 1); // so that the shell takes no letter of the name for its own
        _buffer = std::make_unique<PipeBuffer>("gzip -n >\"$DOCUMENT\"");
        return _buffer->isOpen() ? new std::ostream(_buffer.get()) : nullptr;
    }
    void closeStream(std::ostream* stream) override
    {
        delete stream;
        _complete = _buffer->close();
    }
    [[nodiscard]] bool complete() const { return _complete && !writeFailed(); }

private:
    std::unique_ptr<PipeBuffer> _buffer;
    bool _complete = false;
};

} // namespace

int main(int, char** argv)
{
    QsdMemoryDisplay display;
    GzipDevice device(&display, QsdPSRGB);
    if (!device.initDevice(argv[1])) {
        return 1;
    }
    const auto palette = QsdMake<QsdPalette>(&display);
    device.fillArc(palette.get(), {100, 100, 200, 200}, 30, 300);
    device.end();
    return device.complete() ? 0 : 1;
}
