// A background that is an image, over a blur where it is translucent.
#pragma once
#include "views/HCView.h"

/// The image is stretched to the view's size.
struct HCImageView : objc::Interface<HCImageView, "HCImageView", HCView> {
    /// The alpha becomes the view's own: neither is it baked into the image, nor does it show a blur.
    objc::strong<HCImageView> initWithImage(UIImage* image, CGFloat alpha) {
        return send<"initWithImage:alpha:", objc::strong<HCImageView>>(image, alpha);
    }
    /// Shown as it is, whatever alpha was set before. nil is ignored.
    void setImage(UIImage* image) { send<"setImage:">(image); }
    /// Bakes the alpha into the image that is shown, so alphas compound; the last alpha once more does
    /// nothing.
    void setImageAlpha(CGFloat alpha) { send<"setImageAlpha:">(alpha); }
    /// The alpha that was set last; 1 at first.
    CGFloat oldAlpha() { return send<"oldAlpha", CGFloat>(); }
    UIImageView* imageView() { return send<"imageView", UIImageView*>(); }
};
