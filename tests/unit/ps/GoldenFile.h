// Whole documents that tests compare with.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

/// The content of a file of the golden folder; empty when it is not there.
inline std::string goldenFile(const std::string& name)
{
    std::ifstream file(std::string(DRAVONSET_GOLDEN_DIR) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
