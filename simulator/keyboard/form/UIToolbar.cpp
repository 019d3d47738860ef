// A bar of buttons, and the part of it that holds them.
#include "keyboard/form/UIToolbar.h"

#include "keyboard/make.h"
#include "objc/class.h"

namespace {

struct Toolbar : objc::Implements<Toolbar, UIToolbar> {
    using Ivars = objc::NoIvars;

    objc::strong<UIToolbar> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto content = sim::make_view<_UIToolbarContentView>(self->bounds());
        content->setAutoresizingMask(sim::follows_size);
        self->addSubview(content);
        return self;
    }
};

}  // namespace

namespace sim {

_UIToolbarContentView* buttons_of(UIToolbar* bar) {
    NSArray* views = bar->subviews();
    return views->count() ? as<_UIToolbarContentView>(views->objectAtIndex(0)) : nullptr;
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(UIToolbar, UIView, Toolbar, method<"initWithFrame:", &Toolbar::initWithFrame>)
