// Entry thunks: how the runtime calls a C++ function as a method.
#pragma once
#include "objc/abi.h"

namespace objc {

namespace detail {
template <class Result, class Call>
inline Crossing<Result> answer(Call call) {
    if constexpr (std::is_void_v<Result>)
        call();
    else
        return departing<Result>(call());
}
}  // namespace detail

/// The method made of a C++ function: `types` is its encoding, `call` its implementation.
/// Instance methods are member functions; a class method is a function whose first parameter is the Class.
template <auto Function, class Signature = decltype(Function)>
struct Entry {
    static_assert(sizeof(Signature) == 0,
                  "a method is a member function, a class method a function that takes the Class first");
};

template <auto Function, class Self, class Result, class... Arguments>
struct Entry<Function, Result (Self::*)(Arguments...)> {
    static_assert(PassedAlike<Arguments...>, "more arguments than both processors pass alike");
    static constexpr size_t arity = sizeof...(Arguments);
    static constexpr bool on_class = false;
    static constexpr auto types = encode_method<Result, Arguments...>();

    static Crossing<Result> call(id self, SEL, Crossing<Arguments>... arguments) {
        return detail::answer<Result>(
            [&] { return (static_cast<Self*>(self)->*Function)(arrived<Arguments>(arguments)...); });
    }
};

template <auto Function, class Result, class... Arguments>
struct Entry<Function, Result (*)(Class, Arguments...)> {
    static_assert(PassedAlike<Arguments...>, "more arguments than both processors pass alike");
    static constexpr size_t arity = sizeof...(Arguments);
    static constexpr bool on_class = true;
    static constexpr auto types = encode_method<Result, Arguments...>();

    static Crossing<Result> call(id self, SEL, Crossing<Arguments>... arguments) {
        return detail::answer<Result>(
            [&] { return Function(reinterpret_cast<Class>(self), arrived<Arguments>(arguments)...); });
    }
};

}  // namespace objc
