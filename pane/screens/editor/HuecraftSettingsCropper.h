// The page on which a photo is brought to the keyboard's shape: dragged, pinched, dimmed, blurred.
#pragma once
#include "pane/huecraft.h"
#include "platform/navigation.h"

struct HuecraftSettingsCropper
    : objc::Interface<HuecraftSettingsCropper, "HuecraftSettingsCropper", UIViewController> {
    /// An upright image with a pixel to a point; before the view is loaded.
    void setPhoto(UIImage* photo) { send<"setPhoto:">(photo); }
    /// Is sent photoCropped: with the image, in the keyboard's pixels. Not retained.
    void setReceiver(NSObject* receiver) { send<"setReceiver:">(receiver); }
};
