#include "toolkit/base/QsdMessages.h"

#include <cstdarg>
#include <cstdio>
#include <new>
#include <string>

namespace {

struct Receiver {
    const char* prefix; ///< of the default's line
    QsdMessageHandler handler = nullptr;
    void* data = nullptr;

    void deliver(const char* message) const
    {
        if (handler != nullptr) {
            handler(message, data);
        } else {
            std::fprintf(stderr, "%s%s\n", prefix, message);
        }
    }
    QsdMessageHandler install(QsdMessageHandler newHandler, void* newData)
    {
        const QsdMessageHandler old = handler;
        handler = newHandler;
        data = newData;
        return old;
    }
};

Receiver warnings{"Warning: "};
Receiver fatalErrors{"Error: "};

/// Formats and delivers a message of any length; where there is no memory for a long one, its beginning.
void report(const Receiver& receiver, const char* format, std::va_list arguments)
{
    if (format == nullptr) {
        receiver.deliver("");
        return;
    }
    char brief[512];
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(brief, sizeof brief, format, arguments);
    if (length < static_cast<int>(sizeof brief)) {
        receiver.deliver(length < 0 ? format : brief);
    } else {
        std::string full;
        try {
            full.resize(static_cast<std::size_t>(length));
            std::vsnprintf(full.data(), full.size() + 1, format, again);
        } catch (const std::bad_alloc&) {
            full.clear();
        }
        receiver.deliver(full.empty() ? brief : full.c_str());
    }
    va_end(again);
}

} // namespace

void QsdWarning(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    report(warnings, format, arguments);
    va_end(arguments);
}

void QsdFatalError(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    report(fatalErrors, format, arguments);
    va_end(arguments);
}

QsdMessageHandler QsdSetWarningHandler(QsdMessageHandler handler, void* data)
{
    return warnings.install(handler, data);
}

QsdMessageHandler QsdSetFatalErrorHandler(QsdMessageHandler handler, void* data)
{
    return fatalErrors.install(handler, data);
}
