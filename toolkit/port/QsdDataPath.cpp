#include "toolkit/port/QsdDataPath_p.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

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
    for (const char* const folder : {DRAVONSET_DATA_DIR, DRAVONSET_SOURCE_DATA_DIR}) {
        if (isFile(fs::path(folder) / wanted)) {
            return (fs::path(folder) / wanted).string();
        }
    }
    return {};
}
