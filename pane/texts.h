// What the pane says, in the user's language: English in the source, and the key of every translation.
#pragma once
#include "platform/foundation.h"

namespace pane {

using namespace objc::literals;

/// The bundle's translation of an English text, or the text. Its key is made when it is asked for: a constant
/// string of each would take 32 bytes more.
NSString* translated(const char* key);
/// The same with the given in place of "%1" and "%2".
NSString* with(NSString* text, NSString* first, NSString* second = nullptr);

/// A text is asked for as text<English>(), with what goes into it.
template <objc::Name English, class... Arguments>
NSString* text(Arguments... arguments) {
    NSString* found = translated(objc::stored<English>.text);
    if constexpr (sizeof...(arguments) == 0)
        return found;
    else
        return with(found, arguments...);
}

NSString* number_text(NSInteger number);

/// An error of the pane's own. `fail` answers nothing, for a caller to return.
NSError* make_error(NSString* description);
struct Nothing {
    template <class T>
    operator T*() const {
        return nullptr;
    }
    operator bool() const { return false; }
};
inline Nothing fail(NSError** error, NSString* description) {
    if (error) *error = make_error(description);
    return {};
}

}  // namespace pane
