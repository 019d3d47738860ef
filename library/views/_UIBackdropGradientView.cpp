// A backdrop that shows a gradient.
#include "objc/class.h"
#include "objc/fast_enumeration.h"
#include "platform/owned_graphics.h"
#include "views/backdrop_content.h"
#include "views/backdrops.h"
#include "views/gradient_colours.h"
#include "views/gradient_direction.h"

namespace {

using objc::strong;

struct GradientBackdrop : objc::Implements<GradientBackdrop, _UIBackdropGradientView> {
    struct Ivars {
        strong<UIView> gradientView;
        strong<CAGradientLayer> gradientLayer;
        /// While true, layout keeps the layer's frame equal to the view's bounds.
        bool layoutGradientLayer;
    };

    static constexpr NSInteger top_to_bottom = 2;

    static _UIBackdropGradientView* backdropWithStyle(Class self, NSInteger style) {
        using Made = _UIBackdropGradientView;
        return objc::make<"initWithStyle:direction:", Made>(self, style, top_to_bottom).autoreleased();
    }

    strong<_UIBackdropGradientView> initWithoutColors(NSInteger style, NSInteger direction) {
        return self()->initWithStyle(style, nullptr, direction);
    }

    strong<_UIBackdropGradientView> initWithStyle(NSInteger style, NSArray* colours, NSInteger direction) {
        auto self = initialised_by_super<"initWithStyle:">(style);
        if (!self) return nullptr;
        auto& [content, gradient, follows_layout] = self->ivars();
        content = UIView::alloc()->initWithFrame({});
        content->setBackgroundColor(UIColor::clearColor());
        set_up_content_view(content);
        self->addSubview(content);
        gradient = CAGradientLayer::layer();
        follows_layout = true;
        self->self()->setDirection(direction);
        content->layer()->addSublayer(gradient);
        if (colours) self->self()->setColors(colours);
        switch_off_animations(gradient);
        switch_off_animations(content->layer());
        return self;
    }

    void setDirection(NSInteger direction) {
        const GradientPoints points = points_of_direction(direction);
        ivars().gradientLayer->setStartPoint(points.start);
        ivars().gradientLayer->setEndPoint(points.end);
    }

    void setColors(NSArray* colours) { ivars().gradientLayer->setColors(gradient_layer_colours(colours)); }

    void setColorsAlpha(CGFloat alpha) {
        NSArray* shown = ivars().gradientLayer->colors();
        NSMutableArray* changed = NSMutableArray::arrayWithCapacity(shown->count());
        objc::for_each<objc_object>(shown, [&](id colour) {
            const cg::owned copy(CGColorCreateCopyWithAlpha(reinterpret_cast<CGColorRef>(colour), alpha));
            changed->addObject(reinterpret_cast<id>(copy.get()));
        });
        ivars().gradientLayer->setColors(changed);
    }

    /// Leaves the layer at the picture's size; the next layout puts it back.
    UIImage* imageFromGradientOfSize(CGSize size) {
        CAGradientLayer* gradient = ivars().gradientLayer;
        ivars().layoutGradientLayer = false;  // a layout pass meanwhile must not move the layer
        gradient->setFrame({{0, 0}, size});
        gradient->setNeedsLayout();
        gradient->layoutIfNeeded();
        const cg::ImageContext context(gradient->frame().size, 0.0, gradient->isOpaque());
        gradient->renderInContext(context);
        UIImage* image = context.image();
        ivars().layoutGradientLayer = true;
        return image;
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        if (ivars().layoutGradientLayer) ivars().gradientLayer->setFrame(ivars().gradientView->bounds());
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS_OF_WEAK_SUPERCLASS(_UIBackdropGradientView, _UIBackdropView, GradientBackdrop,
                              // Variables
                              ivar<"gradientView", &GradientBackdrop::Ivars::gradientView>,
                              ivar<"gradientLayer", &GradientBackdrop::Ivars::gradientLayer>,
                              ivar<"layoutGradientLayer", &GradientBackdrop::Ivars::layoutGradientLayer>,

                              // Making it
                              class_method<"backdropWithStyle:", &GradientBackdrop::backdropWithStyle>,
                              method<"initWithStyle:direction:", &GradientBackdrop::initWithoutColors>,
                              method<"initWithStyle:colors:direction:", &GradientBackdrop::initWithStyle>,

                              // The gradient
                              method<"setDirection:", &GradientBackdrop::setDirection>,
                              method<"setColors:", &GradientBackdrop::setColors>,
                              method<"setColorsAlpha:", &GradientBackdrop::setColorsAlpha>,
                              method<"imageFromGradientOfSize:", &GradientBackdrop::imageFromGradientOfSize>,

                              // Layout
                              method<"layoutSubviews", &GradientBackdrop::layoutSubviews>)
