// The input switcher and the web form's accessory bar under a theme.
#include "platform/keyboard.h"
#include "support/runtime.h"
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
    static CAFilter* preset_filter(CALayer* layer) {
        auto* preset = CAFilter::filterWithName(text("gaussianBlur"));
        layer->setFilters(array({preset}));
        return preset;
    }

    Phone phone;
};

TEST_F(Switcher, TheTablesTintFollowsTheHighlightAtEveryLayout) {
    auto* table = static_cast<UIView*>(made("UIInputSwitcherTableView"));
    table->layoutSubviews();
    EXPECT_EQ(rgba(table->tintColor()), theme_highlight);
    recolour_theme(color(1, 1, 1), color(0, 0, 1));
    table->layoutSubviews();
    EXPECT_EQ(rgba(table->tintColor()), (Rgba{0, 0, 1, 1}));
}

TEST_F(Switcher, ACellKeepsTheTextColourOfItsTime) {
    auto* early = cell();
    recolour_theme(color(1, 0, 0), color(0, 0, 1));
    auto* late = cell();
    expect_monochrome(early->textLabel()->layer(), theme_text);
    expect_monochrome(late->textLabel()->layer(), {1, 0, 0, 1});
}

TEST_F(Switcher, ACellIsMadeAsItIsAskedFor) {
    id made_cell =
        made<"initWithStyle:reuseIdentifier:">("UIInputSwitcherTableCell", NSInteger{3}, text("name"));
    EXPECT_EQ((objc::send<"style", NSInteger>(made_cell)), 3);
    EXPECT_EQ(utf8(objc::send<"reuseIdentifier", id>(made_cell)), "name");
}

/// A switcher whose system has something to say in its methods.
class SystemsSwitcher : public Switcher {
  protected:
    void SetUp() override {
        arrange_theme(phone);
        phone.boot();
    }
};

TEST_F(SystemsSwitcher, AFilterOfTheLabelIsReplaced) {
    static IMP previous;
    static CAFilter* preset = nullptr;
    previous = stand_in(
        "UIInputSwitcherTableCell",
        "initWithStyle:reuseIdentifier:", [](id self, SEL selector, NSInteger style, id identifier) -> id {
            id made = call<id>(previous, self, selector, style, identifier);
            preset = preset_filter(static_cast<UIInputSwitcherTableCell*>(made)->textLabel()->layer());
            return made;
        });
    phone.load();
    auto* layer = cell()->textLabel()->layer();
    expect_monochrome(layer, theme_text);
    EXPECT_NE(only_filter(layer), preset);
}

TEST_F(SystemsSwitcher, TheTableIsLaidOutByTheSystemFirst) {
    stand_in("UIInputSwitcherTableView", "layoutSubviews",
             [](id self, SEL) { static_cast<UIView*>(self)->setTintColor(color(1, 0, 0)); });
    phone.load();
    auto* table = static_cast<UIView*>(made("UIInputSwitcherTableView"));
    table->layoutSubviews();
    EXPECT_EQ(rgba(table->tintColor()), theme_highlight);
}

TEST_F(SystemsSwitcher, TheSegmentsImageIsTakenAfterTheSystemsLayout) {
    stand_in("UIInputSwitcherTableCellSegmentView", "layoutSubviews", [](id self, SEL) {
        static_cast<UIInputSwitcherTableCellSegmentView*>(self)->imageView()->setImage(
            filled_image(color(1, 0, 0), 7, 5));
    });
    phone.load();
    auto* view =
        static_cast<UIInputSwitcherTableCellSegmentView*>(made("UIInputSwitcherTableCellSegmentView"));
    view->layoutSubviews();
    EXPECT_EQ(view->imageView()->image()->size(), (CGSize{7, 5}));
    EXPECT_EQ(view->imageView()->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
}

class SwitcherWithoutColours : public Switcher {
  protected:
    void SetUp() override {
        arrange_theme_of(phone, "");
        phone.start();
    }
};

TEST_F(SwitcherWithoutColours, TheLabelsFilterHasNoColour) {
    auto* filter = static_cast<CAFilter*>(only_filter(cell()->textLabel()->layer()));
    ASSERT_NE(filter, nullptr);
    EXPECT_EQ(filter->valueForKey(text("inputColor")), nullptr);
}

TEST_F(SwitcherWithoutColours, NilTintsArePassedOn) {
    static std::vector<id> tints;
    auto note = [](id, SEL, id tint) { tints.push_back(tint); };
    stand_in("UIImageView", "setTintColor:", note);
    stand_in("UIInputSwitcherTableView", "setTintColor:", note);
    static_cast<UIView*>(made("UIInputSwitcherTableCellSegmentView"))->layoutSubviews();
    static_cast<UIView*>(made("UIInputSwitcherTableView"))->layoutSubviews();
    EXPECT_EQ(tints, (std::vector<id>{nullptr, nullptr}));
}

class SegmentView : public Switcher {
  protected:
    void SetUp() override {
        Switcher::SetUp();
        view = static_cast<UIInputSwitcherTableCellSegmentView*>(made("UIInputSwitcherTableCellSegmentView"));
        view->setOriginalImage(filled_image(color(1, 0, 0), 4, 4));
        view->setInvertedImage(filled_image(color(0, 1, 0), 6, 3));
    }
    UIInputSwitcherTableCellSegmentView* view = nullptr;
};

TEST_F(SegmentView, ItsImagesBecomeTemplatesInTheTextColour) {
    view->imageView()->setImage(filled_image(color(1, 0, 0), 4, 4));
    view->layoutSubviews();
    auto* inverted = variable<UIImage*>(view, "_invertedImage");
    auto* original = variable<UIImage*>(view, "_originalImage");
    EXPECT_EQ(inverted->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(inverted->size(), (CGSize{6, 3}));
    EXPECT_EQ(original->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(original->size(), (CGSize{4, 4}));
    EXPECT_EQ(view->imageView()->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(rgba(view->imageView()->tintColor()), theme_text);
    recolour_theme(color(0, 0, 1), color(1, 1, 1));
    view->layoutSubviews();
    EXPECT_EQ(rgba(view->imageView()->tintColor()), (Rgba{0, 0, 1, 1}));
}

TEST_F(SegmentView, LayingOutAgainChangesNothingMore) {
    view->layoutSubviews();
    view->layoutSubviews();
    EXPECT_EQ(variable<UIImage*>(view, "_originalImage")->renderingMode(),
              UIImageRenderingModeAlwaysTemplate);
    EXPECT_EQ(variable<UIImage*>(view, "_originalImage")->size(), (CGSize{4, 4}));
}

TEST_F(SegmentView, NilImagesStayNil) {
    view->setOriginalImage(nullptr);
    view->setInvertedImage(nullptr);
    view->imageView()->setImage(nullptr);
    view->layoutSubviews();
    EXPECT_EQ(variable<UIImage*>(view, "_originalImage"), nullptr);
    EXPECT_EQ(variable<UIImage*>(view, "_invertedImage"), nullptr);
}

TEST_F(SegmentView, TheOldImageIsReleased) {
    UIImage* old = variable<UIImage*>(view, "_originalImage");
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
    UIView* toolbar(const char* name) { return variable<UIView*>(bar, name); }
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

TEST_F(FormAccessory, AFilterThatWasThereIsReplaced) {
    UIView* left = add("_UIToolbarContentView", "_leftToolbar");
    auto* preset = preset_filter(left->layer());
    bar->layoutSubviews();
    EXPECT_NE(only_filter(left->layer()), preset);
}

TEST_F(FormAccessory, AMissingToolbarIsSkipped) {
    UIView* right = add("_UIToolbarContentView", "_rightToolbar");
    auto& left_slot = variable<UIView*>(bar, "_leftToolbar");
    UIView* kept = left_slot;
    left_slot = nullptr;
    bar->layoutSubviews();
    expect_monochrome(right->layer(), {0, 0, 1, 1});
    left_slot = kept;
}

}  // namespace
}  // namespace test
