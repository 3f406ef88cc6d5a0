#include "images/decoders.h"

#include <algorithm>
#include <png.h>
#include <string>
#include <vector>

namespace qsdps {

namespace {

constexpr double InchesPerMeter = 1 / 0.0254;

/// Names of the chunks that say nothing about the pixels, each with its end mark.
constexpr png_byte Unused[] = "bKGD\0eXIf\0hIST\0iCCP\0iTXt\0oFFs\0pCAL\0sCAL\0sPLT\0sTER\0tEXt\0tIME\0zTXt";
constexpr int ChunkNameSize = 5;

/// Errors of the library come back to a setjmp of the function that called it, which has nothing to clean up.
class PngReader : public ImageReader {
public:
    explicit PngReader(ByteSource& source) : _source(source)
    {
        _png = png_create_read_struct(PNG_LIBPNG_VER_STRING, this, fail, keepQuiet);
        _info = _png != nullptr ? png_create_info_struct(_png) : nullptr;
        if (_info == nullptr) {
            png_destroy_read_struct(&_png, nullptr, nullptr);
            throw ImageError("not enough memory");
        }
        try {
            open();
        } catch (...) {
            png_destroy_read_struct(&_png, &_info, nullptr);
            throw;
        }
    }
    ~PngReader() override { png_destroy_read_struct(&_png, &_info, nullptr); }

    void decodeRow(std::uint8_t* row) override
    {
        if (_passes > 1) {
            if (_whole.empty()) {
                readWhole();
            }
            std::copy_n(&_whole[_rowBytes * _row], _rowBytes, row);
        } else {
            guarded([&] { png_read_row(_png, row, nullptr); });
        }
        if (_inverted) {
            for (std::size_t i = 0; i < _rowBytes; ++i) {
                row[i] = static_cast<std::uint8_t>(~row[i]);
            }
        }
        if (++_row == _header.height && _passes == 1) {
            guarded([&] { png_read_end(_png, nullptr); });
        }
    }

private:
    [[noreturn]] static void fail(png_structp png, png_const_charp message)
    {
        static_cast<PngReader*>(png_get_error_ptr(png))->_message.assign(message);
        png_longjmp(png, 1);
    }
    static void keepQuiet(png_structp, png_const_charp) {}
    static void readBytes(png_structp png, png_bytep out, std::size_t count)
    {
        if (static_cast<PngReader*>(png_get_io_ptr(png))->_source.read(out, count) != count) {
            png_error(png, "the file ends early");
        }
    }

    /// Runs calls of the library, which must not make objects that need their destructors.
    template <class Calls>
    void guarded(Calls calls)
    {
        if (setjmp(png_jmpbuf(_png)) != 0) {
            throw ImageError("broken PNG file: " + _message);
        }
        calls();
    }

    void open()
    {
        guarded([&] {
            png_set_read_fn(_png, this, readBytes);
            png_set_user_limits(_png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
            // What is not used is skipped without being held: a file of a few bytes may claim gigabytes of text.
            png_set_keep_unknown_chunks(_png, PNG_HANDLE_CHUNK_NEVER, Unused, sizeof Unused / ChunkNameSize);
            png_read_info(_png, _info);
        });
        _header.width = png_get_image_width(_png, _info);
        _header.height = png_get_image_height(_png, _info);
        checkSize();
        png_uint_32 across = 0;
        png_uint_32 down = 0;
        int unit = 0;
        if (png_get_pHYs(_png, _info, &across, &down, &unit) != 0 && unit == PNG_RESOLUTION_METER) {
            _header.density = {across / InchesPerMeter, down / InchesPerMeter};
        }
        if (!openAsBits()) {
            openAsPixels();
        }
        guarded([&] {
            _passes = png_set_interlace_handling(_png);
            png_read_update_info(_png, _info);
        });
        if (_passes > 1) {
            checkSizeInMemory();
        }
        _rowBytes = png_get_rowbytes(_png, _info);
        if (_rowBytes != rowBytesOf(_header)) {
            throw ImageError("a PNG file of a kind that is not known");
        }
    }

    /// Two opaque colours stay bits, the darker of them the set ones.
    bool openAsBits()
    {
        if (png_get_bit_depth(_png, _info) != 1 || png_get_valid(_png, _info, PNG_INFO_tRNS) != 0) {
            return false;
        }
        Rgb zero{0, 0, 0};
        Rgb one{255, 255, 255};
        png_colorp palette = nullptr;
        int count = 0;
        if (png_get_PLTE(_png, _info, &palette, &count) != 0 && count > 0) {
            zero = {palette[0].red, palette[0].green, palette[0].blue};
            one = count > 1 ? Rgb{palette[1].red, palette[1].green, palette[1].blue} : zero;
        }
        const auto light = [](Rgb c) { return 11 * c.r + 16 * c.g + 5 * c.b; };
        _inverted = light(one) > light(zero);
        _header.kind = PixelKind::Bits;
        _header.set = _inverted ? zero : one;
        _header.clear = _inverted ? one : zero;
        return true;
    }

    void openAsPixels()
    {
        const unsigned type = png_get_color_type(_png, _info);
        _header.hasAlpha = (type & PNG_COLOR_MASK_ALPHA) != 0 || png_get_valid(_png, _info, PNG_INFO_tRNS) != 0;
        _header.kind = (type & PNG_COLOR_MASK_COLOR) == 0 || paletteIsGrey() ? PixelKind::Grey : PixelKind::Color;
        const bool addsAlpha = !_header.hasAlpha;
        double gamma = 0;
        const bool hasGamma = png_get_gAMA(_png, _info, &gamma) != 0;
        guarded([&] {
            if (hasGamma) {
                png_set_gamma(_png, PNG_DEFAULT_sRGB, gamma);
            }
            png_set_expand(_png);
            png_set_scale_16(_png);
            png_set_gray_to_rgb(_png);
            if (addsAlpha) {
                png_set_add_alpha(_png, 0xFF, PNG_FILLER_AFTER);
            }
        });
    }

    [[nodiscard]] bool paletteIsGrey() const
    {
        png_colorp palette = nullptr;
        int count = 0;
        if (png_get_color_type(_png, _info) != PNG_COLOR_TYPE_PALETTE ||
            png_get_PLTE(_png, _info, &palette, &count) == 0) {
            return false;
        }
        return std::all_of(palette, palette + count,
                           [](const png_color& c) { return c.red == c.green && c.green == c.blue; });
    }

    /// Interlaced pictures are complete with the last pass alone.
    void readWhole()
    {
        _whole.resize(_rowBytes * _header.height);
        guarded([&] {
            for (int pass = 0; pass < _passes; ++pass) {
                for (std::size_t y = 0; y < _header.height; ++y) {
                    png_read_row(_png, &_whole[_rowBytes * y], nullptr);
                }
            }
            png_read_end(_png, nullptr);
        });
    }

    ByteSource& _source;
    png_structp _png = nullptr;
    png_infop _info = nullptr;
    std::string _message;
    int _passes = 1;
    bool _inverted = false;
    std::size_t _rowBytes = 0;
    std::uint32_t _row = 0;
    std::vector<std::uint8_t> _whole;
};

} // namespace

std::unique_ptr<ImageReader> openPng(ByteSource& source)
{
    return std::make_unique<PngReader>(source);
}

} // namespace qsdps
