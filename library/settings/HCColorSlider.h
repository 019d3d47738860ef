// One channel of a colour: a knob on a pill that shows what either end of the channel would look like.
#pragma once
#include "platform/controls.h"

/// What `type` says; any other value is not a channel.
constexpr NSUInteger red_channel = 1;
constexpr NSUInteger green_channel = 2;
constexpr NSUInteger blue_channel = 3;
constexpr NSUInteger alpha_channel = 4;

struct HCColorSlider : objc::Interface<HCColorSlider, "HCColorSlider", UIView> {
    objc::strong<HCColorSlider> initWithFrame(CGRect frame, NSUInteger type) {
        return send<"initWithFrame:withType:", objc::strong<HCColorSlider>>(frame, type);
    }

    /// Puts the knob at the colour's value of the channel, and paints the track from the colour with the
    /// channel at 0 to the colour with it at 1. A control that is for no channel logs and raises
    /// NSInvalidArgumentException.
    void minMaxOfColor(UIColor* colour) { send<"minMaxOfColor:">(colour); }
    /// Neither may be nil.
    void setStartColor(UIColor* start, UIColor* end) { send<"setStartColor:andEndColor:">(start, end); }
    /// The knob's, from 0 to 1.
    double getValue() { return send<"getValue", double>(); }
    /// Of the inner slider: it is the sender, and has the same tag.
    void addTarget(id target, SEL action, UIControlEvents events) {
        send<"addTarget:action:forControlEvents:">(target, action, events);
    }

    UISlider* slider() { return send<"slider", UISlider*>(); }
    /// The track's, within the control.
    CGRect backgroundFrame() { return send<"backgroundFrame", CGRect>(); }
    NSUInteger type() { return send<"type", NSUInteger>(); }
    UIView* backgroundView() { return send<"backgroundView", UIView*>(); }
    CAGradientLayer* gradientLayer() { return send<"gradientLayer", CAGradientLayer*>(); }
};
