// The page on which a theme is changed.
#pragma once
#include "pane/huecraft.h"
#include "platform/navigation.h"

struct HuecraftSettingsEditor
    : objc::Interface<HuecraftSettingsEditor, "HuecraftSettingsEditor", UIViewController> {
    /// Before the view is loaded: the theme, and its file in the user's folder, nil for one that has none
    /// yet.
    void setTheme(HuecraftConfig* theme, NSString* file) { send<"setTheme:file:">(theme, file); }
};
