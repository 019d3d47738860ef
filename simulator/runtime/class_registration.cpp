#include "runtime/class_registration.h"

#include "objc/runtime.h"
#include "runtime/exported.h"

extern "C" {
extern void* __objc_runtime_mutex;
int objc_mutex_lock(void* mutex);
int objc_mutex_unlock(void* mutex);
void __objc_init_class(Class);
void __objc_resolve_class_links();
}

namespace sim {
namespace {

/// How a class of libobjc begins.
struct ClassEntry {
    ClassEntry* metaclass;
    void* superclass;
    const char* name;
    long version;
    unsigned long flags;
};

constexpr unsigned long is_class = 0x1, under_construction = 0x10;

bool are_many = false;

}  // namespace

ManyClasses::ManyClasses() { are_many = true; }

ManyClasses::~ManyClasses() {
    are_many = false;
    __objc_resolve_class_links();
}

}  // namespace sim

// Stands before libobjc's function of the name, and does the same.
SIM_EXPORTED void objc_registerClassPair(Class made) {
    auto* const entry = reinterpret_cast<sim::ClassEntry*>(made);
    constexpr unsigned long wanted = sim::is_class | sim::under_construction;
    if (!entry || (entry->flags & wanted) != wanted) return;
    objc_mutex_lock(__objc_runtime_mutex);
    if (!objc_lookUpClass(entry->name)) {
        entry->flags &= ~sim::under_construction;
        entry->metaclass->flags &= ~sim::under_construction;
        __objc_init_class(made);
        if (!sim::are_many) __objc_resolve_class_links();
    }
    objc_mutex_unlock(__objc_runtime_mutex);
}
