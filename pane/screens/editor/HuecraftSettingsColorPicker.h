// The library's colour picker without its sharp edges: it can be confirmed as often as one likes, whatever
// the file of the last colours holds, and takes a colour that was typed.
#pragma once
#include "pane/huecraft.h"

/// Missing where the library has no picker: nothing is made then.
struct HuecraftSettingsColorPicker
    : objc::Interface<HuecraftSettingsColorPicker, "HuecraftSettingsColorPicker", HCColorPickerController> {
    /// The colour that it opens on; before its view is loaded.
    void setFirstColor(UIColor* colour) { send<"setFirstColor:">(colour); }
};
