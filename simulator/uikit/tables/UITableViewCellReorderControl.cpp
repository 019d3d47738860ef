// The grip at the end of a row that is edited: the row follows the finger that takes hold of it.
#include "uikit/tables/UITableView.h"
#include "uikit/tables/UITableViewCell.h"
#include "uikit/tables/cell_pictures.h"

struct UITableViewCellReorderControl
    : objc::Interface<UITableViewCellReorderControl, "UITableViewCellReorderControl", UIControl> {};

namespace {

struct Grip : objc::Implements<Grip, UITableViewCellReorderControl> {
    struct Ivars {
        /// Not owned: it owns the control.
        UITableViewCell* cell = nullptr;
        objc::strong<UIImageView> picture;
    };

    bool beginTracking(UITouch* touch, UIEvent*) {
        return table() && table()->begin_moving(ivars().cell, touch->locationInView(table()).y);
    }
    bool continueTracking(UITouch* touch, UIEvent*) {
        if (table()) table()->go_on_moving(touch->locationInView(table()).y);
        return true;
    }
    void endTracking(UITouch*, UIEvent*) {
        if (table()) table()->end_moving(true);
    }
    void cancelTracking(UIEvent*) {
        if (table()) table()->end_moving(false);
    }
    void layoutSubviews() {
        super<"layoutSubviews">();
        const CGSize size = self()->bounds().size, its = ivars().picture->bounds().size;
        ivars().picture->setFrame({{(size.width - its.width) / 2, (size.height - its.height) / 2}, its});
    }

  private:
    sim::TableView* table() {
        return static_cast<sim::TableView*>(static_cast<sim::TableCell*>(ivars().cell)->ivars().table);
    }
};

}  // namespace

namespace sim {

objc::strong<UIControl> make_reorder_control(UITableViewCell* cell) {
    auto control = UITableViewCellReorderControl::make<"initWithFrame:">(CGRect{});
    auto& parts = static_cast<Grip*>(control.get())->ivars();
    parts.cell = cell;
    parts.picture = UIImageView::alloc()->initWithImage(grip_picture());
    control->addSubview(parts.picture);
    return objc::strong<UIControl>(control.get());
}

}  // namespace sim

using namespace objc::definition;

OBJC_CLASS(UITableViewCellReorderControl, UIControl, Grip,
           ivar<"_cell", &Grip::Ivars::cell>,
           ivar<"_picture", &Grip::Ivars::picture>,
           method<"beginTrackingWithTouch:withEvent:", &Grip::beginTracking>,
           method<"continueTrackingWithTouch:withEvent:", &Grip::continueTracking>,
           method<"endTrackingWithTouch:withEvent:", &Grip::endTracking>,
           method<"cancelTrackingWithEvent:", &Grip::cancelTracking>,
           method<"layoutSubviews", &Grip::layoutSubviews>)
