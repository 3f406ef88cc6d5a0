#include "window/x_errors.h"

#include "toolkit/base/QsdMessages.h"

#include <utility>

namespace qsdps {

XErrors::XErrors()
{
    QsdSetWarningHandler(Keep, this);
    QsdSetFatalErrorHandler(Keep, this);
}

XErrors::~XErrors()
{
    QsdSetWarningHandler(nullptr, nullptr);
    QsdSetFatalErrorHandler(nullptr, nullptr);
}

std::string XErrors::take()
{
    return std::exchange(_first, {});
}

std::string XErrors::take(const QsdXDisplay& display)
{
    display.sync();
    return take();
}

void XErrors::Keep(const char* message, void* self)
{
    std::string& first = static_cast<XErrors*>(self)->_first;
    if (first.empty()) {
        first = message;
    }
}

} // namespace qsdps
