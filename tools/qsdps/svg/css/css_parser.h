// Style sheets and style attributes as written.
#pragma once

#include "svg/css/css_selector.h"
#include "values/css_text.h"

#include <string_view>
#include <vector>

namespace qsdps::svg {

struct Declaration {
    std::string_view name;
    std::string_view value; ///< trimmed, without "!important"
    bool important = false;
};

/// Selectors with the declarations they share.
struct RuleSet {
    std::vector<Selector> selectors;
    std::vector<Declaration> declarations;
};

struct StyleSheet {
    std::vector<std::string_view> imports; ///< targets of the @import rules that are meant for paper
    std::vector<RuleSet> rules;            ///< those of @media parts that are meant for paper among them
};

/// Appends the declarations of a style attribute or rule body; the views point into `text`. Blocks inside are passed
/// over and told.
void parseDeclarations(std::string_view text, std::vector<Declaration>& out, const SheetFault& tell);
/// Reads a style sheet without comments; what is not understood is passed over and told. The views point into `text`.
[[nodiscard]] StyleSheet parseStyleSheet(std::string_view text, const SheetFault& tell);

} // namespace qsdps::svg
