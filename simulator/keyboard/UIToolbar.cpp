// A bar of buttons, and the part of it that holds them.
#include "keyboard/UIToolbar.h"

#include "keyboard/make.h"
#include "objc/class.h"

namespace {

using objc::strong;

struct Toolbar : objc::Implements<Toolbar, UIToolbar> {
    struct Ivars {
        strong<_UIToolbarContentView> contentView;
    };

    strong<UIToolbar> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto content = sim::make_view<_UIToolbarContentView>(self->bounds());
        self->ivars().contentView = content;
        content->setAutoresizingMask(sim::follows_size);
        self->addSubview(content);
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIToolbar, UIView, Toolbar,
           property<"contentView", &Toolbar::Ivars::contentView>,
           method<"initWithFrame:", &Toolbar::initWithFrame>)
