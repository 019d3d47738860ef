// Zeroing weak references: one table of the variables, by object, under one lock.
#include "runtime/weak_references.h"

#include <mutex>
#include <unordered_map>
#include <vector>

#include "runtime/exported.h"

extern "C" BOOL NSDecrementExtraRefCountWasZero(id);

namespace sim {
namespace {

// Recursive, because -retain is sent under it. Never destroyed: objects go until the very end of the process.
struct Table {
    std::recursive_mutex lock;
    std::unordered_map<id, std::vector<id*>> variables;

    static Table& get() {
        static auto* table = new Table;
        return *table;
    }

    void clear(id object) {
        auto found = variables.find(object);
        if (found == variables.end()) return;
        for (id* variable : found->second) *variable = nullptr;
        variables.erase(found);
    }

    void remove(id object, id* variable) {
        auto found = variables.find(object);
        if (found == variables.end()) return;
        std::erase(found->second, variable);
        if (found->second.empty()) variables.erase(found);
    }
};

}  // namespace

bool drop_reference(id object) {
    Table& table = Table::get();
    std::lock_guard guard(table.lock);
    const bool last = NSDecrementExtraRefCountWasZero(object);
    if (last) table.clear(object);
    return last;
}

void clear_weak_references(id object) {
    Table& table = Table::get();
    std::lock_guard guard(table.lock);
    table.clear(object);
}

}  // namespace sim

SIM_EXPORTED id objc_storeWeak(id* variable, id object) {
    auto& table = sim::Table::get();
    std::lock_guard guard(table.lock);
    if (*variable == object) return object;
    if (*variable) table.remove(*variable, variable);
    *variable = object;
    if (object) table.variables[object].push_back(variable);
    return object;
}

SIM_EXPORTED id objc_initWeak(id* variable, id object) {
    *variable = nullptr;
    return objc_storeWeak(variable, object);
}

SIM_EXPORTED void objc_destroyWeak(id* variable) { objc_storeWeak(variable, nullptr); }

SIM_EXPORTED id objc_loadWeakRetained(id* variable) {
    std::lock_guard guard(sim::Table::get().lock);
    return objc_retain(*variable);
}
