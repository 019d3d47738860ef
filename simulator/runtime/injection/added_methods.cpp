// class_addMethod, with a record of the methods that a library adds to classes that exist.
#include <dlfcn.h>

#include <cstring>

#include "runtime/exported.h"
#include "runtime/injection/installing_calls.h"
#include "runtime/method_replacement.h"

extern "C" BOOL NSDecrementExtraRefCountWasZero(id);

namespace sim {
namespace {

/// Foundation puts its class clusters together in this way when they are first used, at whatever moment:
/// several hundred methods, so that where it lies is looked up once.
bool is_in_foundation(const void* address) {
    static const auto foundation = [] {
        dl_find_object found{};
        _dl_find_object(reinterpret_cast<void*>(&NSDecrementExtraRefCountWasZero), &found);
        return found;
    }();
    return address >= foundation.dlfo_map_start && address < foundation.dlfo_map_end;
}

/// A class under construction gets its methods before the runtime knows it by name.
bool is_registered(Class owner) {
    Class known = objc_lookUpClass(class_getName(owner));
    return owner == (class_isMetaClass(owner) ? object_getClass(reinterpret_cast<id>(known)) : known);
}

}  // namespace
}  // namespace sim

// Stands before libobjc's function of the name for every module that has this one among its libraries.
SIM_EXPORTED BOOL class_addMethod(Class owner, SEL selector, IMP implementation, const char* types) {
    const bool added = owner && sim::add_method(owner, selector, implementation, types);
    if ((!owner || sim::is_registered(owner)) && !sim::AddingCategories::now() &&
        !sim::is_in_foundation(__builtin_return_address(0)))
        sim::record({.kind = sim::InstallingCall::Kind::add_method,
                     .owner = owner,
                     .selector = selector,
                     .types = types ? strdup(types) : nullptr,
                     .took_effect = added});
    return added;
}
