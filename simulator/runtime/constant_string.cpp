// __NSCFConstantString: the strings that the platform's compiler writes into a dylib, as strings of
// Foundation.
#include "objc/class.h"
#include "platform/foundation.h"

struct __NSCFConstantString : objc::Interface<__NSCFConstantString, "__NSCFConstantString", NSString> {};

namespace {

struct ConstantString : objc::Implements<ConstantString, __NSCFConstantString> {
    /// With `isa` before them they are the compiler's layout, 32 bytes.
    struct Ivars {
        int flags;
        const void* characters;
        long length;
    };
    static_assert(sizeof(Ivars) == 24);
    static constexpr int sixteen_bits = 0x10;

    NSUInteger length() { return static_cast<NSUInteger>(ivars().length); }

    unsigned short characterAtIndex(NSUInteger index) {
        if (index >= length()) raise_range_exception();
        return unit(index);
    }

    // Through memcpy: Foundation's writer of binary property lists passes odd addresses.
    void getCharacters(unsigned short* units, NSRange range) {
        if (range.location > length() || range.length > length() - range.location) raise_range_exception();
        for (NSUInteger i = 0; i < range.length; ++i) {
            char16_t next = unit(range.location + i);
            __builtin_memcpy(reinterpret_cast<char*>(units) + i * sizeof next, &next, sizeof next);
        }
    }

    const char* UTF8String() {
        if (ivars().flags & sixteen_bits) return super<"UTF8String", const char*>();
        return static_cast<const char*>(ivars().characters);  // ASCII, and the compiler ends it with a zero
    }

    /// What Foundation itself asks for, to look names up in the runtime.
    bool getCString(char* bytes, NSUInteger capacity, NSUInteger encoding) {
        constexpr NSUInteger ascii = 1, utf8 = 4;
        if (ivars().flags & sixteen_bits || (encoding != ascii && encoding != utf8))
            return super<"getCString:maxLength:encoding:", bool>(bytes, capacity, encoding);
        if (length() >= capacity) return false;
        __builtin_memcpy(bytes, ivars().characters, length() + 1);
        return true;
    }

    Class classForCoder() { return NSString::class_object(); }

    // The objects lie in the dylib and not in Foundation's heap, where the count stands before the object.
    NSString* itself() { return this; }
    NSString* copyWithZone(void*) { return this; }
    void never() {}
    NSUInteger for_ever() { return ~NSUInteger{0}; }

  private:
    char16_t unit(NSUInteger index) {
        if (ivars().flags & sixteen_bits) return static_cast<const char16_t*>(ivars().characters)[index];
        return static_cast<const unsigned char*>(ivars().characters)[index];
    }

    [[noreturn]] void raise_range_exception() {
        using namespace objc::literals;
        id exception = objc::send<"exceptionWithName:reason:userInfo:", id>(
            reinterpret_cast<id>(objc_getClass("NSException")), "NSRangeException"_ns,
            "the index is beyond the end of a constant string"_ns, id{});
        objc::send<"raise">(exception);
        __builtin_unreachable();
    }
};

}  // namespace

using namespace objc::definition;
using Text = ConstantString;

OBJC_CLASS(__NSCFConstantString, NSString, ConstantString,
           ivar<"_cfFlags", &Text::Ivars::flags>,
           ivar<"_cfCharacters", &Text::Ivars::characters>,
           ivar<"_cfLength", &Text::Ivars::length>,
           method<"length", &Text::length>,
           method<"characterAtIndex:", &Text::characterAtIndex>,
           method<"getCharacters:range:", &Text::getCharacters>,
           method<"UTF8String", &Text::UTF8String>,
           method<"getCString:maxLength:encoding:", &Text::getCString>,
           method<"classForCoder", &Text::classForCoder>,
           method<"retain", &Text::itself>,
           method<"autorelease", &Text::itself>,
           method<"copy", &Text::itself>,
           method<"copyWithZone:", &Text::copyWithZone>,
           method<"retainCount", &Text::for_ever>,
           method<"release", &Text::never>,
           method<"dealloc", &Text::never>)
