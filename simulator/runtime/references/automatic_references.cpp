// What the compiler calls in code with automatic reference counting, and what it lets the runtime do for
// properties.
#include <utility>

#include "objc/send.h"
#include "runtime/exported.h"

extern "C" void* _Block_copy(const void*);

SIM_EXPORTED id objc_alloc(Class of) { return objc::send<"alloc", id>(reinterpret_cast<id>(of)); }
SIM_EXPORTED id objc_allocWithZone(Class of) {
    return objc::send<"allocWithZone:", id>(reinterpret_cast<id>(of), static_cast<void*>(nullptr));
}

// ---- Results: they go through the pool. The device's short cut past it, from a callee to its caller, is not
// taken; only the moment at which an object goes shows the difference.

SIM_EXPORTED id objc_autoreleaseReturnValue(id object) { return objc_autorelease(object); }
SIM_EXPORTED id objc_retainAutorelease(id object) { return objc_autorelease(objc_retain(object)); }
SIM_EXPORTED id objc_retainAutoreleaseReturnValue(id object) { return objc_retainAutorelease(object); }
SIM_EXPORTED id objc_retainAutoreleasedReturnValue(id object) { return objc_retain(object); }
SIM_EXPORTED id objc_unsafeClaimAutoreleasedReturnValue(id object) { return object; }

// ---- Variables

SIM_EXPORTED void objc_storeStrong(id* variable, id object) {
    id previous = *variable;
    if (previous == object) return;
    objc_retain(object);
    *variable = object;
    objc_release(previous);
}

SIM_EXPORTED id objc_retainBlock(id block) { return static_cast<id>(_Block_copy(block)); }

SIM_EXPORTED id objc_loadWeak(id* variable) { return objc_autorelease(objc_loadWeakRetained(variable)); }

SIM_EXPORTED void objc_copyWeak(id* to, id* from) {
    id object = objc_loadWeakRetained(from);
    objc_initWeak(to, object);
    objc_release(object);
}

SIM_EXPORTED void objc_moveWeak(id* to, id* from) {
    objc_copyWeak(to, from);
    objc_destroyWeak(from);
}

SIM_EXPORTED void objc_setProperty_nonatomic_copy(id self, SEL, id value, ptrdiff_t offset) {
    id& variable = *reinterpret_cast<id*>(reinterpret_cast<char*>(self) + offset);
    id copy = objc::send<"copy", id>(value);
    objc_release(std::exchange(variable, copy));
}
