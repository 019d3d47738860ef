// Fast enumeration of collections.
#pragma once
#include "objc/send.h"

extern "C" void objc_enumerationMutation(id collection);

namespace objc {

struct FastEnumerationState {
    unsigned long state;
    id* items;
    unsigned long* mutations;
    unsigned long extra[5];
};

/// Calls `visit` with each object of the collection, in its order; nil has none. The platform raises an
/// exception when the collection is changed meanwhile.
template <class T, class Visit>
void for_each(id collection, Visit visit) {
    FastEnumerationState state{};
    id buffer[16];
    unsigned long at_start = 0;
    while (auto count = send<"countByEnumeratingWithState:objects:count:", unsigned long>(collection, &state,
                                                                                          buffer, 16ul)) {
        if (at_start == 0) at_start = *state.mutations;
        for (unsigned long i = 0; i < count; ++i) {
            if (*state.mutations != at_start) objc_enumerationMutation(collection);
            visit(static_cast<T*>(state.items[i]));
        }
    }
}

}  // namespace objc
