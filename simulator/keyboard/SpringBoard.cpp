// The home screen's application. The class exists only in a process that claims to be it.
#include "keyboard/SpringBoard.h"

#include "objc/class.h"

namespace {

struct HomeScreen : objc::Implements<HomeScreen, SpringBoard> {
    struct Ivars {
        bool launched;
    };

    void applicationDidFinishLaunching(id) { ivars().launched = true; }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(SpringBoard, FBSystemApp, HomeScreen,
           property<"launched", &HomeScreen::Ivars::launched>,
           method<"applicationDidFinishLaunching:", &HomeScreen::applicationDidFinishLaunching>)
