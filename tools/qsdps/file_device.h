// A PostScript device that writes to an open output.
#pragma once

#include "output_file.h"
#include "ps/QsdPSDevice.h"

namespace qsdps {

/// Its document goes to an output that somebody else opens and commits.
class FileDevice : public QsdPSDevice {
public:
    FileDevice(QsdDisplay* display, QsdPSColorModel model, OutputFile& output)
        : QsdPSDevice(display, model), _output(output)
    {
    }

    std::ostream* openStream(const char*) override { return &_output.stream(); }
    void closeStream(std::ostream*) override {}
    /// Whether the open document can take no more.
    [[nodiscard]] bool outputFailed() const { return stream() != nullptr && stream()->fail(); }

private:
    OutputFile& _output;
};

} // namespace qsdps
