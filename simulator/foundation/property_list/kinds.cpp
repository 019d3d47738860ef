#include "foundation/property_list/kinds.h"

#include <algorithm>

#include "foundation/text.h"

namespace sim::plist {

NumberKind number_kind(id number) {
    if (is_kind(number, "NSBoolNumber")) return NumberKind::boolean;
    switch (*objc::send<"objCType", const char*>(number)) {
        case 'f': return NumberKind::single_real;
        case 'd': return NumberKind::real;
        case 'L':
        case 'Q': return NumberKind::unsigned_integer;
        default: return NumberKind::integer;
    }
}

std::vector<id> elements_of(id array) {
    auto* list = static_cast<NSArray*>(array);
    std::vector<id> elements(list->count());
    for (size_t i = 0; i < elements.size(); ++i) elements[i] = list->objectAtIndex(i);
    return elements;
}

std::vector<id> sorted_keys_of(id dictionary) {
    auto keys = elements_of(objc::send<"allKeys", id>(dictionary));
    std::sort(keys.begin(), keys.end(), [](id a, id b) {
        return units_of(static_cast<NSString*>(a)) < units_of(static_cast<NSString*>(b));
    });
    return keys;
}

}  // namespace sim::plist
