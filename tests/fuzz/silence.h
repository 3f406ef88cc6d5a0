// Fuzzers are told of nothing but crashes.
#pragma once

#include "toolkit/base/QsdMessages.h"

/// Drops the messages of the toolkit from now on.
inline void dropMessages()
{
    const QsdMessageHandler drop = [](const char*, void*) {};
    QsdSetWarningHandler(drop, nullptr);
    QsdSetFatalErrorHandler(drop, nullptr);
}
