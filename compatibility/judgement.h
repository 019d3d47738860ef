// What the library would find on a system: one judgement, for the systems that files describe and for the one
// that is running.
#pragma once
#include <string>

#include "compatibility/look_ups.h"
#include "objc/descriptions/passed_types.h"

namespace compatibility {

/// Whether a system has something, as far as is known.
enum class Presence { there, missing, unrecorded };

/// A row of the hook table, by what is done with its target.
enum class How { replaced, added, function };

/// The library would install it or find it; it is not there; it is another than the library takes it for; or
/// that is not known.
enum class Verdict { well, missing, differs, unrecorded };

enum class Reason {
    none,
    /// Not there, or not known to be there.
    class_absent,
    method_absent,
    function_absent,
    variable_absent,
    /// Of a method; the library would call it, or be called, wrongly.
    other_types,
    /// Of a variable.
    no_object,
    /// The class has the method that would be added.
    own_method,
    /// The library was there, and its hook did nothing.
    no_effect,
};

struct Judgement {
    Verdict verdict = Verdict::well;
    Reason reason = Reason::none;
    /// What the system says of the types; "" where it says nothing.
    std::string types = {};
};

/// The class in "-[Class selector]", and the selector.
inline std::string class_of_method(const std::string& method) {
    return method.substr(2, method.find(' ') - 2);
}
inline std::string selector_of_method(const std::string& method) {
    const size_t start = method.find(' ') + 1;
    return method.substr(start, method.find(']') - start);
}

/// Whether both pass everything in the same way. Names of structures, what a pointer points to, and whether a
/// BOOL is a char or a bool (it depends on the processor) make no difference.
inline bool pass_alike(const std::string& plain_types, const std::string& others) {
    return objc::passed_types(plain_types) == objc::passed_types(others) && objc::passed_types(plain_types);
}

inline Judgement judge_presence(Presence presence, Reason absence) {
    switch (presence) {
        case Presence::there: break;
        case Presence::missing: return {Verdict::missing, absence};
        case Presence::unrecorded: return {Verdict::unrecorded, absence};
    }
    return {};
}

/// A member has its `presence` and its `types`.
template <class Member>
Judgement judge_method(const Member& method, const std::string& expected) {
    Judgement judgement = judge_presence(method.presence, Reason::method_absent);
    judgement.types = method.types;
    if (judgement.verdict == Verdict::well && !method.types.empty() && !pass_alike(method.types, expected)) {
        judgement.verdict = Verdict::differs;
        judgement.reason = Reason::other_types;
    }
    return judgement;
}

/// A system answers class_named, method, own_method, variable, function and had_no_effect.
template <class System>
Judgement judge_hook(const std::string& target, How how, const std::string& types, const System& system) {
    Judgement judgement;
    if (how == How::function)
        judgement = judge_presence(system.function(target), Reason::function_absent);
    else
        judgement = judge_presence(system.class_named(class_of_method(target)), Reason::class_absent);
    if (judgement.verdict == Verdict::well && how == How::replaced)
        judgement = judge_method(system.method(target), types);
    if (judgement.verdict == Verdict::well && how == How::added) {
        const Presence own = system.own_method(target).presence;
        if (own == Presence::there) judgement = {Verdict::missing, Reason::own_method};
        if (own == Presence::unrecorded) judgement = {Verdict::unrecorded, Reason::method_absent};
    }
    if (judgement.verdict == Verdict::well && system.had_no_effect(target)) {
        judgement.verdict = Verdict::missing;
        judgement.reason = Reason::no_effect;
    }
    return judgement;
}

template <class System>
Judgement judge_look_up(const LookUp& wanted, const System& system) {
    using enum LookUp::Kind;
    const Presence owner = system.class_named(wanted.class_name);
    // Nothing reads a variable of a class that is not there: its hooks are not either.
    if (owner == Presence::missing && wanted.kind == variable) return {};
    if (owner != Presence::there) return judge_presence(owner, Reason::class_absent);
    if (wanted.kind == class_method) return judge_method(system.method(wanted.member), wanted.types);
    if (wanted.kind == class_name) return {};
    const auto found = system.variable(wanted.class_name, wanted.member);
    Judgement judgement = judge_presence(found.presence, Reason::variable_absent);
    judgement.types = found.types;
    if (judgement.verdict == Verdict::well && !found.types.empty() && found.types[0] != '@') {
        judgement.verdict = Verdict::differs;
        judgement.reason = Reason::no_object;
    }
    return judgement;
}

}  // namespace compatibility
