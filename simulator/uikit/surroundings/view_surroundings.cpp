// What a view finds itself in: bars and edges that cover it, the direction of text, the user's settings.
#include <algorithm>

#include "phone/screen_kind.h"
#include "uikit/UIView.h"
#include "uikit/events/first_responder.h"
#include "uikit/navigation/covering_bars.h"
#include "uikit/surroundings/UITraitCollection.h"

namespace sim {

// How far the view reaches beyond what is left free. A view that is in no window is covered by nothing.
UIEdgeInsets View::safeAreaInsets() {
    auto* self = this->self();
    UIWindow* const window = self->window();
    if (!window) return {};
    const CGSize size = window->bounds().size;
    const ScreenEdges edges = covered_edges(size.width, size.height);
    const CGFloat top = std::max(edges.top, bar_bottom_above(self));
    const CGRect frame = self->convertRectToView(self->bounds(), window);
    return {
        std::clamp(top - frame.origin.y, 0.0, frame.size.height),
        std::clamp(edges.left - frame.origin.x, 0.0, frame.size.width),
        std::clamp(frame.origin.y + frame.size.height - (size.height - edges.bottom), 0.0, frame.size.height),
        std::clamp(frame.origin.x + frame.size.width - (size.width - edges.right), 0.0, frame.size.width)};
}

UIUserInterfaceLayoutDirection View::effectiveDirection() {
    switch (self()->semanticContentAttribute()) {
        case UISemanticContentAttributePlayback:
        case UISemanticContentAttributeSpatial:
        case UISemanticContentAttributeForceLeftToRight: return UIUserInterfaceLayoutDirectionLeftToRight;
        case UISemanticContentAttributeForceRightToLeft: return UIUserInterfaceLayoutDirectionRightToLeft;
        default: return UIApplication::sharedApplication()->userInterfaceLayoutDirection();
    }
}

UITraitCollection* View::traitCollection() { return current_traits(); }

bool View::endEditing(bool force) {
    auto* first = as<UIView>(first_responder());
    if (!first || !first->isDescendantOfView(self())) return true;
    const bool resigned = first->resignFirstResponder();
    if (!resigned && force) set_first_responder(nullptr);
    return resigned || force;
}

}  // namespace sim
