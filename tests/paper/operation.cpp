#include "operation.h"

const std::vector<Operation>& operations()
{
    static const std::vector<Operation> all = [] {
        std::vector<Operation> result;
        for (const auto& part :
             {lineOperations(), areaOperations(), pictureOperations(), textOperations(), clipOperations()}) {
            result.insert(result.end(), part.begin(), part.end());
        }
        return result;
    }();
    return all;
}
