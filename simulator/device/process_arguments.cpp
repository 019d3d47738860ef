// The argument vector that the process claims to have.
#include "device/process_arguments.h"

#include <unistd.h>

#include <vector>

#include "objc/class.h"
#include "platform/foundation.h"
#include "runtime/method_replacement.h"

extern "C" void GSInitializeProcess(int count, char** arguments, char** environment);

/// An array of one element, which is nil. No other array can hold that.
struct SIMNilArguments : objc::Interface<SIMNilArguments, "SIMNilArguments", NSArray> {};

namespace {

struct NilArguments : objc::Implements<NilArguments, SIMNilArguments> {
    using Ivars = objc::NoIvars;

    NSArray* init() { return this; }
    NSUInteger count() { return 1; }
    id objectAtIndex(NSUInteger) { return nullptr; }
};

struct ProcessInfo : NSProcessInfo {
    NSArray* no_arguments() { return NSArray::class_send<"array", NSArray*>(); }
    NSArray* nil_arguments() {
        return SIMNilArguments::class_send<"new", objc::strong<NSArray>>().autoreleased();
    }
};

}  // namespace

namespace sim {

void start_foundation(const std::string& executable, ClaimedArguments arguments) {
    static std::string path;  // Foundation may keep the pointer
    path = executable;
    char* vector[] = {path.data(), nullptr};
    GSInitializeProcess(1, vector, environ);

    Class info = NSProcessInfo::class_object();
    switch (arguments) {
        case ClaimedArguments::executable: break;
        case ClaimedArguments::none: mend<"arguments", &ProcessInfo::no_arguments>(info); break;
        case ClaimedArguments::nil: mend<"arguments", &ProcessInfo::nil_arguments>(info); break;
    }
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(SIMNilArguments, NSArray, NilArguments,
           method<"init", &NilArguments::init>,
           method<"count", &NilArguments::count>,
           method<"objectAtIndex:", &NilArguments::objectAtIndex>)
