// The colour slider, through its selectors and by touch.
#include "picture.h"
#include "platform/controls.h"
#include "views/observing.h"

namespace test {
namespace {

struct Actions {
    int count = 0;
    id sender = nullptr;
} actions;

class ColorSlider : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        actions = {};
        heard.clear();
    }
    static id slider_of_type(NSUInteger type, CGRect frame = {{0, 0}, {300, 30}}) {
        return made<"initWithFrame:withType:">("HCColorSlider", frame, type);
    }
    static UISlider* inner(id control) { return objc::send<"slider", UISlider*>(control); }
    static double value(id control) { return objc::send<"getValue", double>(control); }
    static void show_colour(id control, UIColor* colour) { objc::send<"minMaxOfColor:">(control, colour); }
    static std::vector<Rgba> track(id control) {
        std::vector<Rgba> colours;
        NSArray* shown = objc::send<"gradientLayer", CAGradientLayer*>(control)->colors();
        for (NSUInteger i = 0; i < shown->count(); ++i)
            colours.push_back(
                rgba(UIColor::colorWithCGColor(reinterpret_cast<CGColorRef>(shown->objectAtIndex(i)))));
        return colours;
    }
    /// An object that counts `changed:`.
    static id counting_target() {
        class_with("CountingTarget", "NSObject",
                   {own_method(
                       "changed:",
                       [](id, SEL, id sender) {
                           ++actions.count;
                           actions.sender = sender;
                       },
                       "v@:@")});
        return made("CountingTarget");
    }

    Phone phone;
};

using Track = std::vector<Rgba>;

TEST_F(ColorSlider, ATrackIsInsetAndRoundedToAPill) {
    id control = slider_of_type(1, {{10, 20}, {300, 30}});
    EXPECT_EQ((objc::send<"backgroundFrame", CGRect>(control)), (CGRect{{2.5, 0}, {295, 30}}));
    auto* background = objc::send<"backgroundView", UIView*>(control);
    EXPECT_EQ(background->layer()->cornerRadius(), 15);
    EXPECT_TRUE(background->layer()->masksToBounds());
    EXPECT_EQ(background->superview(), control);
    NSArray* subviews = static_cast<UIView*>(control)->subviews();
    ASSERT_EQ(subviews->count(), 2u);
    EXPECT_EQ(subviews->objectAtIndex(0), background);
    EXPECT_EQ(subviews->objectAtIndex(1), inner(control));
    EXPECT_EQ(background->center(), (CGPoint{160, 35})) << "the control's own centre, until it is laid out";
    EXPECT_EQ(inner(control)->center(), (CGPoint{160, 35}));
}

TEST_F(ColorSlider, TheTracksGradientRunsLeftToRightAndStartsWithoutColours) {
    id control = slider_of_type(1);
    auto* gradient = objc::send<"gradientLayer", CAGradientLayer*>(control);
    auto* background = objc::send<"backgroundView", UIView*>(control);
    EXPECT_EQ(background->layer()->sublayers()->objectAtIndex(0), gradient);
    EXPECT_EQ(gradient->startPoint(), (CGPoint{0, 0.5}));
    EXPECT_EQ(gradient->endPoint(), (CGPoint{1, 0.5}));
    EXPECT_EQ(gradient->frame(), (CGRect{{0, 0}, {295, 30}}));
    EXPECT_EQ(gradient->colors()->count(), 0u);
}

TEST_F(ColorSlider, TheInnerSlidersOwnTrackIsInvisible) {
    id control = slider_of_type(1);
    EXPECT_EQ(rgba(inner(control)->minimumTrackTintColor()).alpha, 0);
    EXPECT_EQ(rgba(inner(control)->maximumTrackTintColor()).alpha, 0);
    EXPECT_EQ(inner(control)->minimumValue(), 0);
    EXPECT_EQ(inner(control)->maximumValue(), 1);
}

TEST_F(ColorSlider, EveryPropertyCanBeSet) {
    id control = slider_of_type(1);
    for (const char* name : {"slider", "backgroundView", "gradientLayer"}) {
        id value = made("NSObject");
        objc::send<"setValue:forKey:">(control, value, text(name));
        EXPECT_EQ(variable<NSObject*>(control, (std::string("_") + name).c_str()), value) << name;
        EXPECT_EQ((objc::send<"valueForKey:", id>(control, text(name))), value) << name;
    }
    objc::send<"setType:">(control, NSUInteger{3});
    EXPECT_EQ((objc::send<"type", NSUInteger>(control)), 3u);
    objc::send<"setBackgroundFrame:">(control, CGRect{{1, 2}, {3, 4}});
    EXPECT_EQ((objc::send<"backgroundFrame", CGRect>(control)), (CGRect{{1, 2}, {3, 4}}));
}

TEST_F(ColorSlider, TheValueIsReadByItsOwnGetterAndNeverSet) {
    auto* control = static_cast<NSObject*>(slider_of_type(1));
    EXPECT_TRUE(control->respondsToSelector(sel_registerName("getValue")));
    EXPECT_FALSE(control->respondsToSelector(sel_registerName("value")));
    EXPECT_FALSE(control->respondsToSelector(sel_registerName("setValue:")));
    inner(control)->setValue(0.25f);
    EXPECT_EQ(value(control), 0.25);
}

TEST_F(ColorSlider, AnotherTypeIsAnotherChannelForTheNextColour) {
    id control = slider_of_type(1);
    objc::send<"setType:">(control, NSUInteger{2});
    show_colour(control, color(0, 0.5, 1));
    EXPECT_EQ(value(control), 0.5);
    EXPECT_EQ(track(control), (Track{{0, 0, 1, 1}, {0, 1, 1, 1}}));
}

TEST_F(ColorSlider, WithoutAViewThereIsNoSlider) {
    MSHookMessageEx(objc_getClass("UIView"), sel_registerName("initWithFrame:"),
                    reinterpret_cast<IMP>(+[](id self, SEL, CGRect) -> id {
                        objc_release(self);
                        return nullptr;
                    }),
                    nullptr);
    EXPECT_EQ(slider_of_type(1), nullptr);
}

TEST_F(ColorSlider, ItsSuperclassLaysOutToo) {
    id control = slider_of_type(1);
    observe<"layoutSubviews">("UIView");
    objc::send<"layoutSubviews">(control);
    EXPECT_EQ(heard, (std::vector<std::string>{"layoutSubviews"}));
}

TEST_F(ColorSlider, LayoutPutsTrackGradientAndSliderInTheirPlaces) {
    auto* control = static_cast<UIView*>(slider_of_type(2, {{10, 20}, {300, 30}}));
    control->layoutIfNeeded();
    EXPECT_EQ((objc::send<"backgroundView", UIView*>(control)->frame()), (CGRect{{2.5, 0}, {295, 30}}));
    EXPECT_EQ(inner(control)->frame(), (CGRect{{0, 0}, {300, 30}}));
    control->setFrame({{0, 0}, {200, 20}});
    control->layoutIfNeeded();
    EXPECT_EQ((objc::send<"backgroundView", UIView*>(control)->frame()), (CGRect{{2.5, 0}, {295, 30}}))
        << "the track keeps the frame that was given first";
    EXPECT_EQ((objc::send<"gradientLayer", CALayer*>(control)->frame()), (CGRect{{0, 0}, {295, 30}}));
    EXPECT_EQ(inner(control)->frame(), (CGRect{{0, 0}, {200, 20}}));
    objc::send<"setBackgroundFrame:">(control, CGRect{{1, 2}, {30, 4}});
    control->setNeedsLayout();
    control->layoutIfNeeded();
    EXPECT_EQ((objc::send<"gradientLayer", CALayer*>(control)->frame()), (CGRect{{0, 0}, {30, 4}}));
}

TEST_F(ColorSlider, EachChannelGoesFromNoneToAllOfItself) {
    UIColor* colour = color(0.125, 0.25, 0.5, 0.75);
    const struct {
        NSUInteger type;
        double value;
        Track track;
    } channels[] = {{1, 0.125, {{0, 0.25, 0.5, 0.75}, {1, 0.25, 0.5, 0.75}}},
                    {2, 0.25, {{0.125, 0, 0.5, 0.75}, {0.125, 1, 0.5, 0.75}}},
                    {3, 0.5, {{0.125, 0.25, 0, 0.75}, {0.125, 0.25, 1, 0.75}}},
                    {4, 0.75, {{0.125, 0.25, 0.5, 0}, {0.125, 0.25, 0.5, 1}}}};
    for (const auto& channel : channels) {
        id control = slider_of_type(channel.type);
        EXPECT_EQ((objc::send<"type", NSUInteger>(control)), channel.type);
        show_colour(control, colour);
        EXPECT_EQ(value(control), channel.value) << channel.type;
        EXPECT_EQ(track(control), channel.track) << channel.type;
    }
}

TEST_F(ColorSlider, OpaqueRedOnTheRedSliderGoesFromBlackToRed) {
    id control = slider_of_type(1);
    show_colour(control, color(1, 0, 0));
    EXPECT_EQ(value(control), 1);
    EXPECT_EQ(track(control), (Track{{0, 0, 0, 1}, {1, 0, 0, 1}}));
}

TEST_F(ColorSlider, AHalfTransparentGreyOnTheRedSliderKeepsTheOtherChannels) {
    id control = slider_of_type(1);
    show_colour(control, color(0.5, 0.5, 0.5, 0.5));
    EXPECT_EQ(track(control), (Track{{0, 0.5, 0.5, 0.5}, {1, 0.5, 0.5, 0.5}}));
}

TEST_F(ColorSlider, AColourGoesToTheKnobAndThenToTheTrackByMessage) {
    id control = slider_of_type(1);
    observe<"setValue:", void, float>("UISlider");
    observe<"setStartColor:andEndColor:", void, id, id>("HCColorSlider");
    show_colour(control, color(1, 0, 0));
    EXPECT_EQ(heard, (std::vector<std::string>{"setValue:", "setStartColor:andEndColor:"}));
}

TEST_F(ColorSlider, ASubclassMayPaintTheTrack) {
    static Track asked_for;
    class_with("OwnSlider", "HCColorSlider",
               {own_method(
                   "setStartColor:andEndColor:",
                   [](id, SEL, id start, id end) { asked_for = {rgba(start), rgba(end)}; }, "v@:@@")});
    id control = made<"initWithFrame:withType:">("OwnSlider", CGRect{{0, 0}, {300, 30}}, NSUInteger{3});
    show_colour(control, color(1, 0, 0.5));
    EXPECT_EQ(asked_for, (Track{{1, 0, 0, 1}, {1, 0, 1, 1}}));
    EXPECT_EQ(value(control), 0.5);
    EXPECT_EQ(track(control), Track{}) << "nothing is painted";
}

TEST_F(ColorSlider, TheAlphaTrackGoesFromTransparentToOpaqueWhateverTheAlpha) {
    id control = slider_of_type(4);
    show_colour(control, color(0.5, 0.5, 0.5, 0.25));
    EXPECT_EQ(value(control), 0.25);
    EXPECT_EQ(track(control), (Track{{0.5, 0.5, 0.5, 0}, {0.5, 0.5, 0.5, 1}}));
}

TEST_F(ColorSlider, TheValueIsOfSinglePrecision) {
    id control = slider_of_type(1);
    show_colour(control, color(0.1, 0, 0));
    EXPECT_EQ(value(control), static_cast<double>(0.1f));
}

TEST_F(ColorSlider, AColourWithoutRedGreenAndBlueCountsAsZeros) {
    id control = slider_of_type(1);
    show_colour(control, UIColor::colorWithPatternImage(filled_image(color(1, 1, 1), 2, 2)));
    EXPECT_EQ(value(control), 0);
    EXPECT_EQ(track(control), (Track{{0, 0, 0, 0}, {1, 0, 0, 0}}));
}

TEST_F(ColorSlider, StartAndEndColoursAreTheTracksInThatOrder) {
    id control = slider_of_type(1);
    objc::send<"setStartColor:andEndColor:">(control, color(0, 1, 0), color(0, 0, 1, 0.5));
    EXPECT_EQ(track(control), (Track{{0, 1, 0, 1}, {0, 0, 1, 0.5}}));
}

TEST_F(ColorSlider, ATracksColourThatIsNilRaisesAndChangesNothing) {
    id control = slider_of_type(1);
    show_colour(control, color(1, 0, 0));
    UIColor* const blue = color(0, 0, 1);
    for (const auto& [start, end] :
         {std::pair{blue, static_cast<UIColor*>(nullptr)}, std::pair{static_cast<UIColor*>(nullptr), blue}}) {
        EXPECT_EQ(raised_by([&, from = start, to = end] {
                      objc::send<"setStartColor:andEndColor:">(control, from, to);
                  }),
                  "NSInvalidArgumentException");
        EXPECT_EQ(track(control), (Track{{0, 0, 0, 1}, {1, 0, 0, 1}}));
    }
}

TEST_F(ColorSlider, WithoutAChannelNothingIsPainted) {
    id control = slider_of_type(0);
    observe<"setStartColor:andEndColor:", void, id, id>("HCColorSlider");
    raised_by([&] { show_colour(control, color(1, 0, 0)); });
    EXPECT_EQ(heard, (std::vector<std::string>{"setStartColor:andEndColor:"}));
    EXPECT_EQ(track(control), Track{});
}

TEST_F(ColorSlider, WithoutAChannelAColourIsLoggedAndRaises) {
    for (NSUInteger type : {NSUInteger{0}, NSUInteger{5}, ~NSUInteger{0}}) {
        id control = slider_of_type(type);
        inner(control)->setValue(0.5f);
        testing::internal::CaptureStderr();
        EXPECT_EQ(raised_by([&] { show_colour(control, color(1, 0, 0)); }), "NSInvalidArgumentException");
        EXPECT_NE(testing::internal::GetCapturedStderr().find(" Error no type declared."), std::string::npos);
        EXPECT_EQ(value(control), 0.5) << "the knob stays";
    }
}

TEST_F(ColorSlider, ATagIsTheInnerSlidersToo) {
    auto* control = static_cast<UIView*>(slider_of_type(1));
    id target = counting_target();
    objc::send<"addTarget:action:forControlEvents:">(
        static_cast<id>(control), target, sel_registerName("changed:"), UIControlEventValueChanged);
    control->setTag(7);
    EXPECT_EQ(control->tag(), 7);
    EXPECT_EQ(inner(control)->tag(), 7);
    inner(control)->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(actions.sender, inner(control));
    EXPECT_EQ(static_cast<UIView*>(actions.sender)->tag(), 7);
}

TEST_F(ColorSlider, DraggingTheKnobChangesTheValueAndNotTheTrack) {
    auto* control = static_cast<UIView*>(slider_of_type(1, {{20, 300}, {331, 20}}));
    show_colour(control, color(0, 0.5, 0));
    id target = counting_target();
    objc::send<"addTarget:action:forControlEvents:">(
        static_cast<id>(control), target, sel_registerName("changed:"), UIControlEventValueChanged);
    ASSERT_EQ(sim_show_view(control), SIM_OK) << sim_last_error();
    const Track before = track(control);
    ASSERT_EQ(sim_touch(SIM_TOUCH_BEGAN, 35.5, 310), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_touch(SIM_TOUCH_MOVED, 110.5, 310), SIM_OK) << sim_last_error();
    EXPECT_EQ(value(control), 0.25);
    ASSERT_EQ(sim_touch(SIM_TOUCH_ENDED, 110.5, 310), SIM_OK) << sim_last_error();
    EXPECT_EQ(actions.count, 1);
    EXPECT_EQ(actions.sender, inner(control));
    EXPECT_EQ(track(control), before);
}

TEST_F(ColorSlider, LooksLikeAKnobOnAGradient) {
    auto page = objc::adopt(UIView::alloc()->initWithFrame({{0, 0}, {300, 150}}).leak());
    page->setBackgroundColor(color(0.93, 0.93, 0.93));
    for (NSUInteger type = 1; type <= 4; ++type) {
        auto* control =
            static_cast<UIView*>(slider_of_type(type, {{10, 15 + 35 * (double(type) - 1)}, {280, 20}}));
        show_colour(control, color(0.75, 0.25, 0.5, 0.75));
        page->addSubview(control);
    }
    const auto png = phone.host("/sliders.png");
    ASSERT_EQ(sim_take_picture_of(page.get(), png.c_str(), 2), SIM_OK) << sim_last_error();
    EXPECT_TRUE(looks_as_expected(png, "settings-colour-sliders", "settings."));
}

}  // namespace
}  // namespace test
