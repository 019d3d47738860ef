// Interfaces: the typed face of a class. A pointer to the C++ struct is the object pointer.
#pragma once
#include "objc/send.h"
#include "objc/strong.h"

namespace objc {

/// The class of that name, or nil while there is none. The found class is remembered, its absence is not.
template <Name ClassName>
inline Class class_named() {
    static constinit Class slot = nullptr;
    Class found = __atomic_load_n(&slot, __ATOMIC_RELAXED);
    if (!found) [[unlikely]] {
        found = objc_getClass(stored<ClassName>.text);
        __atomic_store_n(&slot, found, __ATOMIC_RELAXED);
    }
    return found;
}

/// The root of every interface. Its methods only send; they are written in each interface's own words:
///
///     double alpha() { return send<"alpha", double>(); }
struct Object : objc_object {
    template <Name Selector, class Result = void, class... Arguments>
    Result send(Arguments... arguments) {
        return objc::send<Selector, Result>(this, arguments...);
    }
};

/// A new object of a class that is known at run time only, initialised and owned by the caller. `Made` is the
/// interface of the class or of one above it.
template <Name Initialiser, class Made, class... Arguments>
strong<Made> make(Class of, Arguments... arguments) {
    static_assert(Initialiser.begins_with("init"), "an object is made by one of its initialisers");
    static_assert((!std::is_same_v<Arguments, int> && ...), "say the parameter's type: NSInteger{4}");
    return strong<Made>::adopt(
        send<Initialiser, Made*>(send<"alloc", id>(reinterpret_cast<id>(of)), arguments...));
}

/// The interface of the class `ClassName`, whose superclass's interface is `Super`:
///
///     struct UIColor : objc::Interface<UIColor, "UIColor", NSObject> {
///         static UIColor* clearColor() { return class_send<"clearColor", UIColor*>(); }
///     };
///
/// A body sends and does nothing else, so a caller is heard by whatever method stands behind the selector,
/// a replaced one included.
template <class Self, Name ClassName, class SuperInterface = Object>
struct Interface : SuperInterface {
    using Super = SuperInterface;
    static constexpr auto runtime_name = ClassName;

    static Class class_object() {
        static_assert(sizeof(Self) == sizeof(objc_object),
                      "an interface has no data members: Ivars hold state");
        return class_named<ClassName>();
    }

    template <Name Selector, class Result = void, class... Arguments>
    static Result class_send(Arguments... arguments) {
        return objc::send<Selector, Result>(reinterpret_cast<id>(class_object()), arguments...);
    }

    /// A new object, to be initialised at once through one of the interface's own initialisers:
    /// `HCColorSlider::alloc()->initWithFrame(frame, type)`.
    static Self* alloc() { return class_send<"alloc", Self*>(); }

    /// A new object, initialised and owned by the caller: `UISlider::make<"initWithFrame:">(frame)`. The
    /// arguments have the very types of the method's parameters.
    template <Name Initialiser = "init", class... Arguments>
    static strong<Self> make(Arguments... arguments) {
        return objc::make<Initialiser, Self>(class_object(), arguments...);
    }
};

/// The interface of the protocol `ProtocolName`: of objects of any class that conforms to it.
template <Name ProtocolName>
struct ProtocolInterface : Object {
    static constexpr auto runtime_name = Name("<") + ProtocolName + Name(">");
};

}  // namespace objc
