#include "runtime/method_replacement.h"

#include <dlfcn.h>

#include <cstdlib>
#include <vector>

#include "runtime/not_modelled.h"

namespace sim {
namespace {

/// What libobjc's own function of the name does, past the simulator's that stands before it.
template <class Function>
Function* in_libobjc(const char* name) {
    void* library = dlopen("libobjc.so.4", RTLD_LAZY | RTLD_NOLOAD);
    void* found = library ? dlsym(library, name) : nullptr;
    if (!found) not_modelled(name, "the Objective-C runtime has no such function");
    return reinterpret_cast<Function*>(found);
}

/// libobjc's own entry for a method.
struct MethodEntry {
    SEL selector;
    const char* types;
    IMP implementation;
};

/// libobjc's own list of a class's methods.
struct MethodList {
    MethodList* next;
    int count;
    MethodEntry entries[];
};

/// Whether the class itself has the method, whatever it inherits.
bool has_own(Class owner, SEL selector) {
    unsigned count = 0;
    Method* methods = class_copyMethodList(owner, &count);
    bool found = false;
    for (unsigned i = 0; i < count && !found; ++i) found = sel_isEqual(method_getName(methods[i]), selector);
    std::free(methods);
    return found;
}

bool inherits(Class derived, Class ancestor) {
    for (Class each = derived; each; each = class_getSuperclass(each))
        if (each == ancestor) return true;
    return false;
}

}  // namespace

bool add_method(Class owner, SEL selector, IMP implementation, const char* types) {
    static auto* const original = in_libobjc<BOOL(Class, SEL, IMP, const char*)>("class_addMethod");
    return original(owner, selector, implementation, types);
}

void add_methods(Class owner, std::initializer_list<NewMethod> methods) {
    static auto* const add = in_libobjc<void(Class, MethodList*)>("class_add_method_list");
    // It is the class's from now on, and begins with names; libobjc puts the selectors there.
    void* memory = std::calloc(1, sizeof(MethodList) + methods.size() * sizeof(MethodEntry));
    auto* const list = static_cast<MethodList*>(memory);
    for (const auto& [selector, implementation, types] : methods)
        list->entries[list->count++] = {reinterpret_cast<SEL>(const_cast<char*>(sel_getName(selector))),
                                        types, implementation};
    add(owner, list);
}

IMP replace_method(Class owner, SEL selector, IMP replacement) {
    Method method = class_getInstanceMethod(owner, selector);
    return method ? replace_method(owner, method, replacement) : nullptr;
}

IMP replace_method(Class owner, Method method, IMP replacement) {
    IMP previous = method_getImplementation(method);
    if (add_method(owner, method_getName(method), replacement, method_getTypeEncoding(method)))
        return previous;
    // method_setImplementation would search all methods of all classes for others to update, and still leave
    // the tables of subclasses that have been used as they were.
    reinterpret_cast<MethodEntry*>(method)->implementation = replacement;
    __objc_update_dispatch_table_for_class(owner);
    return previous;
}

void for_each_override(Class owner, bool on_class, SEL selector, void (*visit)(Class)) {
    std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
    classes.resize(static_cast<size_t>(objc_getClassList(classes.data(), static_cast<int>(classes.size()))));
    for (Class each : classes) {
        if (each == owner || !inherits(each, owner)) continue;
        Class methods = on_class ? object_getClass(reinterpret_cast<id>(each)) : each;
        if (has_own(methods, selector)) visit(each);
    }
}

}  // namespace sim
