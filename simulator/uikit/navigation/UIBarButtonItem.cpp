// Bar button items: texts, images, the system's own, and views of their owner's.
#include "uikit/navigation/UIBarButtonItem.h"

#include <algorithm>

#include "objc/string.h"
#include "runtime/not_modelled.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

namespace {

constexpr CGFloat least_width = 30, height = 44, title_size = 17;

/// What the system's items say, which follows the application's language on the device.
NSString* system_title(UIBarButtonSystemItem item) {
    switch (item) {
        case UIBarButtonSystemItemDone: return "Done"_ns;
        case UIBarButtonSystemItemCancel: return "Cancel"_ns;
        case UIBarButtonSystemItemEdit: return "Edit"_ns;
        case UIBarButtonSystemItemSave: return "Save"_ns;
        case UIBarButtonSystemItemUndo: return "Undo"_ns;
        case UIBarButtonSystemItemRedo: return "Redo"_ns;
        default: return nullptr;
    }
}

/// What VoiceOver says of the system's pictures.
NSString* system_label(UIBarButtonSystemItem item) {
    switch (item) {
        case UIBarButtonSystemItemAdd: return "Add"_ns;
        case UIBarButtonSystemItemAction: return "Share"_ns;
        case UIBarButtonSystemItemTrash: return "Delete"_ns;
        default: return nullptr;
    }
}

void line(CGContextRef context, CGPoint from, CGPoint to) {
    CGContextMoveToPoint(context, from.x, from.y);
    CGContextAddLineToPoint(context, to.x, to.y);
}

/// A plus, a box that something leaves upwards, or a bin.
UIImage* system_picture(UIBarButtonSystemItem item) {
    constexpr CGFloat size = 22;
    UIGraphicsBeginImageContextWithOptions({size, size}, false, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetStrokeColorWithColor(context, UIColor::blackColor()->CGColor());
    CGContextSetLineWidth(context, 1.5);
    switch (item) {
        case UIBarButtonSystemItemAdd:
            line(context, {11, 3}, {11, 19});
            line(context, {3, 11}, {19, 11});
            break;
        case UIBarButtonSystemItemAction:
            line(context, {11, 1}, {11, 14});
            line(context, {7, 5}, {11, 1});
            line(context, {11, 1}, {15, 5});
            line(context, {8, 8}, {4, 8});
            line(context, {4, 8}, {4, 20});
            line(context, {4, 20}, {18, 20});
            line(context, {18, 20}, {18, 8});
            line(context, {18, 8}, {14, 8});
            break;
        case UIBarButtonSystemItemTrash:
            line(context, {4, 5}, {18, 5});
            line(context, {9, 5}, {9, 2.5});
            line(context, {9, 2.5}, {13, 2.5});
            line(context, {13, 2.5}, {13, 5});
            line(context, {5.5, 5}, {6.5, 20});
            line(context, {6.5, 20}, {15.5, 20});
            line(context, {15.5, 20}, {16.5, 5});
            break;
        default: not_modelled("UIBarButtonItem", "initWithBarButtonSystemItem:target:action:", "this item");
    }
    CGContextStrokePath(context);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

bool is_space(UIBarButtonSystemItem item) {
    return item == UIBarButtonSystemItemFlexibleSpace || item == UIBarButtonSystemItemFixedSpace;
}

}  // namespace

strong<UIBarButtonItem> BarButtonItem::init() {
    return strong<UIBarButtonItem>(initialised_by_super<"init">().get());
}

strong<UIBarButtonItem> BarButtonItem::initWithTitle(NSString* title, UIBarButtonItemStyle style, id target,
                                                     SEL action) {
    auto self = initialised_by_super<"init">();
    if (!self) return nullptr;
    self->ivars().title = strong<NSString>::adopt(title->send<"copy", NSString*>());
    self->ivars().style = style;
    self->ivars().target = static_cast<NSObject*>(target);
    self->ivars().action = action;
    return strong<UIBarButtonItem>(self.get());
}

strong<UIBarButtonItem> BarButtonItem::initWithImage(UIImage* image, UIBarButtonItemStyle style, id target,
                                                     SEL action) {
    auto self = initWithTitle(nullptr, style, target, action);
    static_cast<BarButtonItem*>(self.get())->ivars().image = image;
    return self;
}

strong<UIBarButtonItem> BarButtonItem::initWithSystemItem(UIBarButtonSystemItem item, id target, SEL action) {
    auto self = initWithTitle(nullptr, UIBarButtonItemStylePlain, target, action);
    static_cast<BarButtonItem*>(self.get())->setSystemItem(item);
    return self;
}

strong<UIBarButtonItem> BarButtonItem::initWithCustomView(UIView* view) {
    auto self = initWithTitle(nullptr, UIBarButtonItemStylePlain, nullptr, nullptr);
    static_cast<BarButtonItem*>(self.get())->ivars().customView = view;
    return self;
}

void BarButtonItem::changed() {
    if (const auto bar = ivars().bar.get()) bar->send<"_itemsChanged">();
}

void BarButtonItem::setTitle(NSString* title) {
    ivars().title = strong<NSString>::adopt(title->send<"copy", NSString*>());
    changed();
}
void BarButtonItem::setImage(UIImage* image) {
    ivars().image = image;
    changed();
}
void BarButtonItem::setStyle(UIBarButtonItemStyle style) {
    ivars().style = style;
    changed();
}
void BarButtonItem::setEnabled(bool enabled) {
    ivars().enabled = enabled;
    changed();
}
void BarButtonItem::setTintColor(UIColor* color) {
    ivars().tintColor = color;
    changed();
}
void BarButtonItem::setCustomView(UIView* view) {
    ivars().customView = view;
    changed();
}

void BarButtonItem::setSystemItem(UIBarButtonSystemItem item) {
    ivars().systemItem = item;
    ivars().title = system_title(item);
    if (!ivars().title && !is_space(item)) ivars().image = system_picture(item);
    ivars().style = item == UIBarButtonSystemItemDone || item == UIBarButtonSystemItemSave
                        ? UIBarButtonItemStyleDone
                        : UIBarButtonItemStylePlain;
    changed();
}

void BarButtonItem::pressed() {
    const auto target = ivars().target.get();
    UIApplication::sharedApplication()->sendAction(ivars().action, target, self(), nullptr);
}

strong<UIView> BarButtonItem::make_view(UIView* bar) {
    auto* self = this->self();
    ivars().bar = bar;
    if (UIView* custom = self->customView()) return custom;
    if (is_space(ivars().systemItem)) {
        if (ivars().systemItem == UIBarButtonSystemItemFlexibleSpace) return nullptr;
        return UIView::alloc()->initWithFrame({{0, 0}, {ivars().width, height}});
    }
    UIButton* button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->titleLabel()->setFont(UIFont::systemFontOfSize(
        title_size, self->style() == UIBarButtonItemStyleDone ? UIFontWeightSemibold : UIFontWeightRegular));
    if (self->image())
        button->setImage(self->image(), UIControlStateNormal);
    else
        button->setTitle(self->title(), UIControlStateNormal);
    if (UIColor* tint = self->tintColor()) button->setTintColor(tint);
    button->setEnabled(self->isEnabled());
    button->addTarget(self, objc::selector<"_pressed">(), UIControlEventTouchUpInside);
    NSString* spoken = self->accessibilityLabel();
    if (!spoken) spoken = system_label(ivars().systemItem);
    if (spoken) button->setAccessibilityLabel(spoken);
    button->setAccessibilityIdentifier(self->accessibilityIdentifier());
    const CGSize size = button->sizeThatFits({});
    button->setFrame({{0, 0}, {std::max(least_width, size.width), height}});
    return strong<UIView>(button);
}

}  // namespace sim

using namespace objc::definition;
using sim::BarButtonItem;

OBJC_CLASS(UIBarButtonItem, UIBarItem, BarButtonItem,
           ivar<"_title", &BarButtonItem::Ivars::title>,
           ivar<"_image", &BarButtonItem::Ivars::image>,
           ivar<"_style", &BarButtonItem::Ivars::style>,
           property<"target", &BarButtonItem::Ivars::target>,
           property<"action", &BarButtonItem::Ivars::action>,
           ivar<"_customView", &BarButtonItem::Ivars::customView>,
           ivar<"_tintColor", &BarButtonItem::Ivars::tintColor>,
           ivar<"_systemItem", &BarButtonItem::Ivars::systemItem>,
           ivar<"_enabled", &BarButtonItem::Ivars::enabled>,
           property<"width", &BarButtonItem::Ivars::width>,
           ivar<"_bar", &BarButtonItem::Ivars::bar>,
           method<"init", &BarButtonItem::init>,
           method<"initWithTitle:style:target:action:", &BarButtonItem::initWithTitle>,
           method<"initWithImage:style:target:action:", &BarButtonItem::initWithImage>,
           method<"initWithBarButtonSystemItem:target:action:", &BarButtonItem::initWithSystemItem>,
           method<"initWithCustomView:", &BarButtonItem::initWithCustomView>,
           method<"title", &BarButtonItem::title>,
           method<"setTitle:", &BarButtonItem::setTitle>,
           method<"image", &BarButtonItem::image>,
           method<"setImage:", &BarButtonItem::setImage>,
           method<"style", &BarButtonItem::style>,
           method<"setStyle:", &BarButtonItem::setStyle>,
           method<"isEnabled", &BarButtonItem::isEnabled>,
           method<"setEnabled:", &BarButtonItem::setEnabled>,
           method<"tintColor", &BarButtonItem::tintColor>,
           method<"setTintColor:", &BarButtonItem::setTintColor>,
           method<"customView", &BarButtonItem::customView>,
           method<"setCustomView:", &BarButtonItem::setCustomView>,
           method<"systemItem", &BarButtonItem::systemItem>,
           method<"_setSystemItem:", &BarButtonItem::setSystemItem>,
           method<"_pressed", &BarButtonItem::pressed>)
