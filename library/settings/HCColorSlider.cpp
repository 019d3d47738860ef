#include "settings/HCColorSlider.h"

#include "objc/class.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct ColorSlider : objc::Implements<ColorSlider, HCColorSlider> {
    struct Ivars {
        strong<UISlider> slider;
        CGRect backgroundFrame;
        NSUInteger type;
        strong<UIView> backgroundView;
        strong<CAGradientLayer> gradientLayer;
    };

    static constexpr CGFloat track_inset = 2.5;

    strong<HCColorSlider> initWithFrame(CGRect frame, NSUInteger type) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto& [slider, track_frame, channel, track, gradient] = self->ivars();
        channel = type;
        track_frame = {{track_inset, 0}, {frame.size.width - 2 * track_inset, frame.size.height}};

        // The centre is in the superview's coordinates, here and below; layout puts both where they belong.
        track = UIView::alloc()->initWithFrame(track_frame);
        track->setCenter(self->center());
        track->layer()->setCornerRadius(frame.size.height * 0.5);
        track->layer()->setMasksToBounds(true);
        self->addSubview(track);

        gradient = CAGradientLayer::layer();
        gradient->setFrame(track->bounds());
        gradient->setStartPoint({0, 0.5});
        gradient->setEndPoint({1, 0.5});
        track->layer()->insertSublayer(gradient, 0);

        slider = UISlider::make<"initWithFrame:">(self->bounds());
        slider->setCenter(self->center());
        slider->setMaximumTrackTintColor(UIColor::clearColor());
        slider->setMinimumTrackTintColor(UIColor::clearColor());
        self->addSubview(slider);
        return self;
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto& [slider, track_frame, type, track, gradient] = ivars();
        track->setFrame(track_frame);
        gradient->setFrame(track->bounds());
        slider->setFrame(bounds());
    }

    void minMaxOfColor(UIColor* colour) {
        CGFloat channels[4]{};
        auto& [red, green, blue, alpha] = channels;
        colour->getRGB(&red, &green, &blue, &alpha);
        UIColor *start = nullptr, *end = nullptr;
        const NSUInteger type = ivars().type;
        if (type >= red_channel && type <= alpha_channel) {
            CGFloat& channel = channels[type - red_channel];
            const CGFloat value = channel;
            channel = 0;
            start = UIColor::colorWithRGB(red, green, blue, alpha);
            channel = 1;
            end = UIColor::colorWithRGB(red, green, blue, alpha);
            ivars().slider->setValue(static_cast<float>(value));
        } else {
            NSLog("Error no type declared."_ns);
        }
        self()->setStartColor(start, end);  // which raises for nil
    }

    void setStartColor(UIColor* start, UIColor* end) {
        const id colours[] = {reinterpret_cast<id>(start->CGColor()), reinterpret_cast<id>(end->CGColor())};
        ivars().gradientLayer->setColors(NSArray::arrayWithObjects(colours, 2));
    }

    double getValue() { return static_cast<double>(ivars().slider->value()); }

    void setTag(NSInteger tag) {
        super<"setTag:">(tag);
        ivars().slider->setTag(tag);
    }

    void addTarget(id target, SEL action, UIControlEvents events) {
        ivars().slider->addTarget(target, action, events);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCColorSlider, UIView, ColorSlider,
           // Properties
           property<"slider", &ColorSlider::Ivars::slider>,
           property<"backgroundFrame", &ColorSlider::Ivars::backgroundFrame>,
           property<"type", &ColorSlider::Ivars::type>,
           property<"backgroundView", &ColorSlider::Ivars::backgroundView>,
           property<"gradientLayer", &ColorSlider::Ivars::gradientLayer>,

           // The view's life
           method<"initWithFrame:withType:", &ColorSlider::initWithFrame>,
           method<"layoutSubviews", &ColorSlider::layoutSubviews>,

           // The colour
           method<"minMaxOfColor:", &ColorSlider::minMaxOfColor>,
           method<"setStartColor:andEndColor:", &ColorSlider::setStartColor>,
           read_only_property<"value", "getValue", &ColorSlider::getValue>,

           // The inner slider
           method<"setTag:", &ColorSlider::setTag>,
           method<"addTarget:action:forControlEvents:", &ColorSlider::addTarget>)
