// The input switcher and the web form's accessory bar under a theme.
#include "platform/keyboard.h"
#include "support/themes.h"

namespace test {
namespace {

class Switcher : public testing::Test {
  protected:
    void SetUp() override {
        arrange_theme(phone);
        phone.start();
    }
    static UIInputSwitcherTableCell* cell() {
        return static_cast<UIInputSwitcherTableCell*>(
            made<"initWithStyle:reuseIdentifier:">("UIInputSwitcherTableCell", NSInteger{0}, text("cell")));
    }
    static id only_filter(CALayer* layer) {
        EXPECT_EQ(layer->filters()->count(), 1u);
        return layer->filters()->count() ? layer->filters()->objectAtIndex(0) : nullptr;
    }
    static void expect_monochrome(CALayer* layer, const Rgba& colour) {
        auto* filter = static_cast<CAFilter*>(only_filter(layer));
        ASSERT_NE(filter, nullptr);
        auto value = [&](const char* key) { return filter->send<"valueForKey:", id>(text(key)); };
        EXPECT_EQ(utf8(filter->send<"name", NSString*>()), "colorMonochrome");
        EXPECT_EQ(rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(value("inputColor")))), colour);
        EXPECT_EQ((objc::send<"floatValue", float>(value("inputBias"))), 1.0f);
        EXPECT_EQ((objc::send<"floatValue", float>(value("inputAmount"))), 1.0f);
    }
    static void change_text_colour(UIColor* colour) {
        id store = objc::send<"sharedInstance", id>(class_named("HCPreferences"));
        Ivar theme = class_getInstanceVariable(object_getClass(store), "configCache");
        id config = *reinterpret_cast<id*>(reinterpret_cast<char*>(store) + ivar_getOffset(theme));
        objc::send<"setTextColor:">(config, colour);
        objc::send<"setHighlightColor:">(config, colour);
    }
    template <class T>
    static T*& variable(id object, const char* name) {
        Ivar found = class_getInstanceVariable(object_getClass(object), name);
        EXPECT_NE(found, nullptr) << name;
        return *reinterpret_cast<T**>(reinterpret_cast<char*>(object) + ivar_getOffset(found));
    }

    Phone phone;
};

TEST_F(Switcher, TheTablesTintFollowsTheHighlightAtEveryLayout) {
    auto* table = static_cast<UIView*>(made("UIInputSwitcherTableView"));
    table->layoutSubviews();
    EXPECT_EQ(rgba(table->tintColor()), theme_highlight);
    change_text_colour(color(0, 0, 1));
    table->layoutSubviews();
    EXPECT_EQ(rgba(table->tintColor()), (Rgba{0, 0, 1, 1}));
}

TEST_F(Switcher, ACellKeepsTheTextColourOfItsTime) {
    auto* early = cell();
    change_text_colour(color(1, 0, 0));
    auto* late = cell();
    expect_monochrome(early->textLabel()->layer(), theme_text);
    expect_monochrome(late->textLabel()->layer(), {1, 0, 0, 1});
}

class SegmentView : public Switcher {
  protected:
    void SetUp() override {
        Switcher::SetUp();
        view = static_cast<UIInputSwitcherTableCellSegmentView*>(made("UIInputSwitcherTableCellSegmentView"));
        view->setOriginalImage(filled_image(color(1, 0, 0), 4, 4));
        view->setInvertedImage(filled_image(color(0, 1, 0), 4, 4));
    }
    UIInputSwitcherTableCellSegmentView* view = nullptr;
};

TEST_F(SegmentView, ItsImagesBecomeTemplatesInTheTextColour) {
    view->imageView()->setImage(filled_image(color(1, 0, 0), 4, 4));
    view->layoutSubviews();
    EXPECT_EQ(variable<UIImage>(view, "_invertedImage")->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(variable<UIImage>(view, "_originalImage")->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(view->imageView()->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(rgba(view->imageView()->tintColor()), theme_text);
}

TEST_F(SegmentView, LayingOutAgainChangesNothingMore) {
    view->layoutSubviews();
    view->layoutSubviews();
    EXPECT_EQ(variable<UIImage>(view, "_originalImage")->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(variable<UIImage>(view, "_originalImage")->size(), (CGSize{4, 4}));
}

TEST_F(SegmentView, NilImagesStayNil) {
    view->setOriginalImage(nullptr);
    view->setInvertedImage(nullptr);
    view->imageView()->setImage(nullptr);
    view->layoutSubviews();
    EXPECT_EQ(variable<UIImage>(view, "_originalImage"), nullptr);
    EXPECT_EQ(variable<UIImage>(view, "_invertedImage"), nullptr);
}

TEST_F(SegmentView, TheOldImageIsReleased) {
    UIImage* old = variable<UIImage>(view, "_originalImage");
    objc::strong<UIImage> kept = old;
    {
        objc::AutoreleasePool pool;
        view->layoutSubviews();
    }
    const auto with_view = kept->send<"retainCount", NSUInteger>();
    view->setOriginalImage(nullptr);
    EXPECT_EQ((kept->send<"retainCount", NSUInteger>()), with_view) << "the view no longer holds it";
}

class FormAccessory : public Switcher {
  protected:
    void SetUp() override {
        Switcher::SetUp();
        bar = static_cast<UIView*>(made("UIWebFormAccessory"));
        bar->setTintColor(color(0, 0, 1));
    }
    UIView* toolbar(const char* name) { return variable<UIView>(bar, name); }
    UIView* add(const char* class_name, const char* toolbar_name) {
        auto* view = static_cast<UIView*>(made(class_name));
        toolbar(toolbar_name)->addSubview(view);
        return view;
    }
    UIView* bar = nullptr;
};

TEST_F(FormAccessory, ToolbarContentsAreMonochromeInTheBarsOwnTint) {
    UIView* left = add("_UIToolbarContentView", "_leftToolbar");
    UIView* right = add("_UIToolbarContentView", "_rightToolbar");
    bar->layoutSubviews();
    expect_monochrome(left->layer(), {0, 0, 1, 1});
    expect_monochrome(right->layer(), {0, 0, 1, 1});
}

TEST_F(FormAccessory, OtherSubviewsGetNoFilter) {
    UIView* plain = add("UIView", "_leftToolbar");
    bar->layoutSubviews();
    EXPECT_EQ(plain->layer()->filters()->count(), 0u);
}

TEST_F(FormAccessory, EachPassMakesAFilterOfItsOwn) {
    UIView* left = add("_UIToolbarContentView", "_leftToolbar");
    bar->layoutSubviews();
    objc::strong<NSObject> first = static_cast<NSObject*>(only_filter(left->layer()));
    bar->layoutSubviews();
    EXPECT_NE(only_filter(left->layer()), first.get());
}

TEST_F(FormAccessory, AMissingToolbarIsSkipped) {
    UIView* right = add("_UIToolbarContentView", "_rightToolbar");
    auto& left_slot = variable<UIView>(bar, "_leftToolbar");
    UIView* kept = left_slot;
    left_slot = nullptr;
    bar->layoutSubviews();
    expect_monochrome(right->layer(), {0, 0, 1, 1});
    left_slot = kept;
}

}  // namespace
}  // namespace test
