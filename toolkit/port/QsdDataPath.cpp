#include "toolkit/port/QsdDataPath_p.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#ifdef DRAVONSET_SHARED
#include <dlfcn.h>
#endif

namespace {

namespace fs = std::filesystem;

// A device or a pipe may never come to its end.
bool isFile(const fs::path& path)
{
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool leadsUpwards(const fs::path& path)
{
    for (const fs::path& part : path) {
        if (part == "..") {
            return true;
        }
    }
    return false;
}

/// The folder of the file that this code was loaded from; empty where the system does not tell.
fs::path folderOfThisCode()
{
#ifdef DRAVONSET_SHARED
    Dl_info info{};
    const char* const name =
        dladdr(reinterpret_cast<const void*>(&QsdFindDataFile), &info) != 0 ? info.dli_fname : nullptr;
    const fs::path file(name == nullptr ? "" : name);
#else
    const fs::path file("/proc/self/exe");
#endif
    std::error_code error;
    return fs::canonical(file, error).parent_path();
}

/// The data folder beside the program or library, so that an installation can be moved as a whole.
fs::path installedFolder()
{
    const fs::path folder = folderOfThisCode();
    return folder.empty() ? folder : (folder / DRAVONSET_RELATIVE_DATA_DIR).lexically_normal();
}

} // namespace

std::string QsdFindDataFile(const char* name)
{
    const fs::path wanted(name == nullptr ? "" : name);
    if (wanted.is_absolute()) {
        return isFile(wanted) ? wanted.string() : std::string();
    }
    if (wanted.empty() || leadsUpwards(wanted)) {
        return {};
    }
    if (const char* const folders = std::getenv("QSDPATH")) {
        std::string_view rest(folders);
        while (!rest.empty()) {
            const std::size_t end = rest.find(':');
            const std::string_view folder = rest.substr(0, end);
            if (!folder.empty() && isFile(fs::path(folder) / wanted)) {
                return (fs::path(folder) / wanted).string();
            }
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
    }
    for (const fs::path& folder : {installedFolder(), fs::path(DRAVONSET_DATA_DIR)}) {
        if (!folder.empty() && isFile(folder / wanted)) {
            return (folder / wanted).string();
        }
    }
    return {};
}
