// Switches: a knob in a track, on one side or the other.
#include "objc/class.h"
#include "platform/controls.h"
#include "uikit/controls/knob.h"

namespace {

using objc::strong;

struct Switch : objc::Implements<Switch, UISwitch> {
    struct Ivars {
        bool on = false;
        strong<UIColor> onTintColor, thumbTintColor;
        strong<UIView> track, knob;
    };
    static constexpr CGSize size{51, 31};
    static constexpr CGFloat knob_size = 28, border = 1.5;

    strong<UISwitch> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{frame.origin, size});
        if (!self) return nullptr;
        auto* view = static_cast<UIView*>(self.get());
        view->setOpaque(false);
        self->ivars().track = sim::add_rounded_part(view, {{0, 0}, size}, size.height / 2);
        self->ivars().knob = sim::add_knob(view, {{border, border}, {knob_size, knob_size}}, knob_size, 0.2f);
        self->show();
        return strong<UISwitch>(self.get());
    }

    // It has one size.
    void setFrame(CGRect frame) { super<"setFrame:">(CGRect{frame.origin, size}); }
    CGSize sizeThatFits(CGSize) { return size; }
    CGSize intrinsicContentSize() { return size; }

    bool isOn() { return ivars().on; }
    void setOn(bool on) { self()->setOn(on, false); }
    void setOnAnimated(bool on, bool) {
        ivars().on = on;
        show();
    }
    template <auto Member>
    UIColor* colour() {
        return ivars().*Member;
    }
    template <auto Member>
    void set_colour(UIColor* colour) {
        ivars().*Member = colour;
        show();
    }
    void setEnabled(bool enabled) {
        super<"setEnabled:">(enabled);
        self()->setAlpha(enabled ? 1 : 0.5);
    }

    // A touch turns it over when it is lifted, wherever on the switch.
    void endTracking(UITouch* touch, UIEvent* event) {
        super<"endTrackingWithTouch:withEvent:">(touch, event);
        auto* self = this->self();
        if (!self->pointInside(touch->locationInView(self), event)) return;
        self->setOn(!self->isOn(), true);
        self->sendActionsForControlEvents(UIControlEventValueChanged);
    }

    NSString* accessibilityValue() { return NSString::stringWithUTF8String(ivars().on ? "1" : "0"); }

  private:
    void show() {
        auto& parts = ivars();
        UIColor* green = UIColor::colorWithRGB(76 / 255.0, 217 / 255.0, 100 / 255.0, 1);
        UIColor* on = parts.onTintColor ? parts.onTintColor.get() : green;
        parts.track->setBackgroundColor(parts.on ? on : UIColor::whiteColor());
        parts.track->layer()->setBorderWidth(parts.on ? 0 : border);
        parts.track->layer()->setBorderColor(UIColor::colorWithWhite(0.898, 1)->CGColor());
        parts.knob->setBackgroundColor(parts.thumbTintColor ? parts.thumbTintColor.get()
                                                            : UIColor::whiteColor());
        const CGFloat left = parts.on ? size.width - border - knob_size : border;
        parts.knob->setFrame({{left, border}, {knob_size, knob_size}});
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UISwitch, UIControl, Switch,
           method<"initWithFrame:", &Switch::initWithFrame>,
           ivar<"_on", &Switch::Ivars::on>,
           ivar<"_onTintColor", &Switch::Ivars::onTintColor>,
           ivar<"_thumbTintColor", &Switch::Ivars::thumbTintColor>,
           ivar<"_track", &Switch::Ivars::track>,
           ivar<"_knob", &Switch::Ivars::knob>,
           method<"setFrame:", &Switch::setFrame>,
           method<"sizeThatFits:", &Switch::sizeThatFits>,
           method<"intrinsicContentSize", &Switch::intrinsicContentSize>,
           method<"isOn", &Switch::isOn>,
           method<"setOn:", &Switch::setOn>,
           method<"setOn:animated:", &Switch::setOnAnimated>,
           method<"onTintColor", &Switch::colour<&Switch::Ivars::onTintColor>>,
           method<"setOnTintColor:", &Switch::set_colour<&Switch::Ivars::onTintColor>>,
           method<"thumbTintColor", &Switch::colour<&Switch::Ivars::thumbTintColor>>,
           method<"setThumbTintColor:", &Switch::set_colour<&Switch::Ivars::thumbTintColor>>,
           method<"setEnabled:", &Switch::setEnabled>,
           method<"accessibilityValue", &Switch::accessibilityValue>,
           method<"endTrackingWithTouch:withEvent:", &Switch::endTracking>)
