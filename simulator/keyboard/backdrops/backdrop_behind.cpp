#include "keyboard/backdrops/backdrop_behind.h"

#include "keyboard/make.h"

namespace sim {

objc::strong<UIKBBackdropView> add_backdrop_behind(UIView* view, NSInteger style) {
    auto backdrop = UIKBBackdropView::alloc()->initWithFrame(view->bounds(), style);
    backdrop->setAutoresizingMask(follows_size);
    view->insertSubview(backdrop, 0);
    return backdrop;
}

}  // namespace sim
