// Checked sends: the types of the method that a send finds are held against those that it was sent with.
#pragma once
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "objc/descriptions/passed_types.h"
#include "objc/encoding.h"

namespace objc::detail {

/// The type of a value that is sent, as `passed_types` reads it. What a pointer points to may be known by its
/// name only, and does not matter.
template <class T>
consteval auto sent_type() {
    if constexpr (std::is_same_v<T, char16_t>)
        return Name("S");
    else if constexpr (std::is_pointer_v<T> && !std::is_same_v<T, SEL>)
        return Name("^v");
    else
        return encode<T>();
}

template <class Result, class... Arguments>
consteval auto sent_types() {
    return ((sent_type<Result>() + Name("@:")) + ... + sent_type<Arguments>());
}

/// Whether a method of these types may be called as if it had the others. Sends differ from methods
/// legitimately in these ways, and in no other:
/// - names, qualifiers and offsets, and how BOOL is encoded, which `passed_types` leaves out;
/// - an object, a class and a CoreFoundation reference are pointers;
/// - long is "l" or "q", as the compiler has it;
/// - an argument that the device has as NSUInteger or NSInteger may be an int of Foundation's on Linux
///   (encodings, options): it reads the lower half of the register, which holds all of it;
/// - who sends for no result may ignore one, unless it comes in memory that the sender provides.
inline bool fits(const char* method_types, const char* sent_types, bool is_foundations) {
    auto method = passed_types(method_types), sent = passed_types(sent_types);
    if (!method || !sent || method->empty() || method->size() != sent->size()) return false;
    for (auto* types : {&*method, &*sent})
        for (std::string& type : *types)
            for (char& c : type) c = c == 'l' ? 'q' : c == 'L' ? 'Q' : c == '@' || c == '#' ? '^' : c;
    const bool in_memory = method->front().starts_with('{') || method->front().starts_with('(');
    if (sent->front() == "v" && !in_memory) method->front() = "v";
    for (size_t i = 1; is_foundations && i < sent->size(); ++i)
        if (((*sent)[i] == "Q" || (*sent)[i] == "q") && ((*method)[i] == "I" || (*method)[i] == "i"))
            (*method)[i] = (*sent)[i];
    return *method == *sent;
}

/// Whether the method is one of GNUstep's Foundation, and not of the model or the library.
inline bool is_foundations(Method method) {
    Dl_info where{};
    return dladdr(reinterpret_cast<void*>(method_getImplementation(method)), &where) && where.dli_fname &&
           std::strstr(where.dli_fname, "gnustep-base");
}

/// Ends the process where the class's method is of other types than it was sent with. What the class lacks is
/// the runtime's affair.
inline void require_types(Class owner, SEL name, const char* sent_types) {
    Method method = class_getInstanceMethod(owner, name);
    if (!method) return;
    const char* types = method_getTypeEncoding(method);
    if (fits(types, sent_types, is_foundations(method))) return;
    std::fprintf(stderr, "%c[%s %s] was sent as %s, and its types are %s\n",
                 class_isMetaClass(owner) ? '+' : '-', class_getName(owner), sel_getName(name), sent_types,
                 types);
    std::abort();
}

}  // namespace objc::detail
