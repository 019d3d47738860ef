// Sliders: a knob on a track.
#include <algorithm>

#include "coregraphics/transform.h"
#include "objc/class.h"
#include "platform/controls.h"
#include "uikit/controls/knob.h"

namespace {

using objc::strong;

struct Slider : objc::Implements<Slider, UISlider> {
    struct Ivars {
        float value = 0, minimumValue = 0, maximumValue = 1;
        bool continuous = true;
        strong<UIColor> minimumTrackTintColor, maximumTrackTintColor, thumbTintColor;
        strong<UIView> minimumTrack, maximumTrack, thumb;
        /// From the knob's middle to the finger that drags it.
        CGFloat grip = 0;
        bool moved = false;
    };

    strong<UISlider> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto* view = static_cast<UIView*>(self.get());
        view->setOpaque(false);
        auto& ivars = self->ivars();
        ivars.maximumTrack = sim::add_rounded_part(view, {}, track_height / 2);
        ivars.minimumTrack = sim::add_rounded_part(view, {}, track_height / 2);
        ivars.thumb = sim::add_knob(view, {}, knob, 0.25f);
        ivars.thumb->layer()->setBorderWidth(0.5);
        ivars.thumb->layer()->setBorderColor(UIColor::colorWithWhite(0, 0.04)->CGColor());
        self->show_colours();
        return self;
    }

    // ---- The value ------------------------------------------------------------------------------

    float value() { return ivars().value; }
    void setValue(float value) { self()->setValue(value, false); }
    void setValueAnimated(float value, bool) {
        ivars().value = std::max(ivars().minimumValue, std::min(value, ivars().maximumValue));
        self()->setNeedsLayout();
    }
    float minimumValue() { return ivars().minimumValue; }
    void setMinimumValue(float value) {
        ivars().minimumValue = value;
        ivars().maximumValue = std::max(ivars().maximumValue, value);
        setValueAnimated(ivars().value, false);
    }
    float maximumValue() { return ivars().maximumValue; }
    void setMaximumValue(float value) {
        ivars().maximumValue = value;
        ivars().minimumValue = std::min(ivars().minimumValue, value);
        setValueAnimated(ivars().value, false);
    }
    bool isContinuous() { return ivars().continuous; }
    void setContinuous(bool continuous) { ivars().continuous = continuous; }

    // ---- What it looks like ---------------------------------------------------------------------

    template <auto Member>
    UIColor* colour() {
        return ivars().*Member;
    }
    template <auto Member>
    void set_colour(UIColor* colour) {
        ivars().*Member = colour;
        show_colours();
    }
    void tintColorDidChange() {
        super<"tintColorDidChange">();
        show_colours();
    }

    CGRect trackRectForBounds(CGRect bounds) {
        return {{bounds.origin.x + track_inset, bounds.origin.y + (bounds.size.height - track_height) / 2},
                {std::max(0.0, bounds.size.width - 2 * track_inset), track_height}};
    }
    // With its shadow the knob is this large; it goes from edge to edge.
    CGRect thumbRectForBounds(CGRect bounds, CGRect track, float value) {
        const float least = ivars().minimumValue, most = ivars().maximumValue;
        const CGFloat part = most > least ? static_cast<CGFloat>(value - least) / (most - least) : 0;
        const CGFloat left = track.origin.x - track_inset;
        const CGFloat way = track.size.width + 2 * track_inset - thumb_size;
        return {{left + part * way, bounds.origin.y + (bounds.size.height - thumb_size) / 2},
                {thumb_size, thumb_size}};
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = this->self();
        const CGRect track = self->trackRectForBounds(self->bounds());
        const CGRect thumb = thumb_rect();
        const CGFloat reached = thumb.origin.x + thumb.size.width / 2 - track.origin.x;
        ivars().minimumTrack->setFrame({track.origin, {std::max(0.0, reached), track.size.height}});
        ivars().maximumTrack->setFrame({{track.origin.x + reached, track.origin.y},
                                        {std::max(0.0, track.size.width - reached), track.size.height}});
        ivars().thumb->setFrame(sim::inset(thumb, (thumb_size - knob) / 2));
    }
    CGSize sizeThatFits(CGSize size) { return {size.width, thumb_size}; }
    CGSize intrinsicContentSize() { return {UIViewNoIntrinsicMetric, thumb_size}; }

    // ---- Touches --------------------------------------------------------------------------------

    // The knob is taken hold of where it reaches out of the slider, too.
    bool pointInside(CGPoint point, UIEvent* event) {
        return super<"pointInside:withEvent:", bool>(point, event) || contains(thumb_rect(), point);
    }

    // Only the knob can be dragged: a finger elsewhere on the track does nothing.
    bool beginTracking(UITouch* touch, UIEvent*) {
        const CGPoint point = touch->locationInView(self());
        const CGRect thumb = thumb_rect();
        if (!contains(sim::inset(thumb, -reach), point)) return false;
        ivars().grip = point.x - (thumb.origin.x + thumb.size.width / 2);
        ivars().moved = false;
        return true;
    }

    bool continueTracking(UITouch* touch, UIEvent*) {
        auto* self = this->self();
        const CGRect track = self->trackRectForBounds(self->bounds());
        const CGFloat left = track.origin.x - track_inset + thumb_size / 2;
        const CGFloat way = track.size.width + 2 * track_inset - thumb_size;
        const CGFloat middle = touch->locationInView(self).x - ivars().grip;
        const CGFloat part = way > 0 ? std::clamp((middle - left) / way, 0.0, 1.0) : 0;
        const float least = ivars().minimumValue, most = ivars().maximumValue;
        const auto value = static_cast<float>(least + part * (most - least));
        if (value == ivars().value) return true;
        self->setValue(value);
        ivars().moved = true;
        if (self->isContinuous()) self->sendActionsForControlEvents(UIControlEventValueChanged);
        return true;
    }

    void endTracking(UITouch*, UIEvent*) {
        auto* self = this->self();
        if (ivars().moved && !self->isContinuous())
            self->sendActionsForControlEvents(UIControlEventValueChanged);
    }

  private:
    static constexpr CGFloat track_height = 2, track_inset = 2, thumb_size = 31, knob = 28;
    /// How far from the knob a finger may land that takes hold of it.
    static constexpr CGFloat reach = 10;

    static bool contains(const CGRect& rect, CGPoint point) {
        return point.x >= rect.origin.x && point.x < rect.origin.x + rect.size.width &&
               point.y >= rect.origin.y && point.y < rect.origin.y + rect.size.height;
    }
    CGRect thumb_rect() {
        auto* self = this->self();
        const CGRect bounds = self->bounds();
        return self->thumbRectForBounds(bounds, self->trackRectForBounds(bounds), ivars().value);
    }
    void show_colours() {
        auto& ivars = this->ivars();
        constexpr CGFloat track_grey = 183 / 255.0;
        auto colour = [](UIColor* own, UIColor* otherwise) { return own ? own : otherwise; };
        ivars.minimumTrack->setBackgroundColor(colour(ivars.minimumTrackTintColor, self()->tintColor()));
        ivars.maximumTrack->setBackgroundColor(
            colour(ivars.maximumTrackTintColor, UIColor::colorWithWhite(track_grey, 1)));
        ivars.thumb->setBackgroundColor(colour(ivars.thumbTintColor, UIColor::whiteColor()));
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UISlider, UIControl, Slider,
           method<"initWithFrame:", &Slider::initWithFrame>,
           ivar<"_value", &Slider::Ivars::value>,
           ivar<"_minimumValue", &Slider::Ivars::minimumValue>,
           ivar<"_maximumValue", &Slider::Ivars::maximumValue>,
           ivar<"_continuous", &Slider::Ivars::continuous>,
           ivar<"_minimumTrackTintColor", &Slider::Ivars::minimumTrackTintColor>,
           ivar<"_maximumTrackTintColor", &Slider::Ivars::maximumTrackTintColor>,
           ivar<"_thumbTintColor", &Slider::Ivars::thumbTintColor>,
           ivar<"_minimumTrack", &Slider::Ivars::minimumTrack>,
           ivar<"_maximumTrack", &Slider::Ivars::maximumTrack>,
           ivar<"_thumb", &Slider::Ivars::thumb>,
           ivar<"_grip", &Slider::Ivars::grip>,
           ivar<"_moved", &Slider::Ivars::moved>,
           method<"value", &Slider::value>,
           method<"setValue:", &Slider::setValue>,
           method<"setValue:animated:", &Slider::setValueAnimated>,
           method<"minimumValue", &Slider::minimumValue>,
           method<"setMinimumValue:", &Slider::setMinimumValue>,
           method<"maximumValue", &Slider::maximumValue>,
           method<"setMaximumValue:", &Slider::setMaximumValue>,
           method<"isContinuous", &Slider::isContinuous>,
           method<"setContinuous:", &Slider::setContinuous>,
           method<"minimumTrackTintColor", &Slider::colour<&Slider::Ivars::minimumTrackTintColor>>,
           method<"setMinimumTrackTintColor:", &Slider::set_colour<&Slider::Ivars::minimumTrackTintColor>>,
           method<"maximumTrackTintColor", &Slider::colour<&Slider::Ivars::maximumTrackTintColor>>,
           method<"setMaximumTrackTintColor:", &Slider::set_colour<&Slider::Ivars::maximumTrackTintColor>>,
           method<"thumbTintColor", &Slider::colour<&Slider::Ivars::thumbTintColor>>,
           method<"setThumbTintColor:", &Slider::set_colour<&Slider::Ivars::thumbTintColor>>,
           method<"tintColorDidChange", &Slider::tintColorDidChange>,
           method<"trackRectForBounds:", &Slider::trackRectForBounds>,
           method<"thumbRectForBounds:trackRect:value:", &Slider::thumbRectForBounds>,
           method<"layoutSubviews", &Slider::layoutSubviews>,
           method<"sizeThatFits:", &Slider::sizeThatFits>,
           method<"intrinsicContentSize", &Slider::intrinsicContentSize>,
           method<"pointInside:withEvent:", &Slider::pointInside>,
           method<"beginTrackingWithTouch:withEvent:", &Slider::beginTracking>,
           method<"continueTrackingWithTouch:withEvent:", &Slider::continueTracking>,
           method<"endTrackingWithTouch:withEvent:", &Slider::endTracking>)
