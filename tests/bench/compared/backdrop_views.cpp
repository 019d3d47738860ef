// Building a backdrop view in four ways.
#include "backdrop_views.h"

#include <array>
#include <utility>
#include <vector>

#include "content_view.h"
#include "least_backdrop.h"
#include "least_classes.h"
#include "objc/fast_enumeration.h"
#include "objc/string.h"
#include "objc/strong.h"
#include "platform/keyboard.h"

namespace bench {

using namespace objc::literals;
using objc::strong;

namespace {

using ColourText = std::array<char16_t, 7>;  // "#RRGGBB"

constexpr CGRect frame{{0, 0}, {375, 260}};
constexpr NSInteger system_style = 0;

using Init = UIKBBackdropView* (*)(UIKBBackdropView*, SEL, CGRect, NSInteger);
Init init_without_hook = nullptr;
Class doing_nothing = nullptr;
Background background;
NSMutableDictionary* values = nullptr;  // the theme's, as it keeps them
std::vector<ColourText> texts;          // of its colours
size_t sends_that_must_be = 0;

strong<UIKBBackdropView> unthemed() {
    UIKBBackdropView* allocated = UIKBBackdropView::alloc();
    return objc::adopt(
        init_without_hook(allocated, objc::selector<"initWithFrame:style:">(), frame, system_style));
}

// ---- Sends, as they are made in the building of a view: each of a selector of its own ------------------

template <size_t Number>
consteval auto nothing() {
    const char text[] = {'n', 'o', 't', 'h', 'i', 'n', 'g', 'A' + Number, 0};
    return objc::Name(text);
}

template <size_t... Numbers>
Class make_class_that_does_nothing(std::index_sequence<Numbers...>) {
    Class made = objc_allocateClassPair(NSObject::class_object(), "HCDoingNothing", 0);
    (class_addMethod(object_getClass(reinterpret_cast<id>(made)), objc::selector<nothing<Numbers>()>(),
                     reinterpret_cast<IMP>(+[](id self, SEL) { return self; }), "@16@0:8"),
     ...);
    objc_registerClassPair(made);
    return made;
}

template <size_t... Numbers>
void send_each(std::index_sequence<Numbers...>, size_t count) {
    ((Numbers < count && objc::send<nothing<Numbers>(), id>(reinterpret_cast<id>(doing_nothing))), ...);
}

/// Checks the digits of a colour's text and reads them, which the library does for each colour of the theme.
bool read_digits(const ColourText& text) {
    auto value_of = [](char16_t unit) {
        return unit >= '0' && unit <= '9' ? unit - '0' : unit >= 'A' && unit <= 'F' ? unit - 'A' + 10 : -1;
    };
    uint32_t value = 0;
    for (int i = 1; i < 7; ++i)
        if (value_of(text[i]) < 0) return false;
    for (int i = 1; i < 7; ++i) value = value << 4 | static_cast<uint32_t>(value_of(text[i]));
    const volatile uint32_t kept = value;
    return kept;
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

constexpr NSUInteger few = 8;  // more than the theme has

NSArray* colours() {
    id colours[few];
    NSUInteger count = 0;
    objc::for_each<NSObject>(as<NSArray>(values->objectForKey("_Colors"_ns)),
                             [&](NSObject* entry) { colours[count++] = colour_of(entry); });
    return NSArray::arrayWithObjects(colours, count);
}

/// Whether the view that is put in is of a class that keeps what it shows in variables, or the system's.
enum class Keeping { nothing, content };

template <Keeping keeping, class Variables>
strong<_UIBackdropView> make_view() {
    if constexpr (keeping == Keeping::content) return ClassOf<Variables>::make();
    return _UIBackdropView::alloc()->initWithStyle(themed_style);
}

template <Keeping keeping>
UIView* flat_view(NSArray* colours) {
    auto themed = make_view<keeping, Coloured>();
    strong<UIView> content = UIView::alloc()->initWithFrame({});
    content->setBackgroundColor(UIColor::clearColor());
    set_up(content);
    themed->addSubview(content);
    switch_off_animations(content->layer());
    colours->count();
    content->setBackgroundColor(static_cast<UIColor*>(colours->objectAtIndex(0)));
    if constexpr (keeping == Keeping::content)
        ClassOf<Coloured>::variables(themed).content = std::move(content);
    return std::move(themed).autoreleased();
}

void give_points(CAGradientLayer* layer) {
    layer->setStartPoint({1, 0});
    layer->setEndPoint({0, 1});
}

template <Keeping keeping>
UIView* gradient_view(NSArray* colours) {
    auto themed = make_view<keeping, Gradient>();
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
    id core_colours[few];
    NSUInteger count = 0;
    objc::for_each<UIColor>(
        colours, [&](UIColor* colour) { core_colours[count++] = reinterpret_cast<id>(colour->CGColor()); });
    layer->setColors(NSArray::arrayWithObjects(core_colours, count));
    if constexpr (keeping == Keeping::content)
        ClassOf<Gradient>::variables(themed) = {std::move(content), std::move(layer), true};
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

template <Keeping keeping>
void theme_by_hand(UIKBBackdropView* backdrop) {
    backdrop->setBackgroundColor(UIColor::clearColor());
    NSArray* colours = bench::colours();
    number("_BackgroundType"_ns);
    UIView* themed =
        background == Background::flat ? flat_view<keeping>(colours) : gradient_view<keeping>(colours);
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
    doing_nothing = make_class_that_does_nothing(std::make_index_sequence<sends_allowed>());
    make_least_classes();
}

void know_theme(Background wanted, NSMutableDictionary* theme) {
    background = wanted;
    values = theme;
    objc::for_each<NSString>(as<NSArray>(values->objectForKey("_Colors"_ns)), [](NSString* text) {
        text->getCharacters(texts.emplace_back().data(), {0, text->length()});
    });
}

void know_sends(size_t count) { sends_that_must_be = count; }

strong<UIKBBackdropView> themed_view() {
    return UIKBBackdropView::alloc()->initWithFrame(frame, system_style);
}
strong<UIKBBackdropView> unthemed_view() { return unthemed(); }
strong<UIKBBackdropView> view_themed_by_hand() {
    strong<UIKBBackdropView> backdrop = unthemed();
    theme_by_hand<Keeping::nothing>(backdrop);
    return backdrop;
}
strong<UIKBBackdropView> view_themed_with_the_least() {
    strong<UIKBBackdropView> backdrop = unthemed();
    theme_with_the_least(backdrop, values);
    return backdrop;
}
strong<UIKBBackdropView> view_themed_by_hand_with_sends() {
    strong<UIKBBackdropView> backdrop = view_themed_by_hand();
    send_each(std::make_index_sequence<sends_allowed>(), sends_allowed);
    return backdrop;
}
strong<UIKBBackdropView> view_themed_by_hand_with_what_must_be() {
    strong<UIKBBackdropView> backdrop = unthemed();
    theme_by_hand<Keeping::content>(backdrop);
    send_each(std::make_index_sequence<sends_allowed>(), sends_that_must_be);
    for (const auto& text : texts) read_digits(text);
    return backdrop;
}

void build_themed_views() { a_hundred_times<themed_view>(); }
void build_unthemed_views() { a_hundred_times<unthemed_view>(); }
void build_views_by_hand() { a_hundred_times<view_themed_by_hand>(); }
void build_views_with_the_least() { a_hundred_times<view_themed_with_the_least>(); }
void build_views_by_hand_with_what_must_be() { a_hundred_times<view_themed_by_hand_with_what_must_be>(); }
void build_views_by_hand_and_send() { a_hundred_times<view_themed_by_hand_with_sends>(); }

}  // namespace bench
