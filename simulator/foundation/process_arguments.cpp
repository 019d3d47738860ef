#include "foundation/process_arguments.h"

#include <unistd.h>

#include <vector>

#include "foundation/property_list/text_encoding.h"
#include "objc/class.h"
#include "objc/exception.h"
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

/// The environment without what Foundation can make no text of.
char** readable_environment() {
    static std::vector<char*> entries;
    for (char** entry = environ; entry && *entry; ++entry)
        if (sim::plist::is_utf8(*entry)) entries.push_back(*entry);
    entries.push_back(nullptr);
    return entries.data();
}

}  // namespace

namespace sim {

void claim_arguments(const std::vector<std::string>& arguments) {
    static std::vector<std::string> claimed;  // Foundation may keep the pointers
    claimed = arguments;
    std::vector<char*> vector;
    for (std::string& argument : claimed) vector.push_back(argument.data());
    vector.push_back(nullptr);
    GSInitializeProcess(static_cast<int>(claimed.size()), vector.data(), readable_environment());
}

void start_foundation(const std::string& executable, ClaimedArguments arguments) {
    static std::string path;  // Foundation may keep the pointer
    path = executable;
    char* vector[] = {path.data(), nullptr};
    // Foundation makes texts of what the process was really started with before it takes what it is given,
    // and raises an exception where that is not UTF-8. It does so once.
    char** environment = readable_environment();
    if (objc::caught([&] { GSInitializeProcess(1, vector, environment); }))
        GSInitializeProcess(1, vector, environment);

    Class info = NSProcessInfo::class_object();
    switch (arguments) {
        case ClaimedArguments::executable: break;
        case ClaimedArguments::none: redefine<"arguments", &ProcessInfo::no_arguments>(info); break;
        case ClaimedArguments::nil: redefine<"arguments", &ProcessInfo::nil_arguments>(info); break;
    }
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(SIMNilArguments, NSArray, NilArguments,
           method<"init", &NilArguments::init>,
           method<"count", &NilArguments::count>,
           method<"objectAtIndex:", &NilArguments::objectAtIndex>)
