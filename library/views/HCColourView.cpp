// A background of one colour: see the header.
#include "views/HCColourView.h"

#include "objc/class.h"
#include "views/translucency.h"

namespace {

struct ColourView : objc::Implements<ColourView, HCColourView> {
    using Ivars = objc::NoIvars;

    objc::strong<HCColourView> initWithColor(UIColor* color) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->self()->setColor(color);
        return self;
    }

    void setColor(UIColor* color) {
        if (!color) return;
        is_translucent(color) ? enableBlur() : disableBlur();
        setBackgroundColor(color);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCColourView, HCView, ColourView,
           method<"initWithColor:", &ColourView::initWithColor>,
           method<"setColor:", &ColourView::setColor>)
