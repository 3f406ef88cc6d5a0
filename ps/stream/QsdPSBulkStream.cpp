#include "ps/QsdPSBulkStream.h"

#include <array>
#include <cstring>
#include <fstream>
#include <streambuf>

class QsdPSBulkStream::Buffer : public std::streambuf {
public:
    explicit Buffer(std::streambuf* target) : _target(target) { setp(_block.data(), _block.data() + _block.size()); }

    bool handOn()
    {
        const std::streamsize count = pptr() - pbase();
        setp(_block.data(), _block.data() + _block.size());
        return count == 0 || _target->sputn(_block.data(), count) == count;
    }
    bool finish() { return handOn() && _target->pubsync() == 0; }

protected:
    int_type overflow(int_type character) override
    {
        if (!handOn()) {
            return traits_type::eof();
        }
        if (!traits_type::eq_int_type(character, traits_type::eof())) {
            sputc(traits_type::to_char_type(character));
        }
        return traits_type::not_eof(character);
    }
    /// Most texts are lines that fit as they are.
    std::streamsize xsputn(const char* text, std::streamsize count) override
    {
        if (count > epptr() - pptr()) {
            return std::streambuf::xsputn(text, count);
        }
        std::memcpy(pptr(), text, static_cast<std::size_t>(count));
        pbump(static_cast<int>(count));
        return count;
    }
    int sync() override { return 0; }

private:
    std::streambuf* _target;
    std::array<char, std::size_t{64} * 1024> _block;
};

// The file has no buffer of its own, so every byte is copied once and an error shows where it happens.
QsdPSBulkStream::QsdPSBulkStream(const char* fileName) : std::ostream(nullptr)
{
    auto file = std::make_unique<std::ofstream>();
    file->rdbuf()->pubsetbuf(nullptr, 0);
    file->open(fileName == nullptr ? "" : fileName, std::ios_base::out | std::ios_base::trunc);
    _buffer = std::make_unique<Buffer>(file->rdbuf());
    init(_buffer.get());
    if (file->fail()) {
        setstate(std::ios_base::failbit);
    }
    _file = std::move(file);
}

QsdPSBulkStream::QsdPSBulkStream(std::ostream& target)
    : std::ostream(nullptr), _buffer(std::make_unique<Buffer>(target.rdbuf()))
{
    init(_buffer.get());
    if (target.fail()) {
        setstate(std::ios_base::failbit);
    }
}

QsdPSBulkStream::~QsdPSBulkStream()
{
    try {
        finish();
    } catch (...) {
        // Nobody is left to be told; whoever wants to know calls finish.
        return;
    }
}

void QsdPSBulkStream::finish()
{
    if (!good()) {
        return;
    }
    bool finished = false;
    try {
        finished = _buffer->finish();
    } catch (...) {
        finished = false;
    }
    if (!finished) {
        setstate(std::ios_base::badbit);
    }
}
