// Building a backdrop view in three ways.
#include "backdrop_views.h"

#include "objc/fast_enumeration.h"
#include "objc/string.h"
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace bench {

using namespace objc::literals;
using objc::strong;

namespace {

constexpr CGRect frame{{0, 0}, {375, 260}};
constexpr NSInteger system_style = 0, themed_style = 2;

using Init = UIKBBackdropView* (*)(UIKBBackdropView*, SEL, CGRect, NSInteger);
Init init_without_hook = nullptr;
id receiver = nullptr;
Background background;
NSMutableDictionary* values = nullptr;  // the theme's, as it keeps them

strong<UIKBBackdropView> unthemed() {
    UIKBBackdropView* allocated = UIKBBackdropView::alloc();
    return objc::adopt(
        init_without_hook(allocated, objc::selector<"initWithFrame:style:">(), frame, system_style));
}

// ---- The theme's operations of the system -------------------------------------------------------

int number(NSString* key) {
    auto* value = static_cast<NSObject*>(values->objectForKey(key));
    return value->respondsToSelector(objc::selector<"intValue">()) ? value->send<"intValue", int>() : 0;
}

// A text is asked for its length and its characters as often as it is checked, measured and read.
UIColor* colour_of(NSObject* entry) {
    auto* text = as<NSString>(entry);
    char16_t units[32];
    text->length();
    text->getCharacters(units, {0, text->length()});
    text->getCharacters(units, {0, text->length()});
    text->length();
    return UIColor::colorWithRGB(0.2, 0.4, 0.6, 1.0);
}

NSArray* colours() {
    auto* texts = as<NSArray>(values->objectForKey("_Colors"_ns));
    NSMutableArray* colours = NSMutableArray::arrayWithCapacity(texts->count());
    objc::for_each<NSObject>(texts, [&](NSObject* entry) { colours->addObject(colour_of(entry)); });
    return colours->count() ? NSArray::arrayWithArray(colours) : nullptr;
}

void set_up(UIView* content) {
    content->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    content->layer()->setShouldRasterize(true);
    content->layer()->setRasterizationScale(UIScreen::mainScreen()->scale());
    content->setOpaque(true);
}

void switch_off_animations(CALayer* layer) {
    const id keys[] = {"onOrderIn"_ns, "onOrderOut"_ns, "sublayers"_ns, "contents"_ns,
                       "bounds"_ns,    "onLayout"_ns,   "position"_ns};
    id nothing[7];
    for (id& action : nothing) action = NSNull::null();
    layer->setActions(NSDictionary::dictionaryWithObjects(nothing, keys, 7));
}

UIView* flat_view(NSArray* colours) {
    strong<_UIBackdropView> themed =
        _UIBackdropView::alloc()->send<"initWithStyle:", strong<_UIBackdropView>>(themed_style);
    strong<UIView> content = UIView::alloc()->initWithFrame({});
    content->setBackgroundColor(UIColor::clearColor());
    set_up(content);
    themed->addSubview(content);
    switch_off_animations(content->layer());
    colours->count();
    content->setBackgroundColor(static_cast<UIColor*>(colours->objectAtIndex(0)));
    return std::move(themed).autoreleased();
}

void give_points(CAGradientLayer* layer) {
    layer->setStartPoint({1, 0});
    layer->setEndPoint({0, 1});
}

UIView* gradient_view(NSArray* colours) {
    strong<_UIBackdropView> themed =
        _UIBackdropView::alloc()->send<"initWithStyle:", strong<_UIBackdropView>>(themed_style);
    strong<UIView> content = UIView::alloc()->initWithFrame({});
    content->setBackgroundColor(UIColor::clearColor());
    set_up(content);
    themed->addSubview(content);
    strong<CAGradientLayer> layer = CAGradientLayer::layer();
    give_points(layer);
    content->layer()->addSublayer(layer);
    switch_off_animations(layer);
    switch_off_animations(content->layer());
    number("_GradientDirection"_ns);
    give_points(layer);
    colours->count();
    NSMutableArray* core_colours = NSMutableArray::arrayWithCapacity(colours->count() + 1);
    objc::for_each<UIColor>(
        colours, [&](UIColor* colour) { core_colours->addObject(reinterpret_cast<id>(colour->CGColor())); });
    core_colours->count();
    layer->setColors(NSArray::arrayWithArray(core_colours));
    return std::move(themed).autoreleased();
}

const char active_view_key = 0;

// A pool for each: with a hundred views' memory to look after, the allocator takes longer, and more so for
// some sizes than for others.
template <auto Function>
void a_hundred_times() {
    for (int i = 0; i < 100; ++i) {
        objc::AutoreleasePool pool;
        Function();
    }
}

void theme_by_hand(UIKBBackdropView* backdrop) {
    backdrop->setBackgroundColor(UIColor::clearColor());
    NSArray* colours = bench::colours();
    number("_BackgroundType"_ns);
    UIView* themed = background == Background::flat ? flat_view(colours) : gradient_view(colours);
    constexpr uintptr_t retain_nonatomic = 1;
    objc_setAssociatedObject(backdrop, &active_view_key, themed, retain_nonatomic);
    objc_autorelease(objc_retain(objc_getAssociatedObject(backdrop, &active_view_key)));
    themed->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    backdrop->contentView()->addSubview(themed);
}

}  // namespace

void know_system() {
    objc::adopt_strings();
    init_without_hook = reinterpret_cast<Init>(class_getMethodImplementation(
        UIKBBackdropView::class_object(), objc::selector<"initWithFrame:style:">()));
    receiver = reinterpret_cast<id>(NSObject::class_object());
}

void know_theme(Background wanted, NSMutableDictionary* theme) {
    background = wanted;
    values = theme;
}

strong<UIKBBackdropView> themed_view() {
    return UIKBBackdropView::alloc()->initWithFrame(frame, system_style);
}
strong<UIKBBackdropView> unthemed_view() { return unthemed(); }
strong<UIKBBackdropView> view_themed_by_hand() {
    strong<UIKBBackdropView> backdrop = unthemed();
    theme_by_hand(backdrop);
    return backdrop;
}

void build_themed_views() { a_hundred_times<themed_view>(); }
void build_unthemed_views() { a_hundred_times<unthemed_view>(); }
void build_views_by_hand() { a_hundred_times<view_themed_by_hand>(); }
void send_often() {
    for (int i = 0; i < 10000; ++i) objc::send<"self", id>(receiver);
}

}  // namespace bench
