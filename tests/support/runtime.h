// What tests reach of objects beside their selectors: classes of their own, methods that they stand in for,
// and instance variables.
#pragma once
#include "objc/instance_variable.h"
#include "platform/substrate.h"
#include "support/phone.h"

namespace test {

/// A function, or a lambda that captures nothing, as a method.
template <class Function>
IMP as_method(Function function) {
    return reinterpret_cast<IMP>(+function);
}

/// A method for a class of a test's own: "v@:@" are its types.
struct OwnMethod {
    const char* selector;
    IMP function;
    const char* types;
};
template <class Function>
OwnMethod own_method(const char* selector, Function function, const char* types) {
    return {selector, as_method(function), types};
}
/// A class of that name with these methods, made when it is first asked for.
inline Class class_with(const char* name, const char* superclass, const std::vector<OwnMethod>& methods) {
    if (Class known = objc_getClass(name)) return known;
    Class made = objc_allocateClassPair(objc_getClass(superclass), name, 0);
    for (const OwnMethod& method : methods)
        class_addMethod(made, sel_registerName(method.selector), method.function, method.types);
    objc_registerClassPair(made);
    return made;
}

using objc::Side;

/// Puts a function of the method's own prototype (bool as int) in the method's place, for the named class
/// only, and answers what stood there. Before the library is loaded it stands in for the system, and sees
/// what a hook passes on; afterwards it stands before the library. The class must have the method.
template <class Function>
IMP stand_in(const char* class_name, const char* selector, Function function, Side side = Side::instance) {
    Class target = objc_getClass(class_name);
    EXPECT_NE(target, nullptr) << "no class " << class_name;
    IMP previous = nullptr;
    MSHookMessageEx(side == Side::on_class ? object_getClass(reinterpret_cast<id>(target)) : target,
                    sel_registerName(selector), as_method(function), &previous);
    EXPECT_NE(previous, nullptr) << class_name << " has no " << selector;
    return previous;
}

/// Calls what `stand_in` answered.
template <class Result = void, class... Arguments>
Result call(IMP previous, id self, SEL selector, Arguments... arguments) {
    return reinterpret_cast<Result (*)(id, SEL, Arguments...)>(previous)(self, selector, arguments...);
}

/// An object's instance variable of that name, of the type of its values: `variable<UIView*>(cell, "label")`.
template <class T>
T& variable(id object, const char* name) {
    EXPECT_NE(class_getInstanceVariable(object_getClass(object), name), nullptr)
        << object_getClassName(object) << " has no variable " << name;
    return objc::instance_variable<T>(object, name);
}

}  // namespace test
