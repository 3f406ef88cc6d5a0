// The file that a document goes to.
#pragma once

#include <memory>
#include <ostream>
#include <string>

namespace qsdps {

/// Receives a document under a temporary name in the folder of its final one, which it gets when it is complete, so
/// that a run that fails leaves nothing behind and an existing file as it was. A symbolic link stays one: the file that
/// it stands for is written. "-" is standard output; a device or a pipe is written to directly. The stream
/// has no buffer: give it large blocks.
class OutputFile {
public:
    explicit OutputFile(std::string name);
    /// Removes the temporary file unless the document was committed.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Opens the file; false, and a reason in `error`, when that fails.
    [[nodiscard]] bool open(std::string& error);
    /// The stream to write to, once the file is open.
    [[nodiscard]] std::ostream& stream() { return *_stream; }
    /// Writes what is left and gives the document its name; false, and a reason in `error`, when that fails.
    [[nodiscard]] bool commit(std::string& error);

private:
    class Buffer;

    void discard();

    std::string _name;
    std::string _final;     ///< the name of the complete file; the same but for links
    std::string _temporary; ///< empty: written to directly
    std::unique_ptr<Buffer> _buffer;
    std::unique_ptr<std::ostream> _stream;
};

} // namespace qsdps
