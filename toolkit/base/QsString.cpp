#include "toolkit/base/QsString.h"

#include <ostream>

QsString::QsString(const char* text) : _text(text == nullptr ? "" : text) {}

QsString::QsString(std::string_view text) : _text(text) {}

QsString& QsString::operator+=(std::string_view text)
{
    _text += text;
    return *this;
}

std::ostream& operator<<(std::ostream& out, const QsString& text)
{
    return out << text.view();
}
