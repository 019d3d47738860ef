// The implementation of navigation bars: what stands in them.
#pragma once
#include <vector>

#include "objc/class.h"
#include "platform/navigation.h"

namespace sim {

struct NavigationBar : objc::Implements<NavigationBar, UINavigationBar> {
    struct Ivars {
        /// Of the stack, the root's first.
        std::vector<objc::strong<UINavigationItem>> items;
        objc::strong<UIView> background, shadow;
        std::vector<objc::strong<UIView>> left, right;
        objc::strong<UIView> title;
        bool translucent = true, is_built = false;
        /// Who goes back: a UINavigationController, which owns the bar.
        UINavigationController* controller = nullptr;
    };
    static constexpr CGFloat height = 44;

    objc::strong<UINavigationBar> initWithFrame(CGRect frame);
    UINavigationItem* topItem();
    UINavigationItem* backItem();
    NSArray* items();
    bool isTranslucent() { return ivars().translucent; }
    void setTranslucent(bool translucent) { ivars().translucent = translucent; }
    void items_changed();
    void layoutSubviews();
    CGSize sizeThatFits(CGSize size) { return {size.width, height}; }
    void go_back();

    /// Shows the items of these controllers.
    void show(const std::vector<objc::strong<UIViewController>>& controllers);

  private:
    void build();
    objc::strong<UIView> back_button(UINavigationItem* back, UINavigationItem* top);
    void add(NSArray* items, std::vector<objc::strong<UIView>>& side);
};

}  // namespace sim
