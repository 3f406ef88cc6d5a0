#include "toolkit/base/Qs_AList.h"

#include <algorithm>

void* Qs_AList::get(const void* key) const
{
    const auto found = std::find_if(_pairs.begin(), _pairs.end(), [=](const auto& pair) { return pair.first == key; });
    return found == _pairs.end() ? nullptr : found->second;
}

bool Qs_AList::replace(const void* key, void* value)
{
    const auto found = std::find_if(_pairs.begin(), _pairs.end(), [=](const auto& pair) { return pair.first == key; });
    if (found == _pairs.end()) {
        return false;
    }
    found->second = value;
    return true;
}

void Qs_AList::append(const void* key, void* value)
{
    _pairs.emplace_back(key, value);
}

bool Qs_AList::remove(const void* key, const void* value)
{
    const auto found = std::find_if(_pairs.begin(), _pairs.end(),
                                    [=](const auto& pair) { return pair.first == key && pair.second == value; });
    if (found == _pairs.end()) {
        return false;
    }
    _pairs.erase(found);
    return true;
}
