// Signatures at the border.
#include "runtime/injection/authentication.h"

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "objc/pointer_signature.h"
#include "platform/substrate.h"
#include "runtime/injection/hooks.h"

namespace sim {
namespace {

bool authenticating = false, answering_unsigned = false;

struct Range {
    const char *start, *end;
};
std::vector<Range>& images() {
    static auto* noted = new std::vector<Range>;
    return *noted;
}

IMP of_bits(uintptr_t bits) { return reinterpret_cast<IMP>(bits); }
uintptr_t bits_of(IMP function) { return reinterpret_cast<uintptr_t>(function); }
uint64_t modifier(const void* field) { return reinterpret_cast<uint64_t>(field); }

std::string method(Class owner, SEL selector) {
    return std::string(class_isMetaClass(owner) ? "+[" : "-[") + class_getName(owner) + " " +
           sel_getName(selector) + "]";
}

/// One of the published frameworks wants what the ABI says, the others take the signature off unseen.
IMP taken_by_the_framework(IMP function, const std::string& what) {
    return framework_strips() ? of_bits(objc::stripped_pointer(bits_of(function)))
                              : authenticated(function, nullptr, what);
}

BOOL add_method_at_border(Class owner, SEL selector, IMP implementation, const char* types) {
    const IMP checked =
        authenticated(implementation, nullptr, std::string("class_addMethod: ") + sel_getName(selector));
    return class_addMethod(owner, selector, checked, types);
}

IMP implementation_at_border(Class owner, SEL selector) {
    const IMP found = class_getMethodImplementation(owner, selector);
    return answering_unsigned ? found : signed_for(found, nullptr);
}

void run_once_at_border(long* once, void* context, void (*function)(void*)) {
    const IMP checked = authenticated(reinterpret_cast<IMP>(function), nullptr, "dispatch_once_f");
    dispatch_once_f(once, context, reinterpret_cast<void (*)(void*)>(checked));
}

void hook_message_at_border(Class owner, SEL selector, IMP replacement, IMP* previous) {
    const std::string what = "MSHookMessageEx: the replacement of " +
                             (owner ? method(owner, selector) : std::string(sel_getName(selector)));
    hook_message(owner, selector, taken_by_the_framework(replacement, what), {previous, true});
}

void hook_function_at_border(IMP symbol, IMP replacement, IMP* previous) {
    const IMP found = taken_by_the_framework(symbol, "MSHookFunction: the function");
    const IMP checked = taken_by_the_framework(replacement, "MSHookFunction: the replacement");
    hook_function(reinterpret_cast<void*>(found), reinterpret_cast<void*>(checked), {previous, true});
}

struct BorderFunction {
    std::string_view symbol;
    IMP function;
};

}  // namespace

void authenticate_addresses(bool unsigned_answers) {
    authenticating = true;
    answering_unsigned = unsigned_answers;
}

void* border_function(std::string_view symbol) {
    static const BorderFunction functions[] = {
        {"class_addMethod", reinterpret_cast<IMP>(&add_method_at_border)},
        {"class_getMethodImplementation", reinterpret_cast<IMP>(&implementation_at_border)},
        {"dispatch_once_f", reinterpret_cast<IMP>(&run_once_at_border)},
        {"MSHookMessageEx", reinterpret_cast<IMP>(&hook_message_at_border)},
        {"MSHookFunction", reinterpret_cast<IMP>(&hook_function_at_border)},
    };
    if (!authenticating) return nullptr;
    for (const auto& [name, function] : functions)
        if (name == symbol) return reinterpret_cast<void*>(function);
    return nullptr;
}

void note_authenticating_image(const void* start, size_t size) {
    const auto* first = static_cast<const char*>(start);
    images().push_back({first, first + size});
}

bool is_in_authenticating_image(const void* address) {
    for (const auto& [start, end] : images())
        if (address >= start && address < end) return true;
    return false;
}

IMP authenticated(IMP function, const void* field, const std::string& what) {
    if (const auto found = objc::authenticated_pointer(bits_of(function), modifier(field)))
        return of_bits(*found);
    std::fprintf(stderr,
                 "%s: the address %p is not signed as it has to be; the device stops when it is called\n",
                 what.c_str(), reinterpret_cast<void*>(function));
    std::fflush(stderr);
    std::abort();
}

IMP signed_for(IMP function, const void* field) {
    return function ? of_bits(objc::signed_pointer(bits_of(function), modifier(field))) : nullptr;
}

}  // namespace sim
