// Lists that own their objects.
#pragma once
#include <algorithm>
#include <vector>

#include "objc/strong.h"

namespace sim {

/// Takes an object out of its list; empty when it is not in it. The answer keeps the object until the list is
/// whole again: what goes away with it may reach the list.
template <class T>
[[nodiscard]] objc::strong<T> taken_from(std::vector<objc::strong<T>>& list, const T* object) {
    const auto place = std::find(list.begin(), list.end(), object);
    if (place == list.end()) return nullptr;
    objc::strong<T> taken = std::move(*place);
    list.erase(place);
    return taken;
}

}  // namespace sim
