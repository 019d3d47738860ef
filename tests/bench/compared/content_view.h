// What the system is asked for the view that shows a theme, by hand and in the least alike.
#pragma once
#include "objc/string.h"
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace bench {

inline void set_up(UIView* content) {
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    CALayer* layer = content->layer();
    layer->setShouldRasterize(true);
    layer->setRasterizationScale(UIScreen::mainScreen()->scale());
    content->setOpaque(true);
}

inline void switch_off_animations(CALayer* layer) {
    using namespace objc::literals;
    static NSDictionary* const no_actions = [] {
        const id keys[] = {"onOrderIn"_ns, "onOrderOut"_ns, "sublayers"_ns, "contents"_ns,
                           "bounds"_ns,    "onLayout"_ns,   "position"_ns};
        id nothing[7];
        for (id& action : nothing) action = NSNull::null();
        return objc::strong<NSDictionary>(NSDictionary::dictionaryWithObjects(nothing, keys, 7)).leak();
    }();
    layer->setActions(no_actions);
}

}  // namespace bench
