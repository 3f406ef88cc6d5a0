// What shared libraries show to programs.
#pragma once

/// Marks a class or function that programs, or other libraries of the project, may use. Libraries are compiled with all
/// other names hidden.
#if defined(__GNUC__)
#define QSD_API __attribute__((visibility("default")))
#else
#define QSD_API
#endif
