// Lets the compiler check printf-style arguments.
#pragma once

#if defined(__GNUC__)
#define QSD_PRINTF(formatIndex, firstArgument) __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define QSD_PRINTF(formatIndex, firstArgument)
#endif
