// How texts get into a document.
#pragma once

namespace qsdps {

/// What the texts of a drawing become.
enum class TextForm : unsigned char {
    Auto,    ///< strings where a printer's fonts show them as they should look, else outlines
    Strings, ///< strings, which can be searched and copied, in whatever font of the printer comes closest
    Outlines ///< outlines of installed fonts
};

} // namespace qsdps
