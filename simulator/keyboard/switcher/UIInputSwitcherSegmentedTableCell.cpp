// The row of the input switcher that says where the keyboard stands, in pictures. Its initialiser is its own
// and calls its superclass's, as initialisers do.
#include "keyboard/switcher/UIInputSwitcherSegmentedTableCell.h"

#include "keyboard/make.h"
#include "objc/class.h"

namespace {

using objc::strong;

struct SegmentedCell : objc::Implements<SegmentedCell, UIInputSwitcherSegmentedTableCell> {
    struct Ivars {
        strong<UIInputSwitcherSegmentControl> segmentControl;
    };

    strong<UIInputSwitcherSegmentedTableCell> initWithStyle(NSInteger style, NSString* reuse_identifier) {
        auto self = initialised_by_super<"initWithStyle:reuseIdentifier:">(style, reuse_identifier);
        if (!self) return nullptr;
        self->ivars().segmentControl = sim::make_view<UIInputSwitcherSegmentControl>();
        self->self()->contentView()->addSubview(self->ivars().segmentControl);
        return self;
    }

    UIInputSwitcherSegmentControl* segmentControl() { return ivars().segmentControl; }

    void layoutSubviews() {
        super<"layoutSubviews">();
        ivars().segmentControl->setFrame(self()->bounds());
    }
};

}  // namespace

using namespace objc::definition;
using Cell = SegmentedCell;

OBJC_CLASS(UIInputSwitcherSegmentedTableCell, UIInputSwitcherTableCell, SegmentedCell,
           ivar<"_segmentControl", &Cell::Ivars::segmentControl>,
           method<"initWithStyle:reuseIdentifier:", &Cell::initWithStyle>,
           method<"segmentControl", &Cell::segmentControl>,
           method<"layoutSubviews", &Cell::layoutSubviews>)
