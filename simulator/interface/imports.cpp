// What the imports of a library built for the device are bound to: classes, the few symbols that have another
// form here, and otherwise what stands under the name in this module or in one that it is linked with.
#include "interface/imports.h"

#include <dlfcn.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "interface/dynamic_linker.h"
#include "interface/processes.h"
#include "objc/runtime.h"
#include "runtime/exceptions.h"
#include "runtime/exported.h"
#include "runtime/injection/authentication.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

void clear_bytes(void* bytes, size_t count) { std::memset(bytes, 0, count); }

void fill_with_pattern(void* bytes, const void* pattern, size_t count) {
    for (size_t i = 0; i < count; ++i)
        static_cast<char*>(bytes)[i] = static_cast<const char*>(pattern)[i % 16];
}

struct SineAndCosine {
    double sine, cosine;
};
SineAndCosine sine_and_cosine(double angle) { return {std::sin(angle), std::cos(angle)}; }

// Everything is bound at load, so that the stub of the device's lazy binder is never run.
[[noreturn]] void bind_lazily() {
    not_modelled("dyld_stub_binder", "imports are bound when the library is loaded");
}

Class class_of(id object) { return object_getClass(object); }

/// The class of a library's constant strings, which on the device is in use long before a library is loaded.
/// libobjc gets a class ready when it is first used, which takes some time.
Class constant_string_class() {
    Class found = objc_getClass("__NSCFConstantString");
    class_getMethodImplementation(found, sel_registerName("length"));
    return found;
}

// Every class of the dylib refers to it; the runtime here looks at no cache of the device's kind.
alignas(16) char empty_cache[16];

template <class Function>
void* address(Function* function) {
    return reinterpret_cast<void*>(function);
}

struct Import {
    std::string_view symbol;
    void* address;
};

void* in_this_module_or_below(const std::string& symbol) {
    static void* const here = [] {
        Dl_info module;
        dladdr(address(&resolve_import), &module);
        return dlopen(module.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    }();
    return dlsym(here, symbol.c_str());
}

}  // namespace

void* resolve_import(const std::string& symbol) {
    auto class_after = [&](std::string_view prefix) -> Class {
        return symbol.starts_with(prefix) ? objc_lookUpClass(symbol.c_str() + prefix.size()) : nullptr;
    };
    // A class's symbol is the class: its address goes into the slots that refer to it.
    if (Class found = class_after("OBJC_CLASS_$_")) return found;
    if (Class found = class_after("OBJC_METACLASS_$_")) return object_getClass(reinterpret_cast<id>(found));

    constexpr std::string_view caught = "OBJC_EHTYPE_$_";
    if (symbol.starts_with(caught))
        return const_cast<CaughtType*>(caught_type(std::string_view(symbol).substr(caught.size())));

    static const Import imports[] = {
        {"__CFConstantStringClassReference", constant_string_class()},
        {"_NSConcreteStackBlock", objc_getClass("__NSStackBlock__")},
        {"_NSConcreteGlobalBlock", objc_getClass("__NSGlobalBlock__")},
        {"_objc_empty_cache", empty_cache},
        {"object_getClass", address(&class_of)},  // inline in this runtime
        {"dyld_stub_binder", address(&bind_lazily)},
        {"__bzero", address(&clear_bytes)},
        {"memset_pattern16", address(&fill_with_pattern)},
        {"__sincos_stret", address(&sine_and_cosine)},
        // The process's, which a sanitizer puts in the place of the C library's.
        {"malloc", address(&std::malloc)},
        {"free", address(&std::free)},
        // What a program asks about the device, and not about the host.
        {"dlopen", address(&open_library)},
        {"dlsym", address(&symbol_of)},
        {"dladdr", address(&information_about)},
        {"dlerror", address(&last_linking_error)},
        {"posix_spawn", address(&start_process)},
        {"_NSGetExecutablePath", address(&path_of_executable)},
        {"sysctlbyname", address(&system_number)},
    };
    for (const Import& import : imports)
        if (import.symbol == symbol) return import.address;
    if (void* at_border = border_function(symbol)) return at_border;
    return in_this_module_or_below(symbol);
}

}  // namespace sim
