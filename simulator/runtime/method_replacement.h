// Replacing and adding methods of classes that exist.
#pragma once
#include <initializer_list>

#include "objc/entry.h"
#include "objc/hook.h"
#include "objc/selector.h"

namespace sim {

/// Makes `replacement` what `owner` and its subclasses do; where the method is inherited, the superclass
/// keeps what it has. Answers the previous implementation, or null, and nothing happens, where there was no
/// method.
IMP replace_method(Class owner, SEL selector, IMP replacement);
/// The same, of a method that the class has or inherits.
IMP replace_method(Class owner, Method method, IMP replacement);

/// libobjc's class_addMethod: false, and nothing happens, if the class has a method of its own. The exported
/// function of that name keeps a record; additions by the simulator itself are not recorded.
bool add_method(Class owner, SEL selector, IMP implementation, const char* types);

/// A method to be.
struct NewMethod {
    SEL selector;
    IMP implementation;
    const char* types;
};

/// The C++ function as a method. It is a member function of an interface's subclass, or takes the Class first
/// to be a class method.
template <objc::Name Selector, auto Function>
NewMethod new_method() {
    using Entry = objc::Entry<Function>;
    static_assert(Selector.colons() == Entry::arity, "the selector and the function's parameters disagree");
    return {objc::selector<Selector>(), reinterpret_cast<IMP>(&Entry::call), objc::stored<Entry::types>.text};
}

/// Adds methods that the class does not have, all at once: what an addition takes grows with the classes
/// below that have been used. They are not recorded either.
void add_methods(Class owner, std::initializer_list<NewMethod> methods);

/// Gives a class of Foundation the C++ function as a method, in place of the one it has or in addition;
/// answers the previous implementation or null:
///
///     struct Text : NSString {
///         int intValue() { … }
///     };
///     redefine<"intValue", &Text::intValue>(NSString::class_object());
template <objc::Name Selector, auto Function>
IMP redefine(Class owner) {
    if (objc::Entry<Function>::on_class) owner = object_getClass(reinterpret_cast<id>(owner));
    const NewMethod method = new_method<Selector, Function>();
    IMP previous = replace_method(owner, method.selector, method.implementation);
    if (!previous) add_method(owner, method.selector, method.implementation, method.types);
    return previous;
}

/// Calls `visit` with each subclass of `owner`, or its metaclass, that has a method of its own.
void for_each_override(Class owner, bool on_class, SEL selector, void (*visit)(Class));

/// Redefines the method in the class and in each of its subclasses that has one of its own, as the members of
/// a class cluster do.
template <objc::Name Selector, auto Function>
void correct_everywhere(Class owner) {
    redefine<Selector, Function>(owner);
    for_each_override(owner, objc::Entry<Function>::on_class, objc::selector<Selector>(),
                      [](Class overriding) { redefine<Selector, Function>(overriding); });
}

}  // namespace sim
