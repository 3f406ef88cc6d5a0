#include "toolkit/x11/QsdXResources_p.h"

#include <X11/Xresource.h>

#include <cstdlib>
#include <memory>
#include <set>

namespace {

/// A letter of ASCII in the other case, whatever the locale.
std::string withFirst(std::string word, char from, char to, int shift)
{
    if (!word.empty() && word.front() >= from && word.front() <= to) {
        word.front() = static_cast<char>(word.front() + shift);
    }
    return word;
}

std::string capitalised(const std::string& word)
{
    return withFirst(word, 'a', 'z', 'A' - 'a');
}

std::string uncapitalised(const std::string& word)
{
    return withFirst(word, 'A', 'Z', 'a' - 'A');
}

struct DatabaseDeleter {
    void operator()(_XrmHashBucketRec* database) const { XrmDestroyDatabase(database); }
};
using Database = std::unique_ptr<_XrmHashBucketRec, DatabaseDeleter>;

/// Reads a file over what is there; one that cannot be read has nothing.
void addFile(Database& database, const std::string& path)
{
    XrmDatabase joined = database.release();
    XrmCombineFileDatabase(path.c_str(), &joined, True);
    database.reset(joined);
}

std::string environment(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value == nullptr ? std::string() : value;
}

void addDefaults(Database& database, const std::string& className)
{
    constexpr const char* Folders[] = {"/usr/share/X11/app-defaults/", "/etc/X11/app-defaults/"};
    for (const char* const folder : Folders) {
        addFile(database, folder + className);
    }
    if (const std::string folder = environment("XAPPLRESDIR"); !folder.empty()) {
        addFile(database, folder + "/" + className);
    }
}

/// Reads a text over what is there; null has nothing.
void addText(Database& database, const char* text)
{
    if (XrmDatabase given = text == nullptr ? nullptr : XrmGetStringDatabase(text)) {
        XrmDatabase joined = database.release();
        XrmCombineDatabase(given, &joined, True);
        database.reset(joined);
    }
}

void addUserSettings(Database& database, const QsdXConnection& connection)
{
    if (const char* const property = XResourceManagerString(connection.display())) {
        addText(database, property);
    } else if (const std::string home = environment("HOME"); !home.empty()) {
        addFile(database, home + "/.Xdefaults");
    }
    if (char* const property = XScreenResourceString(ScreenOfDisplay(connection.display(), connection.screen()))) {
        addText(database, property);
        XFree(property);
    }
    if (const std::string file = environment("XENVIRONMENT"); !file.empty()) {
        addFile(database, file);
    }
}

/// Notes the last names of what may be a resource of the application.
int addName(XrmDatabase*, XrmBindingList, XrmQuarkList quarks, XrmRepresentation*, XrmValue*, XPointer names)
{
    XrmQuark last = NULLQUARK;
    for (; *quarks != NULLQUARK; ++quarks) {
        last = *quarks;
    }
    if (last != NULLQUARK) {
        reinterpret_cast<std::set<std::string>*>(names)->insert(XrmQuarkToString(last));
    }
    return False;
}

} // namespace

std::map<std::string, std::string> QsdXResources(const QsdXConnection& connection, const char* application)
{
    const std::string name = application;
    const std::string className = capitalised(name);
    XrmInitialize();
    Database database;
    addDefaults(database, className);
    addUserSettings(database, connection);

    if (database == nullptr) {
        return {};
    }
    std::set<std::string> names;
    XrmName prefix[] = {XrmStringToName(name.c_str()), NULLQUARK};
    XrmClass classPrefix[] = {XrmStringToClass(className.c_str()), NULLQUARK};
    XrmEnumerateDatabase(database.get(), prefix, classPrefix, XrmEnumOneLevel, addName,
                         reinterpret_cast<XPointer>(&names));
    std::map<std::string, std::string> resources;
    for (const std::string& found : names) {
        // A line may name the class of a resource, which stands for the resource too.
        for (const std::string& resource : {found, uncapitalised(found)}) {
            const std::string fullName = std::string(name).append(".").append(resource);
            const std::string fullClass = std::string(className).append(".").append(capitalised(resource));
            char* type = nullptr;
            XrmValue value{};
            if (XrmGetResource(database.get(), fullName.c_str(), fullClass.c_str(), &type, &value) != False) {
                // Its size counts the terminating zero.
                resources[resource] = static_cast<const char*>(value.addr);
            }
        }
    }
    return resources;
}
