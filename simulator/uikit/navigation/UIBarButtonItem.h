// The implementation of bar button items: their state, and the button that a bar shows for one.
#pragma once
#include <string>

#include "objc/class.h"
#include "platform/controls.h"
#include "platform/navigation.h"

namespace sim {

struct BarButtonItem : objc::Implements<BarButtonItem, UIBarButtonItem> {
    static constexpr UIBarButtonSystemItem no_system_item = -1;

    struct Ivars {
        objc::strong<NSString> title;
        objc::strong<UIImage> image;
        UIBarButtonItemStyle style = UIBarButtonItemStylePlain;
        objc::weak<NSObject> target;
        SEL action = nullptr;
        objc::strong<UIView> customView;
        objc::strong<UIColor> tintColor;
        UIBarButtonSystemItem systemItem = no_system_item;
        bool enabled = true;
        CGFloat width = 0;
        /// Where it is shown: laid out again when the item changes.
        objc::weak<UIView> bar;
    };

    objc::strong<UIBarButtonItem> init();
    objc::strong<UIBarButtonItem> initWithTitle(NSString* title, UIBarButtonItemStyle style, id target,
                                                SEL action);
    objc::strong<UIBarButtonItem> initWithImage(UIImage* image, UIBarButtonItemStyle style, id target,
                                                SEL action);
    objc::strong<UIBarButtonItem> initWithSystemItem(UIBarButtonSystemItem item, id target, SEL action);
    objc::strong<UIBarButtonItem> initWithCustomView(UIView* view);

    NSString* title() { return ivars().title; }
    void setTitle(NSString* title);
    UIImage* image() { return ivars().image; }
    void setImage(UIImage* image);
    UIBarButtonItemStyle style() { return ivars().style; }
    void setStyle(UIBarButtonItemStyle style);
    bool isEnabled() { return ivars().enabled; }
    void setEnabled(bool enabled);
    UIColor* tintColor() { return ivars().tintColor; }
    void setTintColor(UIColor* color);
    UIView* customView() { return ivars().customView; }
    void setCustomView(UIView* view);
    void setSystemItem(UIBarButtonSystemItem item);
    UIBarButtonSystemItem systemItem() { return ivars().systemItem; }
    void pressed();

    /// A new view for a bar, as large as it wants to be; nil for a flexible space.
    objc::strong<UIView> make_view(UIView* bar);

  private:
    void changed();
};

}  // namespace sim
