#include "ps/stream/QsdPSTemporaryFile_p.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#if __has_include(<unistd.h>)
#include <unistd.h>

namespace {

/// As std::tmpfile, which does not ask the environment for the folder.
std::FILE* openInNamedFolder()
{
    std::error_code none;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(none);
    if (none) {
        return nullptr;
    }
    std::string name = (folder / "dravonset-XXXXXX").string();
    const int descriptor = ::mkstemp(name.data());
    if (descriptor == -1) {
        return nullptr;
    }
    ::unlink(name.c_str());
    std::FILE* const file = ::fdopen(descriptor, "w+b");
    if (file == nullptr) {
        ::close(descriptor);
    }
    return file;
}

} // namespace

#else

namespace {

std::FILE* openInNamedFolder()
{
    return nullptr;
}

} // namespace

#endif

std::FILE* QsdPSOpenTemporaryFile()
{
    std::FILE* const file = openInNamedFolder();
    return file != nullptr ? file : std::tmpfile();
}
