// HCColorPickerController: the current colour, the panel's coming, shaking and going, and the delegate.
#include "settings/color_picker.h"

#include "platform/animation.h"

namespace test {
namespace {

constexpr double half = static_cast<double>(0.5f);

std::vector<Rgba> track_of(id slider) {
    std::vector<Rgba> colours;
    for (id each : elements(objc::send<"gradientLayer", CAGradientLayer*>(slider)->colors()))
        colours.push_back(rgba(reinterpret_cast<CGColorRef>(each)));
    return colours;
}

// ---- The current colour

TEST_F(ColorPicker, BeginsWithOpaqueBlack) {
    picker->view();
    EXPECT_EQ(current(), (Rgba{0, 0, 0, 1}));
    EXPECT_EQ(hex_text(), "#000000");
    EXPECT_EQ(shown_in_preview(), (Rgba{0, 0, 0, 1}));
}

TEST_F(ColorPicker, AColourMovesSlidersTextAndPreview) {
    picker->view();
    update(color(1, 0.5, 0, 0.25));
    EXPECT_EQ(current(), (Rgba{1, 0.5, 0, 0.25}));
    EXPECT_EQ(hex_text(), "#FF7F003F");
    UIImage* swatch = part<"previewColor", UIImageView>()->image();
    EXPECT_EQ(swatch->size(), (CGSize{60, 60}));
    EXPECT_NEAR(average_alpha(swatch), 0.25, 1 / 255.0);
    EXPECT_EQ(track_of(part<"redSlider">()), (std::vector<Rgba>{{0, 0.5, 0, 0.25}, {1, 0.5, 0, 0.25}}));
    EXPECT_EQ(track_of(part<"alphaSlider">()), (std::vector<Rgba>{{1, 0.5, 0, 0}, {1, 0.5, 0, 1}}));
}

TEST_F(ColorPicker, TheSlidersHearAColourInOrder) {
    picker->view();
    static std::vector<id> order;
    static IMP previous = nullptr;
    MSHookMessageEx(objc_getClass("HCColorSlider"), sel_registerName("minMaxOfColor:"),
                    reinterpret_cast<IMP>(+[](id self, SEL selector, id color) {
                        order.push_back(self);
                        call(previous, self, selector, color);
                    }),
                    &previous);
    update(color(1, 0, 0));
    EXPECT_EQ(order, sliders());
}

TEST_F(ColorPicker, AnInitialColourIsCurrentAndReloadsTheRecentOnes) {
    picker->view();
    observe<"updateToColor:", void, id>("HCColorPickerController");
    observe<"grabRecentColorData">("HCColorPickerController");
    picker->send<"setInitialColor:">(color(0, 1, 0));
    EXPECT_EQ(hex_text(), "#00FF00");
    EXPECT_EQ(heard, (Selectors{"updateToColor:", "grabRecentColorData"}));
}

TEST_F(ColorPicker, AnInitialColourBeforeTheViewIsLoadedHasNoEffect) {
    picker->send<"setInitialColor:">(color(0, 1, 0));
    EXPECT_FALSE(picker->isViewLoaded());
    picker->view();
    EXPECT_EQ(hex_text(), "#000000");
    EXPECT_EQ(current(), (Rgba{0, 0, 0, 1}));
}

/// Drags a slider's knob from one value to another.
void drag(UISlider* slider, double from, double to) {
    const CGRect bounds = slider->bounds(), track = slider->trackRectForBounds(bounds);
    auto middle = [&](double value) {
        const CGRect knob = slider->thumbRectForBounds(bounds, track, static_cast<float>(value));
        return slider->convertPointToView(
            {knob.origin.x + knob.size.width / 2, knob.origin.y + knob.size.height / 2}, slider->window());
    };
    touch(SIM_TOUCH_BEGAN, middle(from).x, middle(from).y);
    touch(SIM_TOUCH_MOVED, middle(to).x, middle(to).y);
    touch(SIM_TOUCH_ENDED, middle(to).x, middle(to).y);
}

TEST_F(ColorPicker, AKnobMakesAnotherColour) {
    show();
    drag(knob_of(part<"redSlider">()), 0, 0.5);
    EXPECT_NEAR(current().red, 0.5, 0.01);
    EXPECT_EQ(hex_text().substr(3), "0000");
    EXPECT_NEAR(shown_in_preview().red, 0.5, 0.01);
    const double red = current().red;
    EXPECT_EQ(track_of(part<"greenSlider">()), (std::vector<Rgba>{{red, 0, 0, 1}, {red, 1, 0, 1}}))
        << "the other tracks follow";
    drag(knob_of(part<"alphaSlider">()), 1, 0.25);
    EXPECT_NEAR(current().alpha, 0.25, 0.01);
    EXPECT_EQ(hex_text().size(), 9u);
}

TEST_F(ColorPicker, EachKnobMovesItsOwnChannelAlone) {
    show();
    for (int i = 0; i < 4; ++i) {
        update(color(0.5, 0.5, 0.5, 0.5));
        drag(knob_of(sliders()[i]), 0.5, 0.75);
        const Rgba found = current();
        const double channels[] = {found.red, found.green, found.blue, found.alpha};
        for (int channel = 0; channel < 4; ++channel) {
            if (channel == i)
                EXPECT_NEAR(channels[channel], 0.75, 0.01) << i;
            else
                EXPECT_EQ(channels[channel], 0.5) << i << " " << channel;
        }
        EXPECT_EQ(hex_text(), hex(color(found.red, found.green, found.blue, found.alpha)));
    }
}

TEST_F(ColorPicker, EachSliderIsItsChannel) {
    picker->view();
    const Rgba expected[] = {{half, 0, 0, 1}, {0, half, 0, 1}, {0, 0, half, 1}, {0, 0, 0, half}};
    for (int i = 0; i < 4; ++i) {
        update(color(0, 0, 0));
        knob_of(sliders()[i])->setValue(0.5f);
        knob_of(sliders()[i])->sendActionsForControlEvents(UIControlEventValueChanged);
        EXPECT_EQ(current(), expected[i]) << i;
        EXPECT_EQ(hex_text(),
                  hex(color(expected[i].red, expected[i].green, expected[i].blue, expected[i].alpha)));
    }
}

TEST_F(ColorPicker, AKnobsColourGoesByMessage) {
    picker->view();
    observe<"updateToColor:", void, id>("HCColorPickerController");
    picker->send<"sliderValueChanged">();
    EXPECT_EQ(heard, (Selectors{"updateToColor:"}));
}

TEST_F(ColorPicker, NoColourIsNoError) {
    show();
    EXPECT_EQ(raised_by([&] { picker->send<"setInitialColor:">(id{}); }), "");
    EXPECT_EQ(hex_text(), "") << "and no text";
}

// ---- Coming, shaking

double shown_at(UIView* panel) { return panel->layer()->presentationLayer()->frame().origin.y; }
void wait(double seconds) { ASSERT_EQ(sim_advance_clock(seconds), SIM_OK) << sim_last_error(); }

TEST_F(ColorPicker, ThePanelSpringsUpFromBelowAfterHalfASecond) {
    ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
    EXPECT_EQ(panel()->frame().origin.y, 0) << "where it is to be";
    EXPECT_EQ(shown_at(panel()), 667);
    wait(0.49);
    EXPECT_EQ(shown_at(panel()), 667);
    double highest = 667;
    for (int i = 0; i < 50; ++i) {
        wait(0.01);
        highest = std::min(highest, shown_at(panel()));
    }
    EXPECT_LT(highest, -1) << "it swings beyond its place";
    wait(0.05);
    EXPECT_EQ(shown_at(panel()), 0);
    EXPECT_EQ(panel()->frame(), (CGRect{{0, 0}, {375, 667}}));
}

TEST_F(ColorPicker, ThePanelsSpringIsAskedForAsItIs) {
    static struct {
        double duration, delay, damping, velocity;
        NSUInteger options;
        bool has_completion;
    } asked;
    MSHookMessageEx(object_getClass(class_named("UIView")),
                    sel_registerName("animateWithDuration:delay:usingSpringWithDamping:initialSpringVelocity:"
                                     "options:animations:completion:"),
                    reinterpret_cast<IMP>(+[](id, SEL, double duration, double delay, double damping,
                                              double velocity, NSUInteger options, id, id completion) {
                        asked = {duration, delay, damping, velocity, options, completion != nullptr};
                    }),
                    nullptr);
    ASSERT_EQ(sim_present(picker), SIM_OK) << sim_last_error();
    EXPECT_EQ(asked.duration, 0.5);
    EXPECT_EQ(asked.delay, 0.5);
    EXPECT_EQ(asked.damping, 0.6);
    EXPECT_EQ(asked.velocity, 0);
    EXPECT_EQ(asked.options, 3u << 16);
    EXPECT_TRUE(asked.has_completion);
    EXPECT_EQ(panel()->frame().origin.y, 667) << "below, until the animation moves it";
}

TEST_F(ColorPicker, ThePanelSpringsUpEachTimeThePickerAppears) {
    show();
    picker->viewDidAppear(true);
    EXPECT_EQ(panel()->frame().origin.y, 0);
    EXPECT_EQ(shown_at(panel()), 667);
    wait(1.1);
    EXPECT_EQ(shown_at(panel()), 0);
}

TEST_F(ColorPicker, ItsSuperclassHearsOfLoadingAppearingAndLayout) {
    observe<"viewDidLoad">("UIViewController");
    observe<"viewDidAppear:", void, int>("UIViewController");
    observe<"viewDidLayoutSubviews">("UIViewController");
    picker->view();
    EXPECT_EQ(heard, (Selectors{"viewDidLoad"}));
    picker->viewDidAppear(true);
    picker->viewDidLayoutSubviews();
    EXPECT_EQ(heard, (Selectors{"viewDidLoad", "viewDidAppear:", "viewDidLayoutSubviews"}));
}

TEST_F(ColorPicker, AWrongInputShakesThePanelAndLeavesItWhereItIs) {
    show();
    picker->send<"shakeWrong">();
    auto* shake = static_cast<CABasicAnimation*>(panel()->layer()->animationForKey(text("position")));
    ASSERT_NE(shake, nullptr);
    EXPECT_STREQ(object_getClassName(shake), "CABasicAnimation");
    EXPECT_EQ(utf8(shake->keyPath()), "position");
    EXPECT_EQ(shake->duration(), 0.05);
    EXPECT_EQ(shake->repeatCount(), 2);
    EXPECT_TRUE(shake->autoreverses());
    EXPECT_EQ(static_cast<NSValue*>(shake->fromValue())->CGPointValue(), (CGPoint{167.5, 333.5}));
    EXPECT_EQ(static_cast<NSValue*>(shake->toValue())->CGPointValue(), (CGPoint{207.5, 333.5}));
    EXPECT_EQ(panel()->layer()->presentationLayer()->position(), (CGPoint{167.5, 333.5}));
    wait(0.05);
    EXPECT_NEAR(panel()->layer()->presentationLayer()->position().x, 207.5, 1e-6);
    wait(0.05);
    EXPECT_NEAR(panel()->layer()->presentationLayer()->position().x, 167.5, 1e-6);
    wait(0.11);
    EXPECT_EQ(panel()->layer()->animationForKey(text("position")), nullptr) << "after 0.2 seconds";
    EXPECT_EQ(panel()->center(), (CGPoint{187.5, 333.5}));
}

TEST_F(ColorPicker, TheContentIsAsLargeAsTheColumnAfterEveryLayout) {
    show();
    auto* scroll = part<"scrollView", UIScrollView>();
    scroll->setContentSize({1, 2});
    picker->view()->setNeedsLayout();
    picker->view()->layoutIfNeeded();
    EXPECT_EQ(scroll->contentSize(), (CGSize{335, 275}));
    EXPECT_EQ(part<"scrollViewStack">()->frame(), (CGRect{{0, 0}, {335, 275}}));
}

// ---- The buttons

TEST_F(ColorPicker, CloseDismissesAndTellsNobody) {
    set_delegate(noting_delegate());
    show();
    EXPECT_EQ(presented(), picker);
    tap(panel_part<"closeButton">());
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(notices, std::vector<Notice>{});
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ColorPicker, DismissesItselfAnimatedAndWaitsForNothing) {
    static std::vector<std::pair<id, bool>> dismissed;
    static bool has_completion = false;
    dismissed.clear();
    MSHookMessageEx(objc_getClass("UIViewController"),
                    sel_registerName("dismissViewControllerAnimated:completion:"),
                    reinterpret_cast<IMP>(+[](id self, SEL, int animated, id completion) {
                        dismissed.emplace_back(self, animated & 0xff);
                        has_completion |= completion != nullptr;
                    }),
                    nullptr);
    show();
    tap(panel_part<"closeButton">());
    tap(panel_part<"selectButton">());
    EXPECT_EQ(dismissed, (std::vector<std::pair<id, bool>>{{picker, true}, {picker, true}}));
    EXPECT_FALSE(has_completion);
}

TEST_F(ColorPicker, SelectTellsTheDelegateTheColourAndItsTextAndDismisses) {
    set_delegate(noting_delegate());
    show();
    update(color(1, 0.5, 0, 0.25));
    tap(panel_part<"selectButton">());
    EXPECT_EQ(notices, (std::vector<Notice>{{{1, 0.5, 0, 0.25}, "#FF7F003F"}}));
    EXPECT_EQ(presented(), nullptr);
}

TEST_F(ColorPicker, ATextThatWasNotReturnedIsToldWithTheSlidersColour) {
    set_delegate(noting_delegate());
    show();
    tap(field());
    ASSERT_EQ(sim_type_text("1"), SIM_OK) << sim_last_error();
    tap(panel_part<"selectButton">());
    EXPECT_EQ(notices, (std::vector<Notice>{{{0, 0, 0, 1}, "#0000001"}}));
}

TEST_F(ColorPicker, WithoutADelegateSelectOnlyCloses) {
    show();
    tap(panel_part<"selectButton">());
    EXPECT_EQ(presented(), nullptr);
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ColorPicker, WithADelegateThatIsGoneSelectOnlyCloses) {
    {
        objc::AutoreleasePool pool;
        set_delegate(noting_delegate());
    }
    EXPECT_EQ((picker->send<"delegate", id>()), nullptr);
    show();
    tap(panel_part<"selectButton">());
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(notices, std::vector<Notice>{});
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ColorPicker, WithADelegateWithoutTheMethodSelectOnlyCloses) {
    id delegate = made("NSObject");
    set_delegate(delegate);
    show();
    tap(panel_part<"selectButton">());
    EXPECT_EQ(presented(), nullptr);
    EXPECT_FALSE(phone.exists(recent_file));
    EXPECT_EQ(utf8(part<"recentColors", NSArray>()->lastObject()), "#00000000") << "nothing is recorded";
}

TEST_F(ColorPicker, TheDelegateAtTheTimeOfThePressIsTold) {
    id first = made("NSObject"), second = noting_delegate();
    set_delegate(first);
    show();
    set_delegate(second);
    tap(panel_part<"selectButton">());
    EXPECT_EQ(notices.size(), 1u);
}

TEST_F(ColorPicker, ADelegateThatGoesWhileThePickerIsShownIsNotTold) {
    show();
    {
        objc::AutoreleasePool pool;
        set_delegate(noting_delegate());
    }
    tap(panel_part<"selectButton">());
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(notices, std::vector<Notice>{});
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ColorPicker, ADelegateThatSaysItDoesNotRespondIsNotTold) {
    noting_delegate();
    class_with("RefusingPickerDelegate", "NotingPickerDelegate",
               {own_method("respondsToSelector:", [](id, SEL, SEL) { return BOOL{}; }, "c@::")});
    id delegate = made("RefusingPickerDelegate");
    set_delegate(delegate);
    show();
    tap(panel_part<"selectButton">());
    EXPECT_EQ(presented(), nullptr);
    EXPECT_EQ(notices, std::vector<Notice>{});
    EXPECT_FALSE(phone.exists(recent_file));
}

TEST_F(ColorPicker, ASubclassMayReplaceItsIcons) {
    observe<"copyImage", id>("HCColorPickerController");
    observe<"pasteImage", id>("HCColorPickerController");
    picker->view();
    EXPECT_EQ(heard, (Selectors{"copyImage", "pasteImage"}));
}

TEST_F(ColorPicker, ASubclassMayReplaceItsParts) {
    const auto noted = reinterpret_cast<IMP>(note_selector);
    Class own = class_with("OwnPicker", "HCColorPickerController",
                           {{"applyColor", noted, "v@:"},
                            {"updateToColor:", noted, "v@:@"},
                            {"grabRecentColorData", noted, "v@:"},
                            {"shakeWrong", noted, "v@:"}});
    picker = static_cast<UIViewController*>(made(class_getName(own)));
    picker->view();
    picker->send<"pasteColor">();
    EXPECT_EQ(heard, (Selectors{"applyColor", "updateToColor:", "grabRecentColorData", "shakeWrong"}));
}

TEST_F(ColorPicker, ASubclassMayCloseInItsOwnWay) {
    picker->view();
    observe<"closeButtonPressed">("HCColorPickerController");
    picker->send<"selectButtonPressed">();
    EXPECT_EQ(heard, (Selectors{"closeButtonPressed"}));
}

TEST_F(ColorPicker, GoesWithItsLastOwner) {
    objc::weak<UIViewController> gone;
    {
        objc::AutoreleasePool pool;
        picker = made_picker();
        gone = picker;
        show();
        drag(knob_of(part<"redSlider">()), 0, 0.5);
        tap(panel_part<"closeButton">());
        EXPECT_EQ(presented(), nullptr);
    }
    EXPECT_EQ(gone.get(), nullptr);
}

}  // namespace
}  // namespace test
