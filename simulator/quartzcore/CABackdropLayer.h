// Layers that show what lies behind them, blurred.
#pragma once
#include "platform/quartzcore.h"

/// Below its background and its contents, the layer draws again what has been drawn so far within its bounds.
/// As on the device that is what is in the same group: behind an ancestor with an opacity below 1, a mask or
/// a filter, it is only what that ancestor drew. The layer's own opacity and mask only fade and cut the blur.
struct CABackdropLayer : objc::Interface<CABackdropLayer, "CABackdropLayer", CALayer> {
    /// The standard deviation of the blur, in points; 0, at first, for none.
    CGFloat blurRadius() { return send<"blurRadius", CGFloat>(); }
    void setBlurRadius(CGFloat radius) { send<"setBlurRadius:">(radius); }
};
