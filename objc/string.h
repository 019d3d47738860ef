// Constant strings: static objects in both homes, so that a hook which answers a name allocates nothing.
#pragma once
#include "objc/name.h"
#include "objc/runtime.h"

struct NSString;

namespace objc {

#ifdef __APPLE__
extern "C" char __CFConstantStringClassReference[];

namespace detail {
struct ConstantStringObject {
    const void* isa;
    int flags;
    const void* characters;
    long length;
};
static_assert(sizeof(ConstantStringObject) == 32);

template <Name Text>
consteval bool is_ascii() {
    for (char c : Text.text)
        if (static_cast<unsigned char>(c) >= 0x80) return false;
    return true;
}

namespace {
template <Name Text>
struct ConstantString {
    static_assert(is_ascii<Text>(), "constant strings are ASCII: nothing in the library needs more");
    static constexpr int eight_bit_flags = 0x7c8;
    [[gnu::section("__TEXT,__cstring,cstring_literals")]] static constexpr auto characters = Text;
    [[gnu::section("__DATA,__cfstring")]] static constinit inline ConstantStringObject object{
        __CFConstantStringClassReference, eight_bit_flags, characters.text, Text.length};
};
}  // namespace
}  // namespace detail
#else
namespace detail {
// The layout of the constant strings that GCC's compiler writes for GNUstep.
struct ConstantStringObject {
    Class isa;
    const char* characters;
    unsigned length;
};

// Listed in a section of the module; `adopt_strings` gives them their class when the module loads.
template <Name Text>
struct ConstantString {
    [[gnu::used, gnu::section("objc_strings")]] static constinit inline ConstantStringObject object{
        nullptr, stored<Text>.text, Text.length};
};
}  // namespace detail
#endif

/// The constant string of a text: `"UIKBColorClear"_ns`.
inline namespace literals {
template <Name Text>
inline NSString* operator""_ns() {
    return reinterpret_cast<NSString*>(&detail::ConstantString<Text>::object);
}
}  // namespace literals

}  // namespace objc

#ifndef __APPLE__
extern "C" {
[[gnu::visibility("hidden"), gnu::weak]] extern objc::detail::ConstantStringObject __start_objc_strings[];
[[gnu::visibility("hidden"), gnu::weak]] extern objc::detail::ConstantStringObject __stop_objc_strings[];
}

namespace objc {
/// Makes the module's constant strings objects. Called before anything else when the module loads.
inline void adopt_strings() {
    Class constant = objc_getClass("NSConstantString");
    for (auto* string = __start_objc_strings; string != __stop_objc_strings; ++string) string->isa = constant;
}
}  // namespace objc
#endif
