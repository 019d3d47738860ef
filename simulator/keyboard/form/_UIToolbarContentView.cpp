// The part of a toolbar that holds its buttons: side by side from the left.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct ToolbarContentView : objc::Implements<ToolbarContentView, _UIToolbarContentView> {
    using Ivars = objc::NoIvars;

    static constexpr CGFloat space = 12;

    void layoutSubviews() {
        super<"layoutSubviews">();
        NSArray* buttons = subviews();
        CGFloat left = space;
        for (NSUInteger index = 0; index < buttons->count(); ++index) {
            auto* button = static_cast<UIView*>(buttons->objectAtIndex(index));
            const CGSize size = button->sizeThatFits(bounds().size);
            button->setFrame({{left, (bounds().size.height - size.height) / 2}, size});
            left += size.width + space;
        }
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(_UIToolbarContentView, _UIBarContentView, ToolbarContentView,
           method<"layoutSubviews", &ToolbarContentView::layoutSubviews>)
