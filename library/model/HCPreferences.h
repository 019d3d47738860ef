// The preference store: whether theming is on in this process, and the active theme.
#pragma once
#include "platform/uikit.h"

/// Reads /var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist once per process, loads the theme
/// file that it names, and answers from what it read. Nothing is read again while the process runs.
///
/// Without an active theme every getter answers zero of its type, not the theme's own fallbacks.
struct HCPreferences : objc::Interface<HCPreferences, "HCPreferences", NSObject> {
    static HCPreferences* sharedInstance() { return class_send<"sharedInstance", HCPreferences*>(); }

    bool isEnabled() { return send<"isEnabled", bool>(); }
    /// Whether the system draws key caps in its own colours.
    bool isCapsEnabled() { return send<"isCapsEnabled", bool>(); }

    UIColor* getTextColor() { return send<"getTextColor", UIColor*>(); }
    UIColor* getHighlightColor() { return send<"getHighlightColor", UIColor*>(); }
    NSUInteger getBackgroundType() { return send<"getBackgroundType", NSUInteger>(); }
    NSUInteger getGradientDirection() { return send<"getGradientDirection", NSUInteger>(); }
    NSArray* getColors() { return send<"getColors", NSArray*>(); }
    /// Scaled for the keyboard; the first call in a process answers nil.
    UIImage* getImage() { return send<"getImage", UIImage*>(); }
    double getImageAlpha() { return send<"getImageAlpha", double>(); }
};
