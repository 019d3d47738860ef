// The application of a system's shell, of which the home screen's is one.
#include "keyboard/SpringBoard.h"
#include "objc/class.h"

namespace {

struct SystemApp : objc::Implements<SystemApp, FBSystemApp> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(FBSystemApp, UIApplication, SystemApp, objc::Row)
