// What a navigation bar shows of a controller; the bar that shows it hears of changes.
#include "objc/class.h"
#include "platform/navigation.h"

namespace {

using objc::strong;

struct Item : objc::Implements<Item, UINavigationItem> {
    struct Ivars {
        strong<NSString> title;
        strong<UIView> titleView;
        strong<NSArray> leftBarButtonItems, rightBarButtonItems;
        strong<UIBarButtonItem> backBarButtonItem;
        bool hidesBackButton, leftItemsSupplementBackButton;
        UINavigationItemLargeTitleDisplayMode largeTitleDisplayMode;
        strong<NSString> prompt;
        objc::weak<UIView> bar;
    };

    strong<UINavigationItem> initWithTitle(NSString* title) {
        auto self = initialised_by_super<"init">();
        if (self) self->ivars().title = strong<NSString>::adopt(title->send<"copy", NSString*>());
        return strong<UINavigationItem>(self.get());
    }

    NSString* title() { return ivars().title; }
    void setTitle(NSString* title) {
        ivars().title = strong<NSString>::adopt(title->send<"copy", NSString*>());
        changed();
    }
    UIView* titleView() { return ivars().titleView; }
    void setTitleView(UIView* view) {
        ivars().titleView = view;
        changed();
    }
    template <auto Items>
    UIBarButtonItem* first() {
        return static_cast<UIBarButtonItem*>((ivars().*Items)->firstObject());
    }
    template <auto Items>
    NSArray* items() {
        return ivars().*Items;
    }
    template <auto Items>
    void set_items(NSArray* items) {
        ivars().*Items = items;
        changed();
    }
    template <auto Items>
    void set_items_animated(NSArray* items, bool) {
        set_items<Items>(items);
    }
    template <auto Items>
    void set_first(UIBarButtonItem* item) {
        set_items<Items>(item ? NSArray::arrayWithObject(item) : nullptr);
    }
    template <auto Items>
    void set_first_animated(UIBarButtonItem* item, bool) {
        set_first<Items>(item);
    }
    UIBarButtonItem* backBarButtonItem() { return ivars().backBarButtonItem; }
    void setBackBarButtonItem(UIBarButtonItem* item) {
        ivars().backBarButtonItem = item;
        changed();
    }
    bool hidesBackButton() { return ivars().hidesBackButton; }
    void setHidesBackButton(bool hides) {
        ivars().hidesBackButton = hides;
        changed();
    }
    void setHidesBackButtonAnimated(bool hides, bool) { setHidesBackButton(hides); }
    void setNavigationBar(UIView* bar) { ivars().bar = bar; }

  private:
    void changed() {
        if (const auto bar = ivars().bar.get()) bar->send<"_itemsChanged">();
    }
};

}  // namespace

using namespace objc::definition;
constexpr auto left = &Item::Ivars::leftBarButtonItems;
constexpr auto right = &Item::Ivars::rightBarButtonItems;

OBJC_CLASS(UINavigationItem, NSObject, Item,
           ivar<"_title", &Item::Ivars::title>,
           ivar<"_titleView", &Item::Ivars::titleView>,
           ivar<"_leftBarButtonItems", left>,
           ivar<"_rightBarButtonItems", right>,
           ivar<"_backBarButtonItem", &Item::Ivars::backBarButtonItem>,
           ivar<"_hidesBackButton", &Item::Ivars::hidesBackButton>,
           property<"leftItemsSupplementBackButton", &Item::Ivars::leftItemsSupplementBackButton>,
           property<"largeTitleDisplayMode", &Item::Ivars::largeTitleDisplayMode>,
           property<"prompt", &Item::Ivars::prompt>,
           ivar<"_navigationBar", &Item::Ivars::bar>,
           method<"initWithTitle:", &Item::initWithTitle>,
           method<"title", &Item::title>,
           method<"setTitle:", &Item::setTitle>,
           method<"titleView", &Item::titleView>,
           method<"setTitleView:", &Item::setTitleView>,
           method<"leftBarButtonItem", &Item::first<left>>,
           method<"setLeftBarButtonItem:", &Item::set_first<left>>,
           method<"setLeftBarButtonItem:animated:", &Item::set_first_animated<left>>,
           method<"leftBarButtonItems", &Item::items<left>>,
           method<"setLeftBarButtonItems:", &Item::set_items<left>>,
           method<"setLeftBarButtonItems:animated:", &Item::set_items_animated<left>>,
           method<"rightBarButtonItem", &Item::first<right>>,
           method<"setRightBarButtonItem:", &Item::set_first<right>>,
           method<"setRightBarButtonItem:animated:", &Item::set_first_animated<right>>,
           method<"rightBarButtonItems", &Item::items<right>>,
           method<"setRightBarButtonItems:", &Item::set_items<right>>,
           method<"setRightBarButtonItems:animated:", &Item::set_items_animated<right>>,
           method<"backBarButtonItem", &Item::backBarButtonItem>,
           method<"setBackBarButtonItem:", &Item::setBackBarButtonItem>,
           method<"hidesBackButton", &Item::hidesBackButton>,
           method<"setHidesBackButton:", &Item::setHidesBackButton>,
           method<"setHidesBackButton:animated:", &Item::setHidesBackButtonAnimated>,
           method<"_setNavigationBar:", &Item::setNavigationBar>)
