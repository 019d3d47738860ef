// The pane's first screen: the keyboard in the chosen theme, a switch, and the themes.
#pragma once
#include "platform/preferences.h"

/// What Settings' entry names. It keeps nothing between two openings but files.
struct HuecraftSettingsController
    : objc::Interface<HuecraftSettingsController, "HuecraftSettingsController", PSViewController> {
    /// The user's files changed: shows them again, and this one of them; nil for none.
    void showTheme(NSString* file) { send<"showTheme:">(file); }
    /// One of the user's, which the bar then offers to put back.
    void removeTheme(NSString* file) { send<"removeTheme:">(file); }
};
