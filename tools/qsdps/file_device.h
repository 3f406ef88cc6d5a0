// A PostScript device that writes to an open output.
#pragma once

#include "output_file.h"
#include "ps/QsdPSColorModel.h"
#include "toolkit/port/QsdDisplay.h"

namespace qsdps {

/// A device of the kind `Device` whose document goes to an output that somebody else opens and commits.
template <class Device>
class FileDevice : public Device {
public:
    FileDevice(QsdDisplay* display, QsdPSColorModel model, OutputFile& output) : Device(display, model), _output(output)
    {
    }

    std::ostream* openStream(const char*) override { return &_output.stream(); }
    void closeStream(std::ostream*) override {}

private:
    OutputFile& _output;
};

} // namespace qsdps
