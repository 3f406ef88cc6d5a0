// Text that waits for what stands before it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <ostream>
#include <streambuf>
#include <vector>

/// A stream whose text can be copied into another later. What exceeds a small buffer goes to a temporary file that the
/// system removes by itself, so memory does not grow with the text. Flushing does nothing. When the temporary file
/// cannot be made or takes no more, the stream fails and stays so.
class QsdPSSpool : public std::ostream {
public:
    QsdPSSpool();

    /// Characters written so far.
    [[nodiscard]] std::uint64_t size() const { return _buffer.size(); }
    /// Copies the characters from `first` up to `last` (not with it) to `target`; when they cannot be read back,
    /// `target` fails.
    void copyTo(std::ostream& target, std::uint64_t first, std::uint64_t last);
    /// Forgets everything from the character `size` on.
    void truncate(std::uint64_t size) { _buffer.truncate(size); }
    /// Whether all characters are below 128.
    [[nodiscard]] bool isSevenBits() const { return _buffer.isSevenBits(); }
    /// Forgets everything, failures too.
    void reset();

private:
    class Buffer : public std::streambuf {
    public:
        [[nodiscard]] std::uint64_t size() const;
        bool copyTo(std::ostream& target, std::uint64_t first, std::uint64_t last);
        void truncate(std::uint64_t size);
        [[nodiscard]] bool isSevenBits() const;
        void reset();

    protected:
        int_type overflow(int_type character) override;
        int sync() override { return 0; }

    private:
        struct Closer {
            void operator()(std::FILE* file) const { std::fclose(file); }
        };

        bool store();

        static constexpr std::uint64_t NoneHigh = std::numeric_limits<std::uint64_t>::max();
        static constexpr std::size_t Size = std::size_t{64} * 1024;
        std::vector<char> _held;
        std::unique_ptr<std::FILE, Closer> _file;
        std::uint64_t _stored = 0;           ///< characters in the file
        std::uint64_t _firstHigh = NoneHigh; ///< of them, the place of a block that has characters above 127
    };

    Buffer _buffer;
};

/// Calls write(spool); when that throws, the spool forgets what it wrote.
template <class Write>
void QsdPSWriteWhole(QsdPSSpool& spool, Write write)
{
    const std::uint64_t size = spool.size();
    try {
        write(spool);
    } catch (...) {
        spool.truncate(size);
        throw;
    }
}
