#include "ps/stream/QsdPSSpool_p.h"

#include "ps/stream/QsdPSTemporaryFile_p.h"

#include <algorithm>

namespace {

/// Whether some character is above 127. Looking at all is faster than stopping at the first.
bool hasHigh(const char* begin, const char* end)
{
    unsigned bits = 0;
    for (const char* at = begin; at != end; ++at) {
        bits |= static_cast<unsigned char>(*at);
    }
    return bits > 127;
}

} // namespace

QsdPSSpool::QsdPSSpool() : std::ostream(nullptr)
{
    rdbuf(&_buffer);
}

void QsdPSSpool::copyTo(std::ostream& target, std::uint64_t first, std::uint64_t last)
{
    if (fail() || !_buffer.copyTo(target, first, last)) {
        target.setstate(std::ios_base::badbit);
    }
}

void QsdPSSpool::reset()
{
    _buffer.reset();
    clear();
}

std::uint64_t QsdPSSpool::Buffer::size() const
{
    return _stored + static_cast<std::uint64_t>(pptr() - pbase());
}

bool QsdPSSpool::Buffer::isSevenBits() const
{
    return _firstHigh == NoneHigh && !hasHigh(pbase(), pptr());
}

// The file keeps what lies behind its new end until that is written over.
void QsdPSSpool::Buffer::truncate(std::uint64_t size)
{
    const std::uint64_t held = size > _stored ? size - _stored : 0;
    _stored = std::min(_stored, size);
    if (_firstHigh >= _stored) {
        _firstHigh = NoneHigh;
    }
    setp(_held.data(), _held.data() + _held.size());
    pbump(static_cast<int>(held));
}

void QsdPSSpool::Buffer::reset()
{
    _file.reset();
    _stored = 0;
    _firstHigh = NoneHigh;
    setp(_held.data(), _held.data() + _held.size());
}

QsdPSSpool::Buffer::int_type QsdPSSpool::Buffer::overflow(int_type character)
{
    if (_held.empty()) {
        _held.resize(Size);
        setp(_held.data(), _held.data() + Size);
    } else if (!store()) {
        return traits_type::eof();
    }
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        *pptr() = traits_type::to_char_type(character);
        pbump(1);
    }
    return traits_type::not_eof(character);
}

// The file is not buffered a second time, so a full disk shows here.
bool QsdPSSpool::Buffer::store()
{
    if (_file == nullptr) {
        _file.reset(QsdPSOpenTemporaryFile());
        if (_file == nullptr || std::setvbuf(_file.get(), nullptr, _IONBF, 0) != 0) {
            return false;
        }
    }
    const auto count = static_cast<std::size_t>(pptr() - pbase());
    if (std::fseek(_file.get(), static_cast<long>(_stored), SEEK_SET) != 0 ||
        std::fwrite(_held.data(), 1, count, _file.get()) != count) {
        return false;
    }
    if (_firstHigh == NoneHigh && hasHigh(pbase(), pptr())) {
        _firstHigh = _stored;
    }
    _stored += count;
    setp(_held.data(), _held.data() + Size);
    return true;
}

bool QsdPSSpool::Buffer::copyTo(std::ostream& target, std::uint64_t first, std::uint64_t last)
{
    if (first < _stored) {
        std::vector<char> block(Size);
        if (std::fseek(_file.get(), static_cast<long>(first), SEEK_SET) != 0) {
            return false;
        }
        while (first < std::min(last, _stored) && target.good()) {
            const auto wanted =
                static_cast<std::size_t>(std::min<std::uint64_t>(Size, std::min(last, _stored) - first));
            if (std::fread(block.data(), 1, wanted, _file.get()) != wanted) {
                return false;
            }
            target.write(block.data(), static_cast<std::streamsize>(wanted));
            first += wanted;
        }
    }
    if (first < last && first >= _stored) {
        target.write(pbase() + (first - _stored), static_cast<std::streamsize>(last - first));
    }
    return true;
}
