// The readers of each kind of file. Within this folder a picture that cannot be read is an exception: the libraries
// jump out of their decoders, and so does this. What others call gives errors.
#pragma once

#include "images/reader.h"

#include <memory>
#include <stdexcept>

namespace qsdps {

/// A picture that cannot be read; what() tells why.
class ImageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Read the header of the picture that comes out of `source`, which must outlive the reader. Throw ImageError.
[[nodiscard]] std::unique_ptr<ImageReader> openPng(ByteSource& source);
[[nodiscard]] std::unique_ptr<ImageReader> openJpeg(ByteSource& source);
[[nodiscard]] std::unique_ptr<ImageReader> openPnm(ByteSource& source);

} // namespace qsdps
