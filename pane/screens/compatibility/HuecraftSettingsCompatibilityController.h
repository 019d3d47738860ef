// The compatibility screen: what this very system has and lacks of what the library is about, and a report of
// it.
#pragma once
#include "platform/application.h"

struct HuecraftSettingsCompatibilityController
    : objc::Interface<HuecraftSettingsCompatibilityController, "HuecraftSettingsCompatibilityController",
                      UIViewController> {};
