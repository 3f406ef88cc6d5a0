#include "images/pixels.h"

namespace qsdps {

std::optional<Pixels> decodeImage(std::string_view file)
{
    if (file.starts_with("\x89PNG")) {
        return decodePng(file);
    }
    if (file.starts_with("\xFF\xD8")) {
        return decodeJpeg(file);
    }
    return std::nullopt;
}

} // namespace qsdps
