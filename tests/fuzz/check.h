// What a fuzzer says when it finds a document that must not be.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Ends the fuzzer, which keeps its bytes, unless the condition holds.
inline void check(bool condition, const char* what, std::string_view document)
{
    if (!condition) {
        std::fprintf(stderr, "%s:\n%.*s\n", what, static_cast<int>(document.size()), document.data());
        std::abort();
    }
}
