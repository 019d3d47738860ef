// One picture of the input switcher's row of keyboard positions.
#include "keyboard/make.h"
#include "keyboard/switcher/UIInputSwitcherSegmentedTableCell.h"
#include "objc/class.h"

namespace {

using objc::strong;

struct SegmentView : objc::Implements<SegmentView, UIInputSwitcherTableCellSegmentView> {
    struct Ivars {
        strong<UIImage> originalImage, invertedImage;
        strong<UIImageView> imageView;
        bool selected;
    };

    strong<UIInputSwitcherTableCellSegmentView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto image_view = sim::make_view<UIImageView>(self->bounds());
        self->ivars().imageView = image_view;
        image_view->setContentMode(UIViewContentModeCenter);
        self->addSubview(image_view);
        return self;
    }

    UIImageView* imageView() { return ivars().imageView; }
    bool isSelected() { return ivars().selected; }
    void setSelected(bool selected) {
        ivars().selected = selected;
        setNeedsLayout();
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIInputSwitcherTableCellSegmentView*>(this);
        UIImageView* image_view = self->imageView();
        image_view->setImage(self->isSelected() ? ivars().invertedImage : ivars().originalImage);
        image_view->setFrame(bounds());
    }
};

}  // namespace

namespace sim {

void set_images(UIInputSwitcherTableCellSegmentView* segment, UIImage* original, UIImage* inverted) {
    auto& ivars = static_cast<SegmentView*>(segment)->ivars();
    ivars.originalImage = original;
    ivars.invertedImage = inverted;
    static_cast<UIView*>(segment)->setNeedsLayout();
}

}  // namespace sim

using namespace objc::definition;
using Segment = SegmentView;

OBJC_CLASS(UIInputSwitcherTableCellSegmentView, UIView, SegmentView,
           ivar<"_originalImage", &Segment::Ivars::originalImage>,
           ivar<"_invertedImage", &Segment::Ivars::invertedImage>,
           ivar<"_imageView", &Segment::Ivars::imageView>,
           ivar<"_selected", &Segment::Ivars::selected>,
           method<"initWithFrame:", &Segment::initWithFrame>,
           method<"imageView", &Segment::imageView>,
           method<"isSelected", &Segment::isSelected>,
           method<"setSelected:", &Segment::setSelected>,
           method<"layoutSubviews", &Segment::layoutSubviews>)
