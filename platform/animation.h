// QuartzCore's animations.
#pragma once
#include "platform/quartzcore.h"

struct CAMediaTimingFunction : objc::Interface<CAMediaTimingFunction, "CAMediaTimingFunction", NSObject> {
    /// "linear", "easeIn", "easeOut", "easeInEaseOut" or "default".
    static CAMediaTimingFunction* functionWithName(NSString* name) {
        return class_send<"functionWithName:", CAMediaTimingFunction*>(name);
    }
};

/// Times are in seconds.
struct CAAnimation : objc::Interface<CAAnimation, "CAAnimation", NSObject> {
    static CAAnimation* animation() { return class_send<"animation", CAAnimation*>(); }

    /// 0 is a quarter of a second.
    double duration() { return send<"duration", double>(); }
    void setDuration(double duration) { send<"setDuration:">(duration); }
    float repeatCount() { return send<"repeatCount", float>(); }
    /// 0 is once.
    void setRepeatCount(float count) { send<"setRepeatCount:">(count); }
    bool autoreverses() { return send<"autoreverses", bool>(); }
    /// Each time there and back.
    void setAutoreverses(bool reverses) { send<"setAutoreverses:">(reverses); }
    CAMediaTimingFunction* timingFunction() { return send<"timingFunction", CAMediaTimingFunction*>(); }
    /// nil is linear.
    void setTimingFunction(CAMediaTimingFunction* function) { send<"setTimingFunction:">(function); }
    bool isRemovedOnCompletion() { return send<"isRemovedOnCompletion", bool>(); }
    void setRemovedOnCompletion(bool removed) { send<"setRemovedOnCompletion:">(removed); }
    /// "removed" or "forwards".
    NSString* fillMode() { return send<"fillMode", NSString*>(); }
    void setFillMode(NSString* mode) { send<"setFillMode:">(mode); }
    /// Retained while the animation lasts; sent animationDidStart: and animationDidStop:finished:.
    id delegate() { return send<"delegate", id>(); }
    void setDelegate(id delegate) { send<"setDelegate:">(delegate); }
};

struct CAPropertyAnimation : objc::Interface<CAPropertyAnimation, "CAPropertyAnimation", CAAnimation> {
    /// The name of the layer's property.
    NSString* keyPath() { return send<"keyPath", NSString*>(); }
};

/// From one value of a layer's property to another: an NSNumber for opacity, an NSValue for position and
/// bounds. nil is the value that is shown, or that the layer has.
struct CABasicAnimation : objc::Interface<CABasicAnimation, "CABasicAnimation", CAPropertyAnimation> {
    static CABasicAnimation* animationWithKeyPath(NSString* key_path) {
        return class_send<"animationWithKeyPath:", CABasicAnimation*>(key_path);
    }

    id fromValue() { return send<"fromValue", id>(); }
    void setFromValue(id value) { send<"setFromValue:">(value); }
    id toValue() { return send<"toValue", id>(); }
    void setToValue(id value) { send<"setToValue:">(value); }
};
