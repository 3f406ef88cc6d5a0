#include "toolkit/base/QsdNumbers.h"

#include <clocale>
#include <cstring>
#include <string>

namespace {

unsigned depth = 0;
std::string replacedLocale; ///< of the outermost enter; empty when nothing had to change

bool isClassic()
{
    // The name, where it tells, is had for less than the conventions.
    const char* const name = std::setlocale(LC_NUMERIC, nullptr);
    if (name != nullptr && std::strcmp(name, "C") == 0) {
        return true;
    }
    const lconv& conventions = *std::localeconv();
    return conventions.decimal_point[0] == '.' && conventions.decimal_point[1] == '\0' &&
           conventions.grouping[0] == '\0';
}

} // namespace

void QsdSetLocaleC(bool classic)
{
    if (classic) {
        if (depth == 0 && !isClassic()) {
            replacedLocale = std::setlocale(LC_NUMERIC, nullptr);
            std::setlocale(LC_NUMERIC, "C");
        }
        ++depth;
    } else if (depth != 0 && --depth == 0 && !replacedLocale.empty()) {
        std::setlocale(LC_NUMERIC, replacedLocale.c_str());
        replacedLocale.clear();
    }
}
