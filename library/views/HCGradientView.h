// A background that is a gradient, with a blur where a colour of it is translucent.
#pragma once
#include "views/HCView.h"

/// The gradient is the view's own layer, so the blur, a subview, lies over it.
struct HCGradientView : objc::Interface<HCGradientView, "HCGradientView", HCView> {
    /// Without colours nothing is drawn.
    objc::strong<HCGradientView> initWithColors(NSArray* colours, NSInteger direction) {
        return send<"initWithColors:direction:", objc::strong<HCGradientView>>(colours, direction);
    }
    void setDirection(NSInteger direction) { send<"setDirection:">(direction); }
    /// UIColors, spaced evenly; a single one fills the view.
    void setColors(NSArray* colours) { send<"setColors:">(colours); }
};
