// New objects, typed.
#pragma once
#include "platform/uikit.h"

namespace sim {

/// A new object of that class, by init.
template <class Made>
objc::strong<Made> make() {
    return objc::adopt(static_cast<Made*>(Made::alloc()->init().leak()));
}

/// A new view of that class, by initWithFrame:.
template <class View>
objc::strong<View> make_view(CGRect frame = {}) {
    return objc::adopt(static_cast<View*>(View::alloc()->initWithFrame(frame).leak()));
}

constexpr UIViewAutoresizing follows_size =
    UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight;

}  // namespace sim
