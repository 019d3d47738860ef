#include "least_backdrop.h"

#include "content_view.h"
#include "least_classes.h"
#include "objc/string.h"

namespace bench {

using namespace objc::literals;
using objc::strong;

namespace {

// ---- Views that keep what they show -----------------------------------------------------------------------

void lay_out_gradient(id self, SEL selector) {
    objc_super super{self, _UIBackdropView::class_object()};
    reinterpret_cast<void (*)(id, SEL)>(objc_msg_lookup_super(&super, selector))(self, selector);
    const Gradient& gradient = ClassOf<Gradient>::variables(self);
    if (gradient.follows_layout) gradient.layer->setFrame(gradient.content->bounds());
}

// ---- What the theme says ----------------------------------------------------------------------------------

struct Rgb {
    CGFloat components[4];
};

/// The value of a hexadecimal digit; beyond 15 for anything else.
unsigned value_of(char16_t unit) {
    const unsigned digit = unit - u'0', letter = (unit | 0x20u) - u'a';
    return digit < 10 ? digit : letter < 6 ? letter + 10 : 16;
}

/// "#RRGGBB" or "#RRGGBBAA", or transparent.
Rgb colour_of(NSString* text) {
    constexpr Rgb transparent{};
    constexpr NSUInteger opaque = 7, translucent = 9;
    const NSUInteger length = text->length();
    if (length != opaque && length != translucent) return transparent;
    char16_t units[translucent];
    text->getCharacters(units, {0, length});
    uint32_t value = 0;
    for (NSUInteger i = 1; i < length; ++i) {
        const unsigned digit = value_of(units[i]);
        if (digit > 15) return transparent;
        value = value << 4 | digit;
    }
    if (length == opaque)
        return {{(value >> 16) / 255.0, (value >> 8 & 255) / 255.0, (value & 255) / 255.0, 1}};
    return {{(value >> 24) / 255.0, (value >> 16 & 255) / 255.0, (value >> 8 & 255) / 255.0,
             (value & 255) / 255.0}};
}

int number_of(id value) {
    auto* object = static_cast<NSObject*>(value);
    return object->respondsToSelector(objc::selector<"intValue">()) ? object->send<"intValue", int>() : 0;
}

// ---- The view that shows it -------------------------------------------------------------------------------

strong<UIView> make_content(UIColor* colour) {
    strong<UIView> content = UIView::alloc()->initWithFrame({});
    content->setBackgroundColor(colour);
    set_up(content);
    return content;
}

strong<_UIBackdropView> coloured(NSArray* texts) {
    const auto [components] = colour_of(as<NSString>(texts->objectAtIndex(0)));
    auto view = ClassOf<Coloured>::make();
    strong<UIView>& content = ClassOf<Coloured>::variables(view).content;
    content = make_content(UIColor::colorWithRGB(components[0], components[1], components[2], components[3]));
    view->addSubview(content);
    switch_off_animations(content->layer());
    return view;
}

strong<_UIBackdropView> gradient(NSArray* texts, int direction) {
    constexpr CGPoint starts[] = {{0.5, 1}, {0.5, 0}, {1, 0.5}, {0, 0.5}, {1, 1}, {0, 1}, {1, 0}, {0, 0}};
    constexpr NSUInteger most = 16;
    id colours[most];
    NSUInteger count = texts->count();
    if (count > most) count = most;
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    for (NSUInteger i = 0; i < count; ++i) {
        const Rgb colour = colour_of(as<NSString>(texts->objectAtIndex(i)));
        colours[i] = reinterpret_cast<id>(CGColorCreate(space, colour.components));
    }
    CGColorSpaceRelease(space);
    strong<NSArray> list = NSArray::arrayWithObjects(colours, count);
    for (NSUInteger i = 0; i < count; ++i) CGColorRelease(reinterpret_cast<CGColorRef>(colours[i]));

    auto view = ClassOf<Gradient>::make();
    auto& [content, layer, follows_layout] = ClassOf<Gradient>::variables(view);
    content = make_content(UIColor::clearColor());
    layer = CAGradientLayer::layer();
    follows_layout = true;
    const CGPoint start = starts[direction - 1];
    layer->setStartPoint(start);
    layer->setEndPoint({1 - start.x, 1 - start.y});
    layer->setColors(list);
    switch_off_animations(layer);
    view->addSubview(content);
    CALayer* below = content->layer();
    below->addSublayer(layer);
    switch_off_animations(below);
    return view;
}

const char active_view_key = 0;

}  // namespace

void make_least_classes() {
    ClassOf<Coloured>::make_class("LeastColouredView");
    ClassOf<Gradient>::make_class("LeastGradientView");
    class_addMethod(ClassOf<Gradient>::made(), objc::selector<"layoutSubviews">(),
                    reinterpret_cast<IMP>(&lay_out_gradient), "v16@0:8");
}

void theme_with_the_least(UIKBBackdropView* backdrop, NSDictionary* theme) {
    backdrop->setBackgroundColor(UIColor::clearColor());
    auto* texts = as<NSArray>(theme->objectForKey("_Colors"_ns));
    constexpr int of_two_colours = 2;
    const strong<_UIBackdropView> themed =
        number_of(theme->objectForKey("_BackgroundType"_ns)) == of_two_colours
            ? gradient(texts, number_of(theme->objectForKey("_GradientDirection"_ns)))
            : coloured(texts);
    constexpr uintptr_t retain_nonatomic = 1;
    objc_setAssociatedObject(backdrop, &active_view_key, themed, retain_nonatomic);
    themed->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    backdrop->contentView()->addSubview(themed);
}

UIView* shown_by_the_least(UIKBBackdropView* backdrop) {
    return static_cast<UIView*>(objc_getAssociatedObject(backdrop, &active_view_key));
}

}  // namespace bench
