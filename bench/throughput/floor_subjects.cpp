// Programs that write the bytes of the bulk device's document and do nothing else.
#include "bench/throughput/formatting.h"
#include "bench/throughput/port_scene.h"
#include "bench/throughput/subject.h"
#include "ps/QsdPSBulkDevice.h"
#include "toolkit/memory/QsdMemoryDisplay.h"

#include <algorithm>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace {

using namespace bench;

std::string documentText(Workload workload, std::uint64_t calls)
{
    QsdMemoryDisplay display;
    PortScene scene(display);
    scene.prepare(workload);
    QsdPSBulkDevice<QsdPSDevice> device(&display, QsdPSRGB);
    std::ostringstream text;
    device.setTarget(&text);
    device.initDevice("", nullptr);
    scene.draw(device, workload, calls);
    device.end();
    return std::move(text).str();
}

/// The samples of an image that are seen, whole groups of four.
std::vector<unsigned char> samples(Workload workload)
{
    const std::uint32_t side = imageSide(workload);
    std::vector<unsigned char> bytes;
    bytes.reserve(std::size_t{3} * side * side);
    for (std::uint32_t y = 0; y < side; ++y) {
        for (std::uint32_t x = 0; x < side; ++x) {
            if (workload == Workload::Image || isOpaque(x, y)) {
                const Color color = pixelAt(x, y);
                bytes.insert(bytes.end(), {color.red, color.green, color.blue});
            }
        }
    }
    bytes.resize(bytes.size() / 4 * 4);
    return bytes;
}

/// Writes a head, the text of each period of calls, and a tail. Of images, only the samples are written.
class FormattingSubject : public Subject {
public:
    [[nodiscard]] bool draws(Workload workload) const override { return workload != Workload::HugeImage; }
    void prepare(Workload workload, std::uint64_t) override
    {
        if (isImage(workload)) {
            _samples = samples(workload);
        } else {
            takeApart(documentText(workload, Period), documentText(workload, 2 * Period));
        }
    }
    void write(Workload workload, std::uint64_t calls, const char* fileName) override
    {
        const OutputFile file(fileName);
        Block block(file);
        block.put(_head);
        if (isImage(workload)) {
            block.putBase85(_samples);
        } else {
            for (std::uint64_t done = Period; done < calls; done += Period) {
                _period.put(block);
            }
            block.put(_tail);
        }
        block.flush();
    }

private:
    /// What `two` periods have more than `one`, where both stop being the same, is the text of a period.
    void takeApart(const std::string& one, const std::string& two)
    {
        const auto different = std::mismatch(one.begin(), one.end(), two.begin(), two.end());
        const auto head = static_cast<std::size_t>(different.first - one.begin());
        const std::size_t length = two.size() - one.size();
        if (one.compare(head, std::string::npos, two, head + length, std::string::npos) != 0) {
            throw std::runtime_error("the periods of a document differ");
        }
        _head = one.substr(0, head);
        _period = Format(two.substr(head, length));
        _tail = one.substr(head);
    }

    std::string _head;
    Format _period;
    std::string _tail;
    std::vector<unsigned char> _samples;
};

class TextSubject : public Subject {
public:
    [[nodiscard]] bool draws(Workload workload) const override { return workload != Workload::HugeImage; }
    void prepare(Workload workload, std::uint64_t calls) override { _text = documentText(workload, calls); }

protected:
    [[nodiscard]] const std::string& text() const { return _text; }

private:
    std::string _text;
};

class CopyingSubject : public TextSubject {
public:
    void prepare(Workload workload, std::uint64_t calls) override
    {
        TextSubject::prepare(workload, calls);
        _copy.assign(text().size(), '\1'); // the pages are there before the time is taken
    }
    void write(Workload, std::uint64_t calls, const char*) override
    {
        if (calls > 0) {
            std::memcpy(_copy.data(), text().data(), _copy.size());
        }
    }

private:
    std::string _copy;
};

class LineWritingSubject : public TextSubject {
public:
    void write(Workload, std::uint64_t calls, const char* fileName) override
    {
        const OutputFile file(fileName);
        const char* const end = text().data() + text().size();
        for (const char* line = text().data(); calls > 0 && line != end;) {
            const auto* const lineEnd =
                static_cast<const char*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
            const char* const next = lineEnd == nullptr ? end : lineEnd + 1;
            file.write(line, static_cast<std::size_t>(next - line));
            line = next;
        }
    }
};

} // namespace

std::unique_ptr<bench::Subject> bench::makeFormatting()
{
    return std::make_unique<FormattingSubject>();
}

std::unique_ptr<bench::Subject> bench::makeCopying()
{
    return std::make_unique<CopyingSubject>();
}

std::unique_ptr<bench::Subject> bench::makeLineWriting()
{
    return std::make_unique<LineWritingSubject>();
}
