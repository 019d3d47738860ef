#include "views/HCColourView.h"

#include "objc/class.h"
#include "views/translucency.h"

namespace {

struct ColourView : objc::Implements<ColourView, HCColourView> {
    using Ivars = objc::NoIvars;

    objc::strong<HCColourView> initWithColor(UIColor* colour) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->self()->setColor(colour);
        return self;
    }

    void setColor(UIColor* colour) {
        if (!colour) return;
        is_translucent(colour) ? enableBlur() : disableBlur();
        setBackgroundColor(colour);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCColourView, HCView, ColourView,
           method<"initWithColor:", &ColourView::initWithColor>,
           method<"setColor:", &ColourView::setColor>)
