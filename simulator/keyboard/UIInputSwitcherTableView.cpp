// The list of keyboards that the globe key opens: its cells one below the other. The model has no table view
// beneath it.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct SwitcherTable : objc::Implements<SwitcherTable, UIInputSwitcherTableView> {
    using Ivars = objc::NoIvars;

    static constexpr CGFloat row_height = 44;

    void layoutSubviews() {
        super<"layoutSubviews">();
        NSArray* views = subviews();
        CGFloat top = 0;
        for (NSUInteger index = 0; index < views->count(); ++index) {
            auto* cell = as<UIInputSwitcherTableCell>(views->objectAtIndex(index));
            if (!cell) continue;
            cell->setFrame({{0, top}, {bounds().size.width, row_height}});
            top += row_height;
        }
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIInputSwitcherTableView, UIView, SwitcherTable,
           method<"layoutSubviews", &SwitcherTable::layoutSubviews>)
