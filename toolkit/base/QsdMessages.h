// Warnings and fatal errors of the toolkit.
#pragma once

#include "toolkit/base/QsdExport.h"
#include "toolkit/base/QsdPrintf.h"

/// Receives one finished message, without a line end, and the `data` it was installed with.
using QsdMessageHandler = void (*)(const char* message, void* data);

/// Reports a problem after which work goes on. `format` and what follows are those of printf. The message goes to the
/// installed handler; the default writes "Warning: " and the message as one line on standard error.
QSD_API void QsdWarning(const char* format, ...) QSD_PRINTF(1, 2);

/// Reports an error that ends the operation under way, not the program: it returns, unless the installed handler does
/// not. The default handler writes "Error: " and the message as one line on standard error.
QSD_API void QsdFatalError(const char* format, ...) QSD_PRINTF(1, 2);

/// Installs the receiver of warnings; null brings the default back. Returns the previous receiver (null: the default).
QSD_API QsdMessageHandler QsdSetWarningHandler(QsdMessageHandler handler, void* data);

/// Installs the receiver of fatal errors; null brings the default back. Returns the previous one (null: the default).
QSD_API QsdMessageHandler QsdSetFatalErrorHandler(QsdMessageHandler handler, void* data);
