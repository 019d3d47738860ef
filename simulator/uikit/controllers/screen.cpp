#include "uikit/controllers/screen.h"

#include <utility>

#include "uikit/events/touches.h"

namespace sim {
namespace {

using objc::strong;

/// Kept until the process ends.
UIWindow*& shown() {
    static UIWindow* window = nullptr;
    return window;
}

void clear_screen() {
    cancel_touch();
    const auto window = strong<UIWindow>::adopt(std::exchange(shown(), nullptr));
    if (!window) return;
    NSArray* views = static_cast<UIView*>(window.get())->subviews();
    for (NSUInteger i = 0; i < views->count(); ++i)
        static_cast<UIView*>(views->objectAtIndex(i))->removeFromSuperview();
}

}  // namespace

UIWindow* screen_window() { return shown(); }

static void show(CGRect frame, UIViewController* root) {
    clear_screen();
    shown() = UIWindow::make<"initWithFrame:">(frame).leak();
    shown()->setRootViewController(root);
}

void show_on_screen(UIView* page) {
    auto root = UIViewController::make();
    root->setView(page);
    show({{0, 0}, page->bounds().size}, root);
}

void show_controller(UIViewController* controller) {
    show(UIScreen::mainScreen()->bounds(), controller);
    lay_out_screen();
}

void lay_out_screen() { shown()->layoutIfNeeded(); }

UIViewController* presented_on_screen() {
    UIViewController* top = shown()->rootViewController();
    UIViewController* presented = nullptr;
    while ((top = top->presentedViewController())) presented = top;
    return presented;
}

}  // namespace sim
