#include "views/backdrop_content.h"

using namespace objc::literals;

void set_up_content_view(UIView* content) {
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    CALayer* layer = content->layer();
    layer->setShouldRasterize(true);
    layer->setRasterizationScale(UIScreen::mainScreen()->scale());
    content->setOpaque(true);
}

void put_in_front(UIView* backdrop, UIView* content) {
    backdrop->addSubview(content);
    switch_off_animations(content->layer());
}

namespace {

NSDictionary* new_actions() {
    const id keys[] = {"onOrderIn"_ns, "onOrderOut"_ns, "sublayers"_ns, "contents"_ns,
                       "bounds"_ns,    "onLayout"_ns,   "position"_ns};
    id nothing[7];
    for (id& action : nothing) action = NSNull::null();
    return objc::strong<NSDictionary>(NSDictionary::dictionaryWithObjects(nothing, keys, 7)).leak();
}

}  // namespace

void switch_off_animations(CALayer* layer) {
    static NSDictionary* no_actions = nullptr;  // one for all layers: it never changes
    if (!no_actions) no_actions = new_actions();
    layer->setActions(no_actions);
}
