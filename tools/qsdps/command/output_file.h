// The file that a document goes to.
#pragma once

#include "values/result.h"

#include <memory>
#include <ostream>
#include <string>
#include <sys/types.h>

namespace qsdps {

/// Receives a document under a temporary name in the folder of its final one, which it gets when it is complete, so
/// that a run that fails, or that a signal ends, leaves nothing behind and an existing file as it was. A symbolic link
/// stays one: the file that it stands for is written. "-" is standard output; a device or a pipe is written to
/// directly. The stream has no buffer: give it large blocks.
class OutputFile {
public:
    explicit OutputFile(std::string name);
    /// Removes the temporary file unless the document was committed.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Opens the file. An error when that fails, or the user may not write a file that is there.
    [[nodiscard]] Status open();
    /// The stream to write to, once the file is open.
    [[nodiscard]] std::ostream& stream() { return *_stream; }
    /// Why some of what the stream was given was not written, as an error of the system; 0 when all was.
    [[nodiscard]] int writeError() const;
    /// Writes what is left and gives the document its name.
    [[nodiscard]] Status commit();

private:
    class Buffer;

    /// Opens a file that has a name; its descriptor.
    [[nodiscard]] Result<int> openNamed();
    /// Opens the temporary file with these permissions; -1, and a reason in errno, when that fails.
    [[nodiscard]] int openTemporary(mode_t mode);
    void discard();

    std::string _name;
    std::string _final;     ///< the name of the complete file; the same but for links
    std::string _temporary; ///< empty: written to directly
    std::unique_ptr<Buffer> _buffer;
    std::unique_ptr<std::ostream> _stream;
};

} // namespace qsdps
