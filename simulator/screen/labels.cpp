#include "screen/labels.h"

#include "uikit/controllers/screen.h"
#include "uikit/events/touches.h"

namespace sim {
namespace {

struct Search {
    UIWindow* window;
    NSString* label;
    bool found_covered = false;
    CGPoint point{};

    bool is_called_so(UIView* view) {
        NSString* own = view->accessibilityLabel();
        return own && own->isEqualToString(label);
    }
    /// Whether a touch in the view's middle comes to it, to what it holds, or to what it stands in.
    bool can_be_touched(UIView* view) {
        const CGSize size = view->bounds().size;
        point = view->convertPointToView({size.width / 2, size.height / 2}, window);
        UIView* hit = window->hitTest(point, nullptr);
        return hit && (hit->isDescendantOfView(view) || view->isDescendantOfView(hit));
    }
    bool find_in(UIView* tree) {
        if (tree->isHidden() || tree->alpha() < 0.01) return false;
        NSArray* views = tree->subviews();
        for (NSUInteger i = views->count(); i-- > 0;)
            if (find_in(static_cast<UIView*>(views->objectAtIndex(i)))) return true;
        if (!is_called_so(tree)) return false;
        if (can_be_touched(tree)) return true;
        found_covered = true;
        return false;
    }
};

}  // namespace

bool tap_label(NSString* label, std::string& error) {
    UIWindow* window = screen_window();
    if (!window) {
        error = "nothing is on the screen";
        return false;
    }
    window->layoutIfNeeded();
    Search search{.window = window, .label = label};
    if (!search.find_in(window)) {
        error =
            std::string(search.found_covered ? "what is called \"" : "nothing on the screen is called \"") +
            label->UTF8String() +
            (search.found_covered ? "\" cannot be touched: it is covered, or not on the screen" : "\"");
        return false;
    }
    const CGPoint point = search.point;
    return move_finger(UITouchPhaseBegan, point, error) && move_finger(UITouchPhaseEnded, point, error);
}

}  // namespace sim
