// The pane's first screen: the keyboard in the chosen theme, a switch, and the themes.
#pragma once
#include "platform/preferences.h"

/// What Settings' entry names. It keeps nothing between two openings but files.
struct HuecraftSettingsController
    : objc::Interface<HuecraftSettingsController, "HuecraftSettingsController", PSViewController> {};
