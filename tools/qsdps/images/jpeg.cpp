#include "images/decoders.h"
#include "images/exif.h"

#include <array>
#include <csetjmp>
#include <cstdio>
#include <string>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

namespace qsdps {

namespace {

constexpr int ExifMarker = JPEG_APP0 + 1;
constexpr int MostScans = 100; ///< of a progressive picture; more are there to waste time
constexpr double CentimetersPerInch = 2.54;

void fromGrey(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < width; ++x) {
        out[4 * x] = out[4 * x + 1] = out[4 * x + 2] = row[x];
        out[4 * x + 3] = 255;
    }
}

void fromRgb(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < width; ++x) {
        out[4 * x] = row[3 * x];
        out[4 * x + 1] = row[3 * x + 1];
        out[4 * x + 2] = row[3 * x + 2];
        out[4 * x + 3] = 255;
    }
}

/// Four inks, stored upside down as those who make such files do.
void fromCmyk(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out)
{
    for (std::uint32_t x = 0; x < width; ++x) {
        for (std::uint32_t i = 0; i < 3; ++i) {
            out[4 * x + i] = static_cast<std::uint8_t>(row[4 * x + i] * row[4 * x + 3] / 255);
        }
        out[4 * x + 3] = 255;
    }
}

/// Errors of the library come back to a setjmp of the function that called it, which has nothing to clean up.
class JpegReader : public ImageReader {
public:
    explicit JpegReader(ByteSource& source) : _source(source)
    {
        _info.err = jpeg_std_error(&_errors);
        _errors.error_exit = fail;
        _errors.emit_message = hear;
        _info.client_data = this;
        _bytes.init_source = [](j_decompress_ptr) {};
        _bytes.fill_input_buffer = fill;
        _bytes.skip_input_data = skip;
        _bytes.resync_to_restart = jpeg_resync_to_restart;
        _bytes.term_source = [](j_decompress_ptr) {};
        _progress.progress_monitor = watch;
        try {
            open();
        } catch (...) {
            jpeg_destroy_decompress(&_info);
            throw;
        }
    }
    ~JpegReader() override { jpeg_destroy_decompress(&_info); }

    void decodeRow(std::uint8_t* row) override
    {
        if (_info.output_scanline == 0) {
            guarded([&] { jpeg_start_decompress(&_info); });
            _row.resize(std::size_t{_info.output_width} * static_cast<std::size_t>(_info.output_components));
        }
        guarded([&] {
            JSAMPROW rows[] = {_row.data()};
            jpeg_read_scanlines(&_info, rows, 1);
        });
        _convert(_row.data(), _header.width, row);
        if (_info.output_scanline == _info.output_height) {
            guarded([&] { jpeg_finish_decompress(&_info); });
        }
    }

private:
    static JpegReader& self(j_common_ptr info) { return *static_cast<JpegReader*>(info->client_data); }
    static JpegReader& self(j_decompress_ptr info) { return *static_cast<JpegReader*>(info->client_data); }

    [[noreturn]] static void fail(j_common_ptr info)
    {
        JpegReader& reader = self(info);
        (*info->err->format_message)(info, reader._message.data());
        std::longjmp(reader._target, 1);
    }
    [[noreturn]] static void failWith(j_decompress_ptr info, const char* message)
    {
        JpegReader& reader = self(info);
        std::snprintf(reader._message.data(), reader._message.size(), "%s", message);
        std::longjmp(reader._target, 1);
    }
    /// Most warnings are about how a file is written; these mean that some of its picture is missing.
    static void hear(j_common_ptr info, int level)
    {
        const int code = info->err->msg_code;
        if (level < 0 && (code == JWRN_HIT_MARKER || code == JWRN_HUFF_BAD_CODE || code == JWRN_ARITH_BAD_CODE)) {
            fail(info);
        }
    }
    static boolean fill(j_decompress_ptr info)
    {
        JpegReader& reader = self(info);
        const std::size_t count = reader._source.read(reader._block.data(), reader._block.size());
        if (count == 0) {
            failWith(info, "the file ends early");
        }
        reader._bytes.next_input_byte = reader._block.data();
        reader._bytes.bytes_in_buffer = count;
        return TRUE;
    }
    static void skip(j_decompress_ptr info, long count)
    {
        jpeg_source_mgr& bytes = self(info)._bytes;
        auto left = static_cast<std::size_t>(count > 0 ? count : 0);
        while (left > bytes.bytes_in_buffer) {
            left -= bytes.bytes_in_buffer;
            fill(info);
        }
        bytes.next_input_byte += left;
        bytes.bytes_in_buffer -= left;
    }
    static void watch(j_common_ptr info)
    {
        auto* const decompress = reinterpret_cast<j_decompress_ptr>(info);
        if (decompress->input_scan_number > MostScans) {
            failWith(decompress, "too many scans");
        }
    }

    /// Runs calls of the library, which must not make objects that need their destructors.
    template <class Calls>
    void guarded(Calls calls)
    {
        if (setjmp(_target) != 0) {
            throw ImageError(std::string("broken JPEG file: ") + _message.data());
        }
        calls();
    }

    void open()
    {
        guarded([&] {
            jpeg_create_decompress(&_info);
            _info.src = &_bytes;
            _info.progress = &_progress;
            jpeg_save_markers(&_info, ExifMarker, 0xFFFF);
            jpeg_read_header(&_info, TRUE);
        });
        _header.width = _info.image_width;
        _header.height = _info.image_height;
        checkSize();
        if (jpeg_has_multiple_scans(&_info) != FALSE) {
            checkSizeInMemory();
        }
        chooseColors();
        readDensity();
        for (jpeg_saved_marker_ptr marker = _info.marker_list; marker != nullptr; marker = marker->next) {
            if (_header.orientation == 1) {
                _header.orientation = exifOrientation(marker->data, marker->data_length);
            }
        }
    }

    void chooseColors()
    {
        switch (_info.num_components) {
        case 1:
            _info.out_color_space = JCS_GRAYSCALE;
            _header.kind = PixelKind::Grey;
            _convert = fromGrey;
            break;
        case 3:
            _info.out_color_space = JCS_RGB;
            _convert = fromRgb;
            break;
        case 4:
            _info.out_color_space = JCS_CMYK;
            _convert = fromCmyk;
            break;
        default:
            throw ImageError("a JPEG file of a kind that is not known");
        }
    }

    void readDensity()
    {
        constexpr int PerInch = 1;
        constexpr int PerCentimeter = 2;
        const double factor = _info.density_unit == PerInch         ? 1
                              : _info.density_unit == PerCentimeter ? CentimetersPerInch
                                                                    : 0;
        if (_info.saw_JFIF_marker != FALSE) {
            _header.density = {_info.X_density * factor, _info.Y_density * factor};
        }
    }

    ByteSource& _source;
    jpeg_decompress_struct _info{};
    jpeg_error_mgr _errors{};
    jpeg_source_mgr _bytes{};
    jpeg_progress_mgr _progress{};
    std::jmp_buf _target{};
    std::array<char, JMSG_LENGTH_MAX> _message{};
    std::array<std::uint8_t, 16384> _block{};
    void (*_convert)(const std::uint8_t* row, std::uint32_t width, std::uint8_t* out) = fromRgb;
    std::vector<std::uint8_t> _row;
};

} // namespace

std::unique_ptr<ImageReader> openJpeg(ByteSource& source)
{
    return std::make_unique<JpegReader>(source);
}

} // namespace qsdps
