#include "keyboard/switcher/switcher.h"

#include "keyboard/make.h"
#include "keyboard/switcher/UIKeyboardMenuView.h"

namespace sim {

objc::strong<UIView> make_switcher(CGPoint corner) {
    auto switcher = make_view<UIInputSwitcherView>();
    const CGSize size = switcher->preferredSize();
    switcher->setFrame({{corner.x, corner.y - size.height}, size});
    return objc::strong<UIView>(switcher.get());
}

}  // namespace sim
