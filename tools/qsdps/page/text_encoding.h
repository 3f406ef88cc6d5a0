// Texts of drawings in the encoding of the document.
#pragma once

#include "toolkit/base/QsEncoding.h"
#include "values/iconv.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qsdps {

/// Converts UTF-8 to the encoding of a document.
class TextEncoder {
public:
    /// For Latin-1, Japanese EUC or Shift-JIS documents.
    explicit TextEncoder(QsEncoding encoding);
    ~TextEncoder();
    TextEncoder(const TextEncoder&) = delete;
    TextEncoder& operator=(const TextEncoder&) = delete;

    /// The bytes of each character in turn; one that the encoding lacks becomes "?" and is counted in `missing`.
    [[nodiscard]] std::vector<std::string> encode(std::string_view utf8, unsigned long& missing) const;

private:
    std::unique_ptr<Iconv> _converter; ///< null for Latin-1
};

} // namespace qsdps
