// One suggestion above the keys.
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct PredictionCell : objc::Implements<PredictionCell, UIKeyboardPredictionCell> {
    static constexpr CGFloat margin = 5, corner_radius = 5;

    struct Ivars {
        strong<UILabel> label;
        strong<UIView> activeView;
        bool active;
    };

    strong<UIKeyboardPredictionCell> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        Ivars& ivars = self->ivars();
        ivars.activeView = sim::make_view<UIView>();
        ivars.activeView->setHidden(true);
        // The view itself stays clear; what it shows is a layer in it.
        CALayer* shine = CALayer::layer();
        shine->setBackgroundColor(UIColor::whiteColor()->CGColor());
        shine->setCornerRadius(corner_radius);
        ivars.activeView->layer()->setCornerRadius(corner_radius);
        ivars.activeView->layer()->addSublayer(shine);
        self->addSubview(ivars.activeView);

        ivars.label = sim::make_view<UILabel>();
        ivars.label->setFont(UIFont::systemFontOfSize(17));
        ivars.label->setTextAlignment(NSTextAlignmentCenter);
        self->addSubview(ivars.label);
        return self;
    }

    NSString* text() { return ivars().label->text(); }
    void setText(NSString* text) { ivars().label->setText(text); }
    bool isActive() { return ivars().active; }
    void setActive(bool active) {
        ivars().active = active;
        setNeedsLayout();
    }

    UIColor* textColor() { return UIColor::blackColor(); }

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIKeyboardPredictionCell*>(this);
        ivars().label->setFrame(bounds());
        ivars().label->setTextColor(self->textColor());
        const CGSize size = bounds().size;
        ivars().activeView->setFrame({{margin, margin}, {size.width - 2 * margin, size.height - 2 * margin}});
        ivars().activeView->setHidden(!self->isActive());
        NSArray* shine = ivars().activeView->layer()->sublayers();
        for (NSUInteger index = 0; index < shine->count(); ++index)
            static_cast<CALayer*>(shine->objectAtIndex(index))->setFrame(ivars().activeView->bounds());
    }
};

}  // namespace

using namespace objc::definition;
using Cell = PredictionCell;

OBJC_CLASS(UIKeyboardPredictionCell, UIView, PredictionCell,
           ivar<"_label", &Cell::Ivars::label>,
           ivar<"m_activeView", &Cell::Ivars::activeView>,
           ivar<"_active", &Cell::Ivars::active>,
           method<"initWithFrame:", &Cell::initWithFrame>,
           method<"text", &Cell::text>,
           method<"setText:", &Cell::setText>,
           method<"isActive", &Cell::isActive>,
           method<"setActive:", &Cell::setActive>,
           method<"textColor", &Cell::textColor>,
           method<"layoutSubviews", &Cell::layoutSubviews>)
