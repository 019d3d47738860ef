// One suggestion above the keys. It has no layout of its own: its parts get their places with its frame, and
// their looks whenever it becomes active or inactive.
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
        strong<NSObject> prediction;
        bool active, isEmoji;
    };

    strong<UIKeyboardPredictionCell> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        Ivars& ivars = self->ivars();
        ivars.activeView = sim::make_view<UIView>();
        ivars.activeView->layer()->setCornerRadius(corner_radius);
        self->addSubview(ivars.activeView);

        ivars.label = sim::make_view<UILabel>();
        ivars.label->setFont(UIFont::systemFontOfSize(17));
        ivars.label->setTextAlignment(NSTextAlignmentCenter);
        self->addSubview(ivars.label);
        self->place_parts();
        self->setCellAttributes();
        return self;
    }

    void setFrame(CGRect frame) {
        super<"setFrame:">(frame);
        place_parts();
    }

    void setText(NSString* text, id prediction, bool active, bool is_emoji) {
        ivars().label->setText(text);
        ivars().prediction = static_cast<NSObject*>(prediction);
        ivars().isEmoji = is_emoji;
        static_cast<UIKeyboardPredictionCell*>(this)->setActive(active);
    }

    UILabel* label() { return ivars().label; }
    bool active() { return ivars().active; }
    // Asks for no layout.
    void setActive(bool active) {
        ivars().active = active;
        send<"setCellAttributes">();
    }

    /// Writes in the colour that the getter answers, and paints the active view again: the view itself stays
    /// clear, and what it shows is a white layer in it.
    void setCellAttributes() {
        auto* self = static_cast<UIKeyboardPredictionCell*>(this);
        ivars().label->setTextColor(self->textColor());
        UIView* active_view = ivars().activeView;
        active_view->setHidden(!self->active());
        if (!self->active()) return;
        CALayer* shine = CALayer::layer();
        shine->setBackgroundColor(UIColor::whiteColor()->CGColor());
        shine->setCornerRadius(corner_radius);
        shine->setFrame(active_view->bounds());
        active_view->layer()->setSublayers(NSArray::arrayWithObject(shine));
    }

    UIColor* textColor() { return UIColor::blackColor(); }

  private:
    void place_parts() {
        const CGSize size = bounds().size;
        ivars().label->setFrame(bounds());
        UIView* active_view = ivars().activeView;
        active_view->setFrame({{margin, margin}, {size.width - 2 * margin, size.height - 2 * margin}});
        NSArray* shine = active_view->layer()->sublayers();
        for (NSUInteger index = 0; index < shine->count(); ++index)
            static_cast<CALayer*>(shine->objectAtIndex(index))->setFrame(active_view->bounds());
    }
};

}  // namespace

using namespace objc::definition;
using Cell = PredictionCell;

OBJC_CLASS(UIKeyboardPredictionCell, UIView, PredictionCell,
           ivar<"m_label", &Cell::Ivars::label>,
           ivar<"m_activeView", &Cell::Ivars::activeView>,
           ivar<"_prediction", &Cell::Ivars::prediction>,
           ivar<"_active", &Cell::Ivars::active>,
           ivar<"_isEmoji", &Cell::Ivars::isEmoji>,
           method<"initWithFrame:", &Cell::initWithFrame>,
           method<"setFrame:", &Cell::setFrame>,
           method<"label", &Cell::label>,
           method<"setText:prediction:active:isEmoji:", &Cell::setText>,
           method<"active", &Cell::active>,
           method<"setActive:", &Cell::setActive>,
           method<"setCellAttributes", &Cell::setCellAttributes>,
           method<"textColor", &Cell::textColor>)
