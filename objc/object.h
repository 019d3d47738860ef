// Interfaces: the typed face of a class. A pointer to the C++ struct is the object pointer.
#pragma once
#include "objc/send.h"

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

    /// A new object, to be initialised at once: `UIView::alloc()->initWithFrame(frame)`.
    static Self* alloc() { return class_send<"alloc", Self*>(); }
};

/// The interface of the protocol `ProtocolName`: of objects of any class that conforms to it.
template <Name ProtocolName>
struct ProtocolInterface : Object {
    static constexpr auto runtime_name = Name("<") + ProtocolName + Name(">");
};

}  // namespace objc
