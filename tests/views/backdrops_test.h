// The backdrop classes: what their tests share.
#pragma once
#include "platform/keyboard.h"
#include "support/runtime.h"

namespace test {

class Backdrop : public testing::Test {
  protected:
    void SetUp() override { phone.start(); }

    static id with_style(const char* class_name) {
        return objc::send<"backdropWithStyle:", id>(class_named(class_name), NSInteger{2});
    }
    static void expect_content_set_up(id backdrop, UIView* content) {
        auto* view = static_cast<UIView*>(backdrop);
        EXPECT_EQ(content->autoresizingMask(), 18u);
        EXPECT_TRUE(content->layer()->shouldRasterize());
        EXPECT_EQ(content->layer()->rasterizationScale(), 2.0);
        EXPECT_TRUE(content->isOpaque());
        EXPECT_EQ(content->superview(), view);
        NSArray* subviews = view->subviews();
        EXPECT_EQ(subviews->objectAtIndex(subviews->count() - 1), content) << "it is in front";
        expect_no_animations(content->layer());
    }
    static void expect_no_animations(CALayer* layer) {
        NSDictionary* actions = layer->actions();
        EXPECT_EQ((actions->send<"count", NSUInteger>()), 7u);
        for (const char* key :
             {"onOrderIn", "onOrderOut", "sublayers", "contents", "bounds", "onLayout", "position"})
            EXPECT_EQ(actions->objectForKey(text(key)), NSNull::null()) << key;
    }

    Phone phone;
};

}  // namespace test
