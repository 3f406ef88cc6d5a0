// Looks whether documents keep the structuring conventions: check-structure FILE...
#include "tests/structure/structure_check.h"

#include <fstream>
#include <iostream>
#include <iterator>

int main(int count, char** argv)
{
    bool good = count > 1;
    for (int i = 1; i < count; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        const std::string document{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        for (const std::string& fault : structureFaults(document)) {
            std::cerr << argv[i] << ": " << fault << "\n";
            good = false;
        }
    }
    return good ? 0 : 1;
}
