// The input switcher and the web form's accessory bar under a theme.
#include "platform/keyboard.h"
#include "support/keyboard_request.h"
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
    /// The system's segment takes its picture from variables that nobody else can set.
    static void set_images(id segment, UIImage* original, UIImage* inverted) {
        variable<objc::strong<UIImage>>(segment, "_originalImage") = original;
        variable<objc::strong<UIImage>>(segment, "_invertedImage") = inverted;
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
        for (const char* key : {"inputBias", "inputAmount"}) {
            EXPECT_EQ((objc::send<"floatValue", float>(value(key))), 1.0f) << key;
            EXPECT_STREQ((objc::send<"objCType", const char*>(value(key))), "f") << key;
        }
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
    static std::vector<NSInteger> styles;
    static IMP previous;
    previous =
        stand_in("UITableViewCell",
                 "initWithStyle:reuseIdentifier:", [](id self, SEL selector, NSInteger style, id name) {
                     styles.push_back(style);
                     return call<id>(previous, self, selector, style, name);
                 });
    id made_cell =
        made<"initWithStyle:reuseIdentifier:">("UIInputSwitcherTableCell", NSInteger{3}, text("name"));
    EXPECT_EQ(styles, std::vector<NSInteger>{3});
    EXPECT_EQ(utf8(objc::send<"reuseIdentifier", id>(made_cell)), "name");
}

TEST_F(Switcher, ThePanelItselfIsNotThemed) {
    show_keyboard({.switcher = true});
    void* switcher = nullptr;
    ASSERT_EQ(sim_view_on_screen("UIInputSwitcherView", &switcher), SIM_OK) << sim_last_error();
    std::vector<UIView*> views{static_cast<UIView*>(switcher)};
    for (size_t i = 0; i < views.size(); ++i) {
        EXPECT_FALSE(views[i]->isKindOfClass(UIKBBackdropView::class_object()));
        EXPECT_FALSE(std::string(object_getClassName(views[i])).ends_with("edView")) << "none of ours";
        NSArray* inside = views[i]->subviews();
        for (NSUInteger k = 0; k < inside->count(); ++k)
            views.push_back(static_cast<UIView*>(inside->objectAtIndex(k)));
    }
    EXPECT_GT(views.size(), 12u);
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

TEST_F(SystemsSwitcher, TheCellThatTheSystemAnswersIsTheOneThatIsFiltered) {
    static UIInputSwitcherTableCell* instead;
    instead = cell();
    stand_in("UIInputSwitcherTableCell", "initWithStyle:reuseIdentifier:", [](id self, SEL, NSInteger, id) {
        objc_release(self);
        return objc_retain(instead);
    });
    phone.load();
    EXPECT_EQ(cell(), instead);
    expect_monochrome(instead->textLabel()->layer(), theme_text);
}

TEST_F(SystemsSwitcher, TheTableIsLaidOutByTheSystemFirst) {
    stand_in("UIInputSwitcherTableView", "layoutSubviews",
             [](id self, SEL) { static_cast<UIView*>(self)->setTintColor(color(1, 0, 0)); });
    phone.load();
    auto* table = static_cast<UIView*>(made("UIInputSwitcherTableView"));
    table->layoutSubviews();
    EXPECT_EQ(rgba(table->tintColor()), theme_highlight);
}

TEST_F(SystemsSwitcher, TheSegmentsImagesAreTakenAfterTheSystemsLayout) {
    stand_in("UIInputSwitcherTableCellSegmentView", "layoutSubviews", [](id self, SEL) {
        auto* view = static_cast<UIInputSwitcherTableCellSegmentView*>(self);
        set_images(view, filled_image(color(1, 0, 0), 3, 2), filled_image(color(1, 0, 0), 2, 3));
        view->imageView()->setImage(filled_image(color(1, 0, 0), 7, 5));
    });
    phone.load();
    auto* view =
        static_cast<UIInputSwitcherTableCellSegmentView*>(made("UIInputSwitcherTableCellSegmentView"));
    view->layoutSubviews();
    EXPECT_EQ(view->imageView()->image()->size(), (CGSize{7, 5}));
    EXPECT_EQ(view->imageView()->image()->renderingMode(), UIImageRenderingModeAlwaysTemplate);
    for (const char* name : {"_originalImage", "_invertedImage"})
        EXPECT_EQ(variable<UIImage*>(view, name)->renderingMode(), UIImageRenderingModeAlwaysTemplate)
            << name;
}

TEST_F(SystemsSwitcher, TheFormsBarIsLaidOutByTheSystemFirst) {
    stand_in("UIWebFormAccessory", "layoutSubviews", [](id self, SEL) {
        static_cast<UIView*>(self)->setTintColor(color(1, 0, 0));
        variable<UIView*>(self, "_leftToolbar")
            ->addSubview(static_cast<UIView*>(made("_UIToolbarContentView")));
    });
    phone.load();
    id bar = made("UIWebFormAccessory");
    static_cast<UIView*>(bar)->layoutSubviews();
    NSArray* contents = variable<UIView*>(bar, "_leftToolbar")->subviews();
    ASSERT_EQ(contents->count(), 2u) << "the system's own, and the one of its layout";
    for (NSUInteger i = 0; i < contents->count(); ++i)
        expect_monochrome(static_cast<UIView*>(contents->objectAtIndex(i))->layer(), {1, 0, 0, 1});
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
        set_images(view, filled_image(color(1, 0, 0), 4, 4), filled_image(color(0, 1, 0), 6, 3));
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
    set_images(view, nullptr, nullptr);
    view->imageView()->setImage(nullptr);
    view->layoutSubviews();
    EXPECT_EQ(variable<UIImage*>(view, "_originalImage"), nullptr);
    EXPECT_EQ(variable<UIImage*>(view, "_invertedImage"), nullptr);
    EXPECT_EQ(view->imageView()->image(), nullptr);
}

TEST_F(SegmentView, TheOldImagesAreReleased) {
    for (const char* name : {"_originalImage", "_invertedImage"}) {
        UIImage* old = variable<UIImage*>(view, name);
        const auto held_by_view = old->send<"retainCount", NSUInteger>();
        {
            objc::AutoreleasePool pool;
            view->layoutSubviews();
        }
        EXPECT_EQ((old->send<"retainCount", NSUInteger>()), held_by_view - 1) << name;
        set_images(view, filled_image(color(1, 0, 0), 4, 4), filled_image(color(0, 1, 0), 6, 3));
    }
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

TEST_F(FormAccessory, ASubclassOfTheContentViewIsMonochromeToo) {
    objc_registerClassPair(
        objc_allocateClassPair(objc_getClass("_UIToolbarContentView"), "HCContentView", 0));
    UIView* left = add("HCContentView", "_leftToolbar");
    bar->layoutSubviews();
    expect_monochrome(left->layer(), {0, 0, 1, 1});
}

TEST_F(FormAccessory, OtherSubviewsGetNoFilter) {
    for (const char* name : {"_leftToolbar", "_rightToolbar"}) {
        UIView* plain = add("UIView", name);
        bar->layoutSubviews();
        EXPECT_EQ(plain->layer()->filters()->count(), 0u) << name;
    }
}

TEST_F(FormAccessory, EachPassMakesAFilterOfItsOwnInTheTintOfItsTime) {
    UIView* left = add("_UIToolbarContentView", "_leftToolbar");
    bar->layoutSubviews();
    objc::strong<NSObject> first = static_cast<NSObject*>(only_filter(left->layer()));
    bar->setTintColor(color(1, 0, 0));
    bar->layoutSubviews();
    EXPECT_NE(only_filter(left->layer()), first.get());
    expect_monochrome(left->layer(), {1, 0, 0, 1});
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
