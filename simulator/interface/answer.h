// What every function of the C interface does around its work: a status and one line come out of it.
#pragma once
#include <exception>
#include <optional>
#include <string>

#include "interface/boot.h"
#include "interface/refusal.h"
#include "objc/exception.h"
#include "platform/uikit.h"
#include "simulator.h"

namespace sim {

std::string& last_error();

/// Keeps the message, as one line, and answers the status.
sim_status refuse(sim_status status, std::string message);

/// Of what was raised.
std::string name_and_reason(id raised);

/// Runs the body and makes a status and a line of whatever it throws or raises.
template <class Body>
sim_status answer(Body body) noexcept {
    last_error().clear();
    try {
        // Around the body and not inside: a pool there would take the exception along when it unwinds.
        std::optional<objc::AutoreleasePool> pool;
        if (is_booted()) pool.emplace();
        if (id raised = objc::caught(body))
            return refuse(SIM_RAISED, "an exception was raised: " + name_and_reason(raised));
        return SIM_OK;
    } catch (const Refusal& refusal) {
        return refuse(refusal.status(), refusal.what());
    } catch (const std::exception& error) {
        return refuse(SIM_FAILED, error.what());
    } catch (...) {
        return refuse(SIM_FAILED, "an unknown C++ exception was thrown");
    }
}

template <class T>
void require(const T* pointer, const char* function, const char* parameter) {
    if (!pointer) throw Refusal(SIM_MISUSE, std::string(function) + ": " + parameter + " is NULL");
}

inline void require_boot(const char* function) {
    if (!is_booted())
        throw Refusal(SIM_MISUSE, std::string(function) + ": the phone is not on; call sim_boot first");
}

/// The object as one of that class. It is asked nothing: an object of any root class may have been given.
template <class Wanted>
Wanted* object_of(void* given, const char* function, const char* parameter) {
    require(given, function, parameter);
    require_boot(function);
    auto* object = static_cast<id>(given);
    const Class wanted = Wanted::class_object();
    for (Class above = object_getClass(object); above; above = class_getSuperclass(above))
        if (above == wanted) return static_cast<Wanted*>(object);
    throw Refusal(SIM_MISUSE, std::string(function) + ": the object is of the class " +
                                  object_getClassName(object) + ", which is not a " + class_getName(wanted));
}

}  // namespace sim
