// Zeroing weak references: one table of the variables, by object, under one lock.
#include "runtime/references/weak_references.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "runtime/exported.h"

extern "C" {
BOOL NSDecrementExtraRefCountWasZero(id);
id objc_storeWeakOrNil(id* slot, id value);
}

namespace sim {
namespace {

// Recursive, because -retain is sent under it. Never destroyed: objects go until the very end of the process.
struct WeakReferences {
    std::recursive_mutex lock;
    std::unordered_map<id, std::vector<id*>> variables;
    /// Those whose last reference is gone, the latest last: as many as deallocations are nested.
    std::vector<id> dying;

    static WeakReferences& get() {
        static auto* table = new WeakReferences;
        return *table;
    }

    void clear(id object) {
        auto found = variables.find(object);
        if (found == variables.end()) return;
        for (id* variable : found->second) *variable = nullptr;
        variables.erase(found);
    }

    void store(id* variable, id object) {
        if (*variable == object) return;
        if (*variable) remove(*variable, variable);
        *variable = object;
        if (object) variables[object].push_back(variable);
    }

    bool is_dying(id object) const { return object && std::ranges::find(dying, object) != dying.end(); }

    void remove(id object, id* variable) {
        auto found = variables.find(object);
        if (found == variables.end()) return;
        std::erase(found->second, variable);
        if (found->second.empty()) variables.erase(found);
    }
};

}  // namespace

bool drop_reference(id object) {
    WeakReferences& table = WeakReferences::get();
    std::lock_guard guard(table.lock);
    const bool last = NSDecrementExtraRefCountWasZero(object);
    if (last) {
        table.clear(object);
        table.dying.push_back(object);
    }
    return last;
}

void clear_weak_references(id object) {
    WeakReferences& table = WeakReferences::get();
    std::lock_guard guard(table.lock);
    table.clear(object);
}

void end_deallocation(id object) {
    WeakReferences& table = WeakReferences::get();
    std::lock_guard guard(table.lock);
    const auto found = std::ranges::find(table.dying.rbegin(), table.dying.rend(), object);
    if (found != table.dying.rend()) table.dying.erase(std::next(found).base());
}

}  // namespace sim

// As on the device, a weak reference to an object that is being deallocated is an error that ends the
// process, unless the caller is content with nil.
SIM_EXPORTED id objc_storeWeak(id* slot, id value) {
    auto& table = sim::WeakReferences::get();
    std::lock_guard guard(table.lock);
    if (table.is_dying(value)) {
        std::fprintf(
            stderr,
            "objc_storeWeak: an object of class %s is being deallocated: no weak reference to it can "
            "be formed\n",
            object_getClassName(value));
        std::abort();
    }
    table.store(slot, value);
    return value;
}

SIM_EXPORTED id objc_storeWeakOrNil(id* slot, id value) {
    auto& table = sim::WeakReferences::get();
    std::lock_guard guard(table.lock);
    if (table.is_dying(value)) value = nullptr;
    table.store(slot, value);
    return value;
}

SIM_EXPORTED id objc_initWeak(id* slot, id value) {
    *slot = nullptr;
    return objc_storeWeak(slot, value);
}

SIM_EXPORTED id objc_initWeakOrNil(id* slot, id value) {
    *slot = nullptr;
    return objc_storeWeakOrNil(slot, value);
}

SIM_EXPORTED void objc_destroyWeak(id* slot) { objc_storeWeak(slot, nullptr); }

SIM_EXPORTED id objc_loadWeakRetained(id* slot) {
    std::lock_guard guard(sim::WeakReferences::get().lock);
    return objc_retain(*slot);
}
