// Built-in message texts, and which translations may stand in for them.
#pragma once

#include <string_view>

/// The built-in text of a message, null for a key that nobody knows.
[[nodiscard]] const char* QsdBuiltInMessage(std::string_view key);

/// Whether two printf formats take the same arguments, so that one may be used for the other.
[[nodiscard]] bool QsdSameConversions(std::string_view a, std::string_view b);
