// A background of one colour, with a blur where it is translucent.
#pragma once
#include "views/HCView.h"

/// The colour is the view's own background colour, so the blur, a subview, lies over it.
struct HCColourView : objc::Interface<HCColourView, "HCColourView", HCView> {
    objc::strong<HCColourView> initWithColor(UIColor* colour) {
        return send<"initWithColor:", objc::strong<HCColourView>>(colour);
    }
    /// nil is ignored.
    void setColor(UIColor* colour) { send<"setColor:">(colour); }
};
