// Resource and message files.
#include "check.h"
#include "toolkit/port/QsdResourceTable_p.h"

#include <cstring>
#include <sstream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QsdResourceTable table;
    std::istringstream file(std::string(reinterpret_cast<const char*>(data), size));
    table.read(file);
    for (const auto& [name, value] : table.entries()) {
        const char* const found = table.find(name);
        check(found != nullptr && std::strcmp(found, value.c_str()) == 0, "An entry is not found", name);
    }
    while (!table.entries().empty()) {
        const std::string name = table.entries().begin()->first;
        table.set(name, "other");
        table.remove(name);
        check(table.find(name) == nullptr, "An entry stays", name);
    }
    return 0;
}
