#include "views/backdrop_content.h"

using namespace objc::literals;

void set_up_content_view(UIView* content) {
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    content->layer()->setShouldRasterize(true);
    content->layer()->setRasterizationScale(UIScreen::mainScreen()->scale());
    content->setOpaque(true);
}

void put_in_front(UIView* backdrop, UIView* content) {
    backdrop->addSubview(content);
    switch_off_animations(content->layer());
}

void switch_off_animations(CALayer* layer) {
    const id keys[] = {"onOrderIn"_ns, "onOrderOut"_ns, "sublayers"_ns, "contents"_ns,
                       "bounds"_ns,    "onLayout"_ns,   "position"_ns};
    id nothing[7];
    for (id& action : nothing) action = NSNull::null();
    layer->setActions(NSDictionary::dictionaryWithObjects(nothing, keys, 7));
}
