// How values cross the border between C++ and Objective-C.
#pragma once
#include <type_traits>
#include <utility>

#include "objc/encoding.h"

namespace objc {

/// bool, char and short. The device lets a callee assume that they arrive widened to 32 bits, other compilers
/// promise less, and GNUstep's BOOL may hold any byte; so they cross as int, both ways, and are narrowed
/// here.
template <class T>
concept SmallInteger = std::is_integral_v<T> && sizeof(T) < sizeof(int);

namespace detail {
template <class T>
struct CrossingOf {
    using type = T;
};
template <SmallInteger T>
struct CrossingOf<T> {
    using type = int;
};
template <class T>
struct CrossingOf<strong<T>> {
    using type = T*;  // ownership travels with the pointer
};
}  // namespace detail

/// The type that stands in a method's prototype for the C++ type T.
template <class T>
using Crossing = typename detail::CrossingOf<T>::type;

/// A value that came over the border.
template <class T>
constexpr T arrived(Crossing<T> value) {
    if constexpr (std::is_same_v<T, bool>)
        return (value & 0xff) != 0;
    else if constexpr (requires { T::adopt(value); })
        return T::adopt(value);
    else
        return static_cast<T>(value);
}

/// A value that goes over the border.
template <class T>
constexpr Crossing<T> departing(T value) {
    if constexpr (requires { value.leak(); })
        return value.leak();
    else
        return static_cast<Crossing<T>>(value);
}

namespace detail {
/// Calls a function whose prototype is made of crossing types, and answers what it returned.
template <class Result, class Function, class... Arguments>
inline Result call(Function function, Arguments... arguments) {
    if constexpr (std::is_void_v<Result>)
        function(arguments...);
    else
        return arrived<Result>(function(arguments...));
}
}  // namespace detail

/// So many that small integers stay in arm64's six registers beside self and _cmd: on its stack a bool would
/// not be found where an int was put. x86-64's stack has eight bytes for every argument.
template <class... Arguments>
concept PassedAlike =
    sizeof...(Arguments) <= 8 && (sizeof...(Arguments) <= 6 || !(SmallInteger<Arguments> || ...));

}  // namespace objc
