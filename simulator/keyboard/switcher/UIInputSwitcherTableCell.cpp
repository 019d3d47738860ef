// One keyboard in the input switcher's list: its name and, for the one in use, a mark in the tint colour.
#include "keyboard/glyph_image.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct SwitcherCell : objc::Implements<SwitcherCell, UIInputSwitcherTableCell> {
    using Ivars = objc::NoIvars;

    static constexpr CGFloat mark_size = 20;

    objc::strong<UIInputSwitcherTableCell> initWithStyle(NSInteger style, NSString* reuse_identifier) {
        auto self = initialised_by_super<"initWithStyle:reuseIdentifier:">(style, reuse_identifier);
        self->self()->setBackgroundColor(nullptr);
        self->self()->setSeparatorInset({});
        return objc::strong<UIInputSwitcherTableCell>(self.get());
    }

    void setSelected(bool selected, bool animated) {
        super<"setSelected:animated:">(selected, animated);
        objc::strong<UIImageView> mark;
        if (selected)
            mark =
                UIImageView::alloc()->initWithImage(sim::template_glyph_image(sim::Glyph::check, mark_size));
        self()->setAccessoryView(mark);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIInputSwitcherTableCell, UITableViewCell, SwitcherCell,
           method<"initWithStyle:reuseIdentifier:", &SwitcherCell::initWithStyle>,
           method<"setSelected:animated:", &SwitcherCell::setSelected>)
