#include "toolkit/port/QsdMessageTexts_p.h"

#include <string>

namespace {

struct MessageText {
    std::string_view key;
    const char* text;
};

constexpr MessageText MessageTexts[] = {
    {"&QsdMsg015100", "Cannot open the PostScript output file %s"},
    {"&QsdMsg015101", "The PostScript device has no open document to draw into"},
    {"&QsdMsg015102", "The PostScript output could not be written completely"},
};

/// The conversions of a format one after the other, from their percent signs on; "%%" takes nothing and is left out.
std::string conversionsOf(std::string_view format)
{
    std::string conversions;
    for (std::size_t i = format.find('%'); i < format.size(); i = format.find('%', i)) {
        const std::size_t end = format.find_first_of("diouxXeEfFgGaAcspn%", i + 1);
        if (end == std::string_view::npos) {
            return conversions + std::string(format.substr(i));
        }
        if (end != i + 1 || format[end] != '%') {
            conversions += format.substr(i, end + 1 - i);
        }
        i = end + 1;
    }
    return conversions;
}

} // namespace

const char* QsdBuiltInMessage(std::string_view key)
{
    for (const MessageText& message : MessageTexts) {
        if (message.key == key) {
            return message.text;
        }
    }
    return nullptr;
}

bool QsdSameConversions(std::string_view a, std::string_view b)
{
    return conversionsOf(a) == conversionsOf(b);
}
