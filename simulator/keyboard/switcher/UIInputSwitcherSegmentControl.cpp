// The pictures of keyboard positions, side by side.
#include "keyboard/switcher/UIInputSwitcherSegmentedTableCell.h"
#include "objc/class.h"

namespace {

struct SegmentControl : objc::Implements<SegmentControl, UIInputSwitcherSegmentControl> {
    using Ivars = objc::NoIvars;

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIView*>(this);
        NSArray* segments = self->subviews();
        const CGSize size = self->bounds().size;
        const CGFloat width = size.width / static_cast<CGFloat>(segments->count());
        for (NSUInteger index = 0; index < segments->count(); ++index)
            static_cast<UIView*>(segments->objectAtIndex(index))
                ->setFrame({{static_cast<CGFloat>(index) * width, 0}, {width, size.height}});
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIInputSwitcherSegmentControl, UIControl, SegmentControl,
           method<"layoutSubviews", &SegmentControl::layoutSubviews>)
