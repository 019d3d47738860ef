// Retain, release, autorelease and pools.
#include "runtime/references/reference_counting.h"

#include "platform/foundation.h"
#include "runtime/exported.h"
#include "runtime/method_replacement.h"
#include "runtime/references/associated_objects.h"
#include "runtime/references/weak_references.h"

namespace sim {
namespace {

constinit IMP previous_dealloc = nullptr;

struct Root : NSObject {
    void release() {
        if (drop_reference(this)) send<"dealloc">();
    }
    void dealloc() {
        clear_weak_references(this);  // of a class that has a -release of its own
        drop_associated_objects(this);
        end_deallocation(this);
        objc::Previous<void()>(previous_dealloc, this, objc::selector<"dealloc">())();
    }
};

}  // namespace

void install_reference_counting() {
    redefine<"release", &Root::release>(NSObject::class_object());
    previous_dealloc = redefine<"dealloc", &Root::dealloc>(NSObject::class_object());
}

}  // namespace sim

SIM_EXPORTED id objc_retain(id object) { return objc::send<"retain", id>(object); }
SIM_EXPORTED void objc_release(id object) { objc::send<"release">(object); }
SIM_EXPORTED id objc_autorelease(id object) { return objc::send<"autorelease", id>(object); }

struct NSAutoreleasePool : objc::Interface<NSAutoreleasePool, "NSAutoreleasePool", NSObject> {
    void drain() { send<"drain">(); }
};

SIM_EXPORTED void* objc_autoreleasePoolPush() { return NSAutoreleasePool::alloc()->init().leak(); }
SIM_EXPORTED void objc_autoreleasePoolPop(void* pool) { static_cast<NSAutoreleasePool*>(pool)->drain(); }
