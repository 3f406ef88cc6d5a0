// The portable bitmaps, greymaps, pixmaps and arbitrary maps, plain and raw. Of a file of several pictures the first is
// read.
#include "images/decoders.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace qsdps {

namespace {

constexpr std::uint32_t MostValue = 65535; ///< that a sample may have
constexpr int End = -1;

bool isBlank(int c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

/// The bytes of a file, one by one or many at once.
class Bytes {
public:
    explicit Bytes(ByteSource& source) : _source(source) {}

    [[nodiscard]] int next()
    {
        if (_at == _end) {
            _at = 0;
            _end = _source.read(_block.data(), _block.size());
        }
        return _at == _end ? End : _block[_at++];
    }
    void read(std::uint8_t* out, std::size_t count)
    {
        const std::size_t kept = std::min(count, _end - _at);
        std::copy_n(&_block[_at], kept, out);
        _at += kept;
        if (kept != count && _source.read(out + kept, count - kept) != count - kept) {
            throw ImageError("broken PNM file: the file ends early");
        }
    }
    /// The next byte that belongs to no blanks or comments.
    [[nodiscard]] int nextMark()
    {
        int c = next();
        while (isBlank(c) || c == '#') {
            if (c == '#') {
                takeComment();
            }
            c = next();
        }
        return c;
    }
    /// The first comment, or as much of it as a title may have.
    [[nodiscard]] const std::string& firstComment() const { return _firstComment; }
    void skipLine()
    {
        for (int c = next(); c != '\n' && c != End; c = next()) {
        }
    }
    /// The next number, and the byte after it taken as well.
    [[nodiscard]] std::uint32_t number()
    {
        int c = nextMark();
        if (c < '0' || c > '9') {
            throw ImageError(c == End ? "broken PNM file: the file ends early" : "broken PNM file: no number");
        }
        std::uint32_t value = 0;
        for (; c >= '0' && c <= '9'; c = next()) {
            constexpr std::uint32_t Most = 100'000'000; // beyond every limit
            value = std::min(Most, value * 10 + static_cast<std::uint32_t>(c - '0'));
        }
        if (c == '#') {
            takeComment();
        }
        return value;
    }

private:
    void takeComment()
    {
        constexpr std::size_t LongestTitle = 1000;
        std::string comment;
        for (int c = next(); c != '\n' && c != End; c = next()) {
            if (comment.size() < LongestTitle) {
                comment.push_back(static_cast<char>(c));
            }
        }
        if (_firstComment.empty()) {
            _firstComment = std::move(comment);
        }
    }

    ByteSource& _source;
    std::array<std::uint8_t, 16384> _block;
    std::size_t _at = 0;
    std::size_t _end = 0;
    std::string _firstComment;
};

class PnmReader : public ImageReader {
public:
    explicit PnmReader(ByteSource& source) : _bytes(source)
    {
        if (_bytes.next() != 'P') {
            throw ImageError("not a PNM file");
        }
        const int type = _bytes.next() - '0';
        switch (type) {
        case 1:
        case 4:
            _header.kind = PixelKind::Bits;
            readSize();
            break;
        case 2:
        case 5:
            _samples = 1;
            readSize();
            readMostValue();
            break;
        case 3:
        case 6:
            _samples = 3;
            readSize();
            readMostValue();
            break;
        default:
            readPamHeader();
            break;
        }
        takeTitle();
        _isPlain = type <= 3;
        if (_header.kind != PixelKind::Bits) {
            _header.kind = _samples <= 2 ? PixelKind::Grey : PixelKind::Color;
            _header.hasAlpha = _samples % 2 == 0;
            makeTable();
        }
    }

    void decodeRow(std::uint8_t* row) override
    {
        if (_header.kind == PixelKind::Bits) {
            _isPlain ? readPlainBits(row) : _bytes.read(row, rowBytesOf(_header));
            return;
        }
        if (_row.empty()) {
            _row.resize(std::size_t{_samples} * _header.width);
        }
        _isPlain ? readPlainSamples() : readRawSamples();
        for (std::uint32_t x = 0; x < _header.width; ++x) {
            const std::uint8_t* const pixel = &_row[std::size_t{_samples} * x];
            const bool grey = _samples <= 2;
            *row++ = pixel[0];
            *row++ = pixel[grey ? 0 : 1];
            *row++ = pixel[grey ? 0 : 2];
            *row++ = _header.hasAlpha ? pixel[_samples - 1] : std::uint8_t{255};
        }
    }

private:
    void readSize()
    {
        _header.width = _bytes.number();
        _header.height = _bytes.number();
        checkSize();
    }
    void takeTitle()
    {
        constexpr std::string_view Mark = " Title: ";
        const std::string& comment = _bytes.firstComment();
        if (comment.starts_with(Mark)) {
            _header.title = comment.substr(Mark.size());
        }
    }
    void readMostValue() { setMostValue(_bytes.number()); }
    void setMostValue(std::uint32_t value)
    {
        if (value == 0 || value > MostValue) {
            throw ImageError("broken PNM file: samples up to " + std::to_string(value));
        }
        _mostValue = value;
    }

    /// Lines of a word and a value, up to the word ENDHDR.
    void readPamHeader()
    {
        std::uint32_t mostValue = 0;
        for (;;) {
            std::string word;
            for (int c = _bytes.nextMark(); c != End && !isBlank(c); c = _bytes.next()) {
                word.push_back(static_cast<char>(c));
                if (word.size() > 16) {
                    break;
                }
            }
            if (word == "ENDHDR") {
                break;
            }
            if (word == "WIDTH") {
                _header.width = _bytes.number();
            } else if (word == "HEIGHT") {
                _header.height = _bytes.number();
            } else if (word == "DEPTH") {
                _samples = _bytes.number();
            } else if (word == "MAXVAL") {
                mostValue = _bytes.number();
            } else if (word == "TUPLTYPE") {
                _bytes.skipLine();
            } else {
                throw ImageError("broken PNM file: the header has no end");
            }
        }
        checkSize();
        setMostValue(mostValue);
        if (_samples < 1 || _samples > 4) {
            throw ImageError("broken PNM file: " + std::to_string(_samples) + " samples a pixel");
        }
    }

    void makeTable()
    {
        for (std::uint32_t value = 0; value < _table.size(); ++value) {
            _table[value] = reduced(value);
        }
    }
    /// A sample as one of 8 bits; too large ones count as the largest.
    [[nodiscard]] std::uint8_t reduced(std::uint32_t value) const
    {
        return static_cast<std::uint8_t>((std::min(value, _mostValue) * 255 + _mostValue / 2) / _mostValue);
    }

    void readPlainBits(std::uint8_t* row)
    {
        std::fill_n(row, rowBytesOf(_header), std::uint8_t{0});
        for (std::uint32_t x = 0; x < _header.width; ++x) {
            const int c = _bytes.nextMark();
            if (c != '0' && c != '1') {
                throw ImageError(c == End ? "broken PNM file: the file ends early" : "broken PNM file: no bit");
            }
            row[x / 8] = static_cast<std::uint8_t>(row[x / 8] | (c == '1' ? 0x80U >> (x % 8) : 0U));
        }
    }
    void readPlainSamples()
    {
        for (std::uint8_t& sample : _row) {
            sample = reduced(_bytes.number());
        }
    }
    void readRawSamples()
    {
        if (_mostValue < 256) {
            _bytes.read(_row.data(), _row.size());
            for (std::uint8_t& sample : _row) {
                sample = _table[sample];
            }
            return;
        }
        _wide.resize(2 * _row.size());
        _bytes.read(_wide.data(), _wide.size());
        for (std::size_t i = 0; i < _row.size(); ++i) {
            _row[i] = reduced(std::uint32_t{_wide[2 * i]} << 8 | _wide[2 * i + 1]);
        }
    }

    Bytes _bytes;
    std::uint32_t _samples = 1; ///< of a pixel
    std::uint32_t _mostValue = 1;
    bool _isPlain = false;
    std::array<std::uint8_t, 256> _table{}; ///< what samples of one byte come to
    std::vector<std::uint8_t> _row;
    std::vector<std::uint8_t> _wide; ///< samples of two bytes
};

} // namespace

std::unique_ptr<ImageReader> openPnm(ByteSource& source)
{
    return std::make_unique<PnmReader>(source);
}

} // namespace qsdps
