// Objective-C exceptions, caught from C++. On Linux only: the library itself catches none.
#pragma once
#include <cxxabi.h>
#include <unwind.h>

#include <cstdint>

#include "objc/runtime.h"

namespace objc {

namespace detail {

// What the C++ runtime keeps of an exception in flight, up to the header that it shares with other languages.
// The Itanium ABI fixes this layout.
struct CaughtHeader {
    void *type, *destructor, *unexpected_handler, *terminate_handler;
    CaughtHeader* next;
    int handler_count, handler_switch_value;
    const uint8_t *action_record, *language_specific_data;
    uintptr_t catch_temporary;
    void* adjusted_pointer;
    _Unwind_Exception unwind;
};

/// The object thrown by the exception that is being caught; nil if it is not one of Objective-C's.
inline id object_in_flight() {
    struct Globals {
        CaughtHeader* caught;
        unsigned uncaught;
    };
    auto* exception = &reinterpret_cast<Globals*>(abi::__cxa_get_globals())->caught->unwind;
    constexpr uint64_t of_gnu_objc = 0x474e55434f424a43;  // "GNUCOBJC"
    if (exception->exception_class != of_gnu_objc) return nullptr;
    return *reinterpret_cast<id*>(exception + 1);
}

}  // namespace detail

/// Runs the function and answers what it raised, an NSException as a rule, or nil when it returned. The
/// exception is autoreleased; a pool of the function's own must not be what holds it. C++ exceptions pass
/// through.
template <class Function>
id caught(Function&& function) {
    try {
        function();
        return nullptr;
    } catch (...) {
        if (id raised = detail::object_in_flight()) return raised;
        throw;
    }
}

}  // namespace objc
