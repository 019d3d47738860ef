// The home screen's application.
#pragma once
#include "platform/application.h"

/// The application of a system's shell.
struct FBSystemApp : objc::Interface<FBSystemApp, "FBSystemApp", UIApplication> {};

struct SpringBoard : objc::Interface<SpringBoard, "SpringBoard", FBSystemApp> {
    void applicationDidFinishLaunching(id application) {
        send<"applicationDidFinishLaunching:">(application);
    }
    /// Whether the launch has been finished: all that the model knows of it.
    bool launched() { return send<"launched", bool>(); }
};
