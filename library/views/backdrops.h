// The three views that are put behind a keyboard: a system backdrop with one opaque content view on top.
#pragma once
#include "platform/keyboard.h"

/// The style that every themed backdrop is made with.
constexpr NSInteger themed_backdrop_style = 2;

/// Shows a colour. Its instance variable `colouredView` has it as its background.
struct _UIBackdropColouredView
    : objc::Interface<_UIBackdropColouredView, "_UIBackdropColouredView", _UIBackdropView> {
    /// Clear at first.
    static _UIBackdropColouredView* backdropWithStyle(NSInteger style) {
        return class_send<"backdropWithStyle:", _UIBackdropColouredView*>(style);
    }
    objc::strong<_UIBackdropColouredView> initWithStyle(NSInteger style, UIColor* colour) {
        return send<"initWithStyle:color:", objc::strong<_UIBackdropColouredView>>(style, colour);
    }
    /// With the colour's own alpha.
    void setColor(UIColor* colour) { send<"setColor:">(colour); }
    /// Replaces the colour's alpha; it does not multiply.
    void setColorAlpha(CGFloat alpha) { send<"setColorAlpha:">(alpha); }
};

/// Shows an image, stretched to its size. Its instance variable is `imageView`.
struct _UIBackdropImageView : objc::Interface<_UIBackdropImageView, "_UIBackdropImageView", _UIBackdropView> {
    /// Without an image at first.
    static _UIBackdropImageView* backdropWithStyle(NSInteger style) {
        return class_send<"backdropWithStyle:", _UIBackdropImageView*>(style);
    }
    objc::strong<_UIBackdropImageView> initWithStyle(NSInteger style, UIImage* image, CGFloat alpha) {
        return send<"initWithStyle:image:alpha:", objc::strong<_UIBackdropImageView>>(style, image, alpha);
    }
    void setImage(UIImage* image) { send<"setImage:">(image); }
    /// Bakes the alpha into the image that is shown: two calls with 0.5 leave a quarter of it.
    void setImageAlpha(CGFloat alpha) { send<"setImageAlpha:">(alpha); }
};

/// Shows a gradient. Its instance variables are `gradientView`, `gradientLayer` and `layoutGradientLayer`.
struct _UIBackdropGradientView
    : objc::Interface<_UIBackdropGradientView, "_UIBackdropGradientView", _UIBackdropView> {
    /// Top to bottom and without colours at first.
    static _UIBackdropGradientView* backdropWithStyle(NSInteger style) {
        return class_send<"backdropWithStyle:", _UIBackdropGradientView*>(style);
    }
    objc::strong<_UIBackdropGradientView> initWithStyle(NSInteger style, NSInteger direction) {
        return send<"initWithStyle:direction:", objc::strong<_UIBackdropGradientView>>(style, direction);
    }
    objc::strong<_UIBackdropGradientView> initWithStyle(NSInteger style, NSArray* colours,
                                                        NSInteger direction) {
        return send<"initWithStyle:colors:direction:", objc::strong<_UIBackdropGradientView>>(style, colours,
                                                                                              direction);
    }
    void setDirection(NSInteger direction) { send<"setDirection:">(direction); }
    /// UIColors, spaced evenly; a single one fills the layer.
    void setColors(NSArray* colours) { send<"setColors:">(colours); }
    /// Replaces the alpha of every colour.
    void setColorsAlpha(CGFloat alpha) { send<"setColorsAlpha:">(alpha); }
    /// The gradient as a picture of that size in points.
    UIImage* imageFromGradientOfSize(CGSize size) { return send<"imageFromGradientOfSize:", UIImage*>(size); }
};
