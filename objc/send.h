// Message sends: never variadic, always through the method's exact prototype.
#pragma once
#include "objc/abi.h"
#include "objc/selector.h"
#if defined(OBJC_CHECKED_SENDS) && !defined(__APPLE__)
#include "objc/checked_send.h"
#endif

namespace objc {

namespace detail {
#ifdef __APPLE__
template <class Result>
constexpr auto message_entry() {
#ifdef __x86_64__
    // Results of more than two words are returned in memory, and this processor's runtime has an entry for
    // them.
    if constexpr (!std::is_void_v<Result>)
        if constexpr (sizeof(Crossing<Result>) > 16) return &objc_msgSend_stret;
#endif
    return &objc_msgSend;
}
template <class Result>
constexpr auto super_entry() {
#ifdef __x86_64__
    if constexpr (!std::is_void_v<Result>)
        if constexpr (sizeof(Crossing<Result>) > 16) return &objc_msgSendSuper2_stret;
#endif
    return &objc_msgSendSuper2;
}
#else
/// The implementation that a send has found, after a look at its types where sends are checked.
template <Name Selector, class Result, class... Arguments>
inline IMP checked(IMP found, [[maybe_unused]] Class owner) {
#ifdef OBJC_CHECKED_SENDS
    static constinit IMP fitting = nullptr;
    if (__atomic_load_n(&fitting, __ATOMIC_RELAXED) != found) {
        require_types(owner, selector<Selector>(), stored<sent_types<Result, Arguments...>()>.text);
        __atomic_store_n(&fitting, found, __ATOMIC_RELAXED);
    }
#endif
    return found;
}
#endif
}  // namespace detail

/// Sends the selector to the receiver. nil answers zero of the result's type, structures included.
template <Name Selector, class Result = void, class... Arguments>
inline Result send(id receiver, Arguments... arguments) {
    static_assert(Selector.colons() == sizeof...(Arguments),
                  "the selector and the number of arguments disagree");
    static_assert((std::is_trivially_copyable_v<Arguments> && ...), "pass objects as plain pointers");
#ifdef __APPLE__
    if constexpr (std::is_class_v<Result>)
        if (!receiver) return Result{};  // for nil the runtime clears registers, never memory
    using Prototype = Crossing<Result> (*)(id, SEL, Crossing<Arguments>...);
    return detail::call<Result>(reinterpret_cast<Prototype>(detail::message_entry<Result>()), receiver,
                                selector<Selector>(), departing<Arguments>(arguments)...);
#else
    if (!receiver) [[unlikely]]
        return Result();
#if __has_feature(address_sanitizer)
    (void)*const_cast<Class volatile*>(
        &receiver->isa);  // the runtime is not instrumented: report dead receivers here
#endif
    using Prototype = Crossing<Result> (*)(id, SEL, Crossing<Arguments>...);
    SEL name = selector<Selector>();
    IMP found =
        detail::checked<Selector, Result, Arguments...>(objc_msg_lookup(receiver, name), receiver->isa);
    return detail::call<Result>(reinterpret_cast<Prototype>(found), receiver, name,
                                departing<Arguments>(arguments)...);
#endif
}

/// Sends the selector to the implementation that `current`'s superclass has. For class methods `current` is
/// the metaclass.
template <Name Selector, class Result = void, class... Arguments>
inline Result send_super(id receiver, Class current, Arguments... arguments) {
    static_assert(Selector.colons() == sizeof...(Arguments),
                  "the selector and the number of arguments disagree");
    SEL name = selector<Selector>();
#ifdef __APPLE__
    objc_super super{receiver, current};
    using Prototype = Crossing<Result> (*)(objc_super*, SEL, Crossing<Arguments>...);
    return detail::call<Result>(reinterpret_cast<Prototype>(detail::super_entry<Result>()), &super, name,
                                departing<Arguments>(arguments)...);
#else
    objc_super super{receiver, class_getSuperclass(current)};
    using Prototype = Crossing<Result> (*)(id, SEL, Crossing<Arguments>...);
    IMP found =
        detail::checked<Selector, Result, Arguments...>(objc_msg_lookup_super(&super, name), super.current);
    return detail::call<Result>(reinterpret_cast<Prototype>(found), receiver, name,
                                departing<Arguments>(arguments)...);
#endif
}

}  // namespace objc
