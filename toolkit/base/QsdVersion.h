// The version of the toolkit.
#pragma once

/// The toolkit's version as a number: major times 100 plus minor.
[[nodiscard]] int QsdGetVersion();

/// The toolkit's version as text, "major.minor.patch".
[[nodiscard]] const char* QsdGetVersionString();
