// A backdrop that shows a colour.
#include "objc/class.h"
#include "views/backdrop_content.h"
#include "views/backdrops.h"

namespace {

using objc::strong;

struct ColouredBackdrop : objc::Implements<ColouredBackdrop, _UIBackdropColouredView> {
    struct Ivars {
        strong<UIView> colouredView;
    };

    static _UIBackdropColouredView* backdropWithStyle(Class self, NSInteger style) {
        using Made = _UIBackdropColouredView;
        return objc::make<"initWithStyle:color:", Made>(self, style, UIColor::clearColor()).autoreleased();
    }

    strong<_UIBackdropColouredView> initWithStyle(NSInteger style, UIColor* colour) {
        auto self = initialised_by_super<"initWithStyle:">(style);
        if (!self) return nullptr;
        auto& content = self->ivars().colouredView;
        content = UIView::alloc()->initWithFrame({});
        content->setBackgroundColor(colour);
        set_up_content_view(content);
        put_in_front(self, content);
        return self;
    }

    void setColor(UIColor* colour) { ivars().colouredView->setBackgroundColor(colour); }

    void setColorAlpha(CGFloat alpha) {
        UIView* content = ivars().colouredView;
        content->setBackgroundColor(content->backgroundColor()->colorWithAlphaComponent(alpha));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS_OF_WEAK_SUPERCLASS(_UIBackdropColouredView, _UIBackdropView, ColouredBackdrop,
                              // Variables
                              ivar<"colouredView", &ColouredBackdrop::Ivars::colouredView>,

                              // Making it
                              class_method<"backdropWithStyle:", &ColouredBackdrop::backdropWithStyle>,
                              method<"initWithStyle:color:", &ColouredBackdrop::initWithStyle>,

                              // The colour
                              method<"setColor:", &ColouredBackdrop::setColor>,
                              method<"setColorAlpha:", &ColouredBackdrop::setColorAlpha>)
