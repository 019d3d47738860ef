// A still picture of a themed keyboard.
#pragma once
#include "model/HuecraftConfig.h"

/// Stacks a picture of an empty keyboard, the theme's background, key caps if they are visible, and the
/// highlights and glyphs in the theme's colours. There is one, and it shows one preview at a time: it reuses
/// its views, so an earlier preview goes empty.
struct HCPreview : objc::Interface<HCPreview, "HCPreview", NSObject> {
    static HCPreview* sharedInstance() { return class_send<"sharedInstance", HCPreview*>(); }
    /// Points; zero where the system has no keyboard class to ask.
    static CGSize keyboardPortraitSize() { return class_send<"keyboardPortraitSize", CGSize>(); }
    static CGSize keyboardLandscapeSize() { return class_send<"keyboardLandscapeSize", CGSize>(); }

    /// Without a size of its own: what is in it is as large as a keyboard in portrait.
    UIView* viewForConfig(HuecraftConfig* theme) { return send<"viewForConfig:", UIView*>(theme); }
    /// Takes the preview apart; the container stays, empty.
    void cleanup() { send<"cleanup">(); }
};
