// Text as a template argument: selectors, class names and type encodings are known to the compiler.
#pragma once
#include <cstddef>

namespace objc {

/// A text of `Size - 1` characters and its terminating zero. Selectors, class names and type encodings are
/// template arguments of this type, so that the compiler checks and composes them.
template <size_t Size>
struct Name {
    char text[Size]{};

    constexpr Name() = default;
    constexpr Name(const char (&literal)[Size]) {
        for (size_t i = 0; i < Size; ++i) text[i] = literal[i];
    }

    static constexpr size_t length = Size - 1;

    /// The number of parameters that a selector of this name takes.
    constexpr size_t colons() const {
        size_t count = 0;
        for (char c : text) count += c == ':';
        return count;
    }

    template <size_t Other>
    constexpr bool begins_with(const char (&beginning)[Other]) const {
        for (size_t i = 0; i + 1 < Other; ++i)
            if (i >= length || text[i] != beginning[i]) return false;
        return true;
    }
};

template <size_t A, size_t B>
constexpr Name<A + B - 1> operator+(const Name<A>& a, const Name<B>& b) {
    Name<A + B - 1> sum;
    for (size_t i = 0; i < A - 1; ++i) sum.text[i] = a.text[i];
    for (size_t i = 0; i < B; ++i) sum.text[A - 1 + i] = b.text[i];
    return sum;
}

template <size_t A, size_t B>
constexpr bool operator==(const Name<A>& a, const Name<B>& b) {
    if constexpr (A != B) return false;
    for (size_t i = 0; i < A && i < B; ++i)
        if (a.text[i] != b.text[i]) return false;
    return true;
}

/// A number as text: the offsets in method type encodings.
template <size_t Value>
constexpr auto decimal() {
    constexpr char digit[] = {static_cast<char>('0' + Value % 10), 0};
    if constexpr (Value < 10)
        return Name(digit);
    else
        return decimal<Value / 10>() + Name(digit);
}

/// The setter of a property: "setOldAlpha:" of "oldAlpha".
template <Name Property>
constexpr auto setter_of() {
    auto tail = Property;
    if (tail.text[0] >= 'a' && tail.text[0] <= 'z')
        tail.text[0] = static_cast<char>(tail.text[0] - 'a' + 'A');
    return Name("set") + tail + Name(":");
}

/// A text as a type.
template <Name Text>
struct stored_type {};

/// One copy of a text, with a lasting address.
template <Name Text>
inline constexpr auto stored = Text;

}  // namespace objc
