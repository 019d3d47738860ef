// Type encodings, derived from C++ types: what the compiler of the platform writes for the same declaration.
#pragma once
#include <type_traits>

#include "objc/name.h"
#include "objc/runtime.h"

namespace objc {

template <class T>
class strong;
template <class T>
class weak;

template <class T>
concept ObjectType = std::is_base_of_v<objc_object, T>;

/// An Objective-C class that names itself, so that instance variables and properties can be typed.
template <class T>
concept NamedClass = ObjectType<T> && requires { T::runtime_name; };

/// Structures of the frameworks specialise this beside their declaration: `Name("{CGPoint=dd}")`.
template <class T>
inline constexpr auto structure_encoding = nullptr;

template <class T>
consteval auto encode();

namespace detail {
template <class T>
consteval auto encode_pointer() {
    if constexpr (std::is_same_v<T, objc_class>)
        return Name("#");
    else if constexpr (std::is_same_v<T, const objc_selector>)
        return Name(":");
    else if constexpr (std::is_same_v<T, const char>)
        return Name("r*");
    else if constexpr (std::is_same_v<T, char>)
        return Name("*");
    else if constexpr (std::is_same_v<T, const void>)
        return Name("r^v");
    else if constexpr (!std::is_same_v<std::remove_cv_t<decltype(structure_encoding<T>)>, std::nullptr_t>)
        return Name("^") + structure_encoding<T>;
    else if constexpr (std::is_void_v<T> || std::is_function_v<T>)
        return Name("^v");
    else if constexpr (std::is_class_v<T> && ObjectType<T>)
        return Name("@");
    else
        return Name("^") + encode<T>();
}
}  // namespace detail

/// The encoding of one type as it stands in a method's types.
template <class T>
consteval auto encode() {
    if constexpr (std::is_void_v<T>)
        return Name("v");
    else if constexpr (std::is_same_v<T, bool>)
        return Name("B");
    else if constexpr (std::is_same_v<T, signed char> || std::is_same_v<T, char>)
        return Name("c");
    else if constexpr (std::is_same_v<T, unsigned char>)
        return Name("C");
    else if constexpr (std::is_same_v<T, short>)
        return Name("s");
    else if constexpr (std::is_same_v<T, unsigned short>)
        return Name("S");
    else if constexpr (std::is_same_v<T, int>)
        return Name("i");
    else if constexpr (std::is_same_v<T, unsigned>)
        return Name("I");
    else if constexpr (std::is_same_v<T, long> || std::is_same_v<T, long long>)
        return Name("q");
    else if constexpr (std::is_same_v<T, unsigned long> || std::is_same_v<T, unsigned long long>)
        return Name("Q");
    else if constexpr (std::is_same_v<T, float>)
        return Name("f");
    else if constexpr (std::is_same_v<T, double>)
        return Name("d");
    else if constexpr (std::is_pointer_v<T>)
        return detail::encode_pointer<std::remove_pointer_t<T>>();
    else if constexpr (requires { typename T::object_type; })
        return Name("@");  // strong<T>, weak<T>
    else if constexpr (!std::is_same_v<std::remove_cv_t<decltype(structure_encoding<T>)>, std::nullptr_t>)
        return structure_encoding<T>;
    else
        static_assert(sizeof(T) == 0, "this C++ type has no Objective-C type encoding");
}

/// The encoding of an instance variable or property, which names the class of an object. A C++ type that no
/// Objective-C caller can read (a container in the simulator) is unknown, "?".
template <class T>
consteval auto encode_variable() {
    if constexpr (requires { typename T::object_type; }) {
        if constexpr (NamedClass<typename T::object_type>)
            return Name("@\"") + T::object_type::runtime_name + Name("\"");
        else
            return Name("@");
    } else if constexpr (std::is_class_v<T> &&
                         std::is_same_v<std::remove_cv_t<decltype(structure_encoding<T>)>, std::nullptr_t>) {
        return Name("?");
    } else {
        return encode<T>();
    }
}

namespace detail {
// bool, char and short take the room of an int among the arguments.
template <class T>
constexpr size_t argument_size = std::is_integral_v<T> && sizeof(T) < 4 ? 4 : sizeof(T);

enum class Objects { plain, by_class };

template <Objects Kind, class T>
consteval auto encode_part() {
    if constexpr (Kind == Objects::by_class && encode<T>() == Name("@") &&
                  requires { std::remove_pointer_t<T>::runtime_name; })
        return Name("@\"") + std::remove_pointer_t<T>::runtime_name + Name("\"");
    else
        return encode<T>();
}

template <Objects Kind, size_t Offset>
consteval auto encode_arguments() {
    return Name("");
}
template <Objects Kind, size_t Offset, class T, class... Rest>
consteval auto encode_arguments() {
    return encode_part<Kind, T>() + decimal<Offset>() +
           encode_arguments<Kind, Offset + argument_size<T>, Rest...>();
}

template <Objects Kind, class Result, class... Arguments>
consteval auto encode_frame() {
    return encode_part<Kind, Result>() + decimal<(16 + ... + argument_size<Arguments>)>() + Name("@0:8") +
           encode_arguments<Kind, 16, Arguments...>();
}
}  // namespace detail

/// A method's types with the frame's size and the arguments' offsets: "v24@0:8@16".
template <class Result, class... Arguments>
consteval auto encode_method() {
    return detail::encode_frame<detail::Objects::plain, Result, Arguments...>();
}

/// The same with the objects' classes, as protocols have it beside: "v24@0:8@\"UIColor\"16".
template <class Result, class... Arguments>
consteval auto encode_extended_method() {
    return detail::encode_frame<detail::Objects::by_class, Result, Arguments...>();
}

/// A method's types alone, the form used where methods are added by hand: "v@:@".
template <class Result, class... Arguments>
consteval auto encode_plain_method() {
    return ((encode<Result>() + Name("@:")) + ... + encode<Arguments>());
}

}  // namespace objc
