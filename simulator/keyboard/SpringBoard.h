// The home screen's application.
#pragma once
#include "platform/foundation.h"

struct SpringBoard : objc::Interface<SpringBoard, "SpringBoard", NSObject> {
    void applicationDidFinishLaunching(id application) {
        send<"applicationDidFinishLaunching:">(application);
    }
    /// Whether the launch has been finished: all that the model knows of it.
    bool launched() { return send<"launched", bool>(); }
};
