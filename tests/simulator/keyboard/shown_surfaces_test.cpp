// The parts of a shown keyboard that are asked for one by one: its halves, the switcher, the form's bar, the
// page.
#include <cstddef>
#include <map>
#include <vector>

#include "animation.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/keyboard_request.h"
#include "support/runtime.h"

namespace test {
namespace {

/// What happened while a keyboard was shown, as replaced methods heard it.
std::map<std::string, int> heard;
std::vector<CGRect> key_frames, accessory_frames;
std::vector<std::string> key_texts;

class ShownSurfaces : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    std::string picture_of(const KeyboardRequest& request) {
        show_keyboard(request);
        return picture();
    }
    std::string picture() {
        EXPECT_EQ(sim_take_picture(phone.host("/picture.png").c_str(), 1), SIM_OK) << sim_last_error();
        return phone.read("/picture.png");
    }

    /// From now on the frames and texts of the keys that are made are noted.
    static void hear_keys() {
        static IMP previous = nullptr;
        previous = stand_in("UIKBKeyView", "initWithFrame:keyplane:key:",
                            [](id self, SEL selector, CGRect frame, id keyplane, id key) {
                                auto* tree = static_cast<UIKBTree*>(key);
                                key_frames.push_back(tree->frame());
                                key_texts.push_back(utf8(tree->displayString()));
                                return call<id>(previous, self, selector, frame, keyplane, key);
                            });
    }

    Phone phone;
};

// ---- Halves ----

TEST_F(ShownSurfaces, TheKeysOfASplitKeyboardLieWithinItsHalves) {
    hear_keys();
    for (const char* plane : {"letters", "shifted", "numbers", "symbols"}) {
        key_frames.clear();
        show_keyboard({.plane = plane, .split = true});
        ASSERT_GT(key_frames.size(), 20u);
        for (const CGRect& frame : key_frames) {
            const CGFloat left = frame.origin.x, right = left + frame.size.width;
            EXPECT_TRUE((left >= 0 && right <= 150) || (left >= 225 && right <= 375))
                << left << " to " << right;
            EXPECT_GT(frame.size.width, 10);
        }
    }
}

TEST_F(ShownSurfaces, EachHalfHasASpaceBar) {
    hear_keys();
    key_frames.clear();
    key_texts.clear();
    show_keyboard({.split = true});
    std::vector<CGFloat> middles;
    for (size_t i = 0; i < key_texts.size(); ++i)
        if (key_texts[i] == "space") middles.push_back(key_frames[i].origin.x + key_frames[i].size.width / 2);
    ASSERT_EQ(middles.size(), 2u);
    EXPECT_LT(middles[0], 150);
    EXPECT_GT(middles[1], 225);
}

TEST_F(ShownSurfaces, ThePageShowsBetweenTheHalves) {
    // The keyboard is 216 points high, and its halves end at 150 and begin at 225.
    const auto middle = [this](const KeyboardRequest& request) {
        picture_of(request);
        const std::vector<unsigned> pixels = pixels_of(phone.host("/picture.png"));
        std::vector<unsigned> strip;
        for (size_t y = 667 - 216; y < 667; ++y)
            for (size_t x = 151; x < 224; ++x) strip.push_back(pixels.at(y * 375 + x));
        return strip;
    };
    EXPECT_TRUE(middle({.split = true}) != middle({.split = true, .background = "busy"}));
    EXPECT_TRUE(middle({}) == middle({.background = "busy"})) << "a whole keyboard hides it";
}

TEST_F(ShownSurfaces, ThePiecesOfTheBackdropAreFetchedByTheirGetters) {
    static IMP full, left, right;
    heard.clear();
    auto hear = [] < IMP & previous > (const char* name) {
        previous = stand_in("UIKBInputBackdropView", name, [](id self, SEL selector) {
            ++heard[sel_getName(selector)];
            return call<id>(previous, self, selector);
        });
    };
    hear.operator()<full>("inputBackdropFullView");
    hear.operator()<left>("inputBackdropLeftView");
    hear.operator()<right>("inputBackdropRightView");
    show_keyboard({.split = true});
    EXPECT_GE(heard["inputBackdropFullView"], 1);
    EXPECT_GE(heard["inputBackdropLeftView"], 1);
    EXPECT_GE(heard["inputBackdropRightView"], 1);
}

TEST_F(ShownSurfaces, TheEmojiPlaneIsNeverSplit) {
    EXPECT_EQ(requested({.plane = "emoji", .split = true}), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(),
                 "sim_show_keyboard: the emoji plane is never split; the planes that can be are letters, "
                 "shifted, numbers, symbols");
}

// ---- Backdrops ----

/// The views beside each other that make up the keyboard on the screen.
std::vector<UIView*> parts_on_screen() {
    void* host = nullptr;
    EXPECT_EQ(sim_view_on_screen("UIInputSetHostView", &host), SIM_OK) << sim_last_error();
    NSArray* subviews = static_cast<UIView*>(host)->subviews();
    std::vector<UIView*> parts;
    for (NSUInteger i = 0; i < subviews->count(); ++i)
        parts.push_back(static_cast<UIView*>(subviews->objectAtIndex(i)));
    return parts;
}

std::vector<CGRect> backdrop_frames() {
    std::vector<CGRect> frames;
    for (UIView* part : parts_on_screen())
        if (as<UIKBInputBackdropView>(part)) frames.push_back(part->frame());
    return frames;
}

TEST_F(ShownSurfaces, KeysPredictionsAndTheFormsBarHaveABackdropEach) {
    show_keyboard({});
    EXPECT_EQ(backdrop_frames(), (std::vector<CGRect>{{{0, 42}, {375, 216}}, {{0, 0}, {375, 42}}}));
    show_keyboard({.form_accessory = true});
    EXPECT_EQ(backdrop_frames(),
              (std::vector<CGRect>{{{0, 86}, {375, 216}}, {{0, 44}, {375, 42}}, {{0, 0}, {375, 44}}}));
}

TEST_F(ShownSurfaces, ASplitKeyboardsBackdropIsThatOfTheKeys) {
    show_keyboard({.split = true});
    EXPECT_EQ(backdrop_frames(), (std::vector<CGRect>{{{0, 0}, {375, 216}}}));
}

TEST_F(ShownSurfaces, TheFormsBarIsASiblingOfTheBackdropsAndAnswersInitForUCB) {
    const SEL init_for_ucb = sel_registerName("initForUCB:");
    const auto answering = [&] {
        std::vector<std::string> classes;
        for (UIView* part : parts_on_screen())
            if (part->respondsToSelector(init_for_ucb)) classes.emplace_back(object_getClassName(part));
        return classes;
    };
    show_keyboard({});
    EXPECT_EQ(answering(), std::vector<std::string>{});
    show_keyboard({.form_accessory = true});
    EXPECT_EQ(answering(), std::vector<std::string>{"UIWebFormAccessory"});
}

// ---- Switcher ----

TEST_F(ShownSurfaces, TheSwitcherHasThreeCellsAndThreeSegments) {
    static IMP cell, segment;
    heard.clear();
    cell =
        stand_in("UIInputSwitcherTableCell",
                 "initWithStyle:reuseIdentifier:", [](id self, SEL selector, NSInteger style, id identifier) {
                     ++heard["cell"];
                     return call<id>(cell, self, selector, style, identifier);
                 });
    segment = stand_in("UIInputSwitcherTableCellSegmentView", "layoutSubviews", [](id self, SEL selector) {
        call(segment, self, selector);
        auto* shown = static_cast<UIInputSwitcherTableCellSegmentView*>(self);
        ++heard[shown->isSelected() ? "selected" : "other"];
        EXPECT_NE(shown->imageView()->image(), nullptr);
    });
    show_keyboard({});
    EXPECT_TRUE(heard.empty()) << "none without being asked for";
    show_keyboard({.switcher = true});
    EXPECT_EQ(heard["cell"], 4) << "the row of segments is a cell, too";
    EXPECT_EQ(heard["selected"], 1);
    EXPECT_EQ(heard["other"], 2);
}

/// A view on the screen, by its class.
UIView* on_screen(const char* class_name) {
    void* view = nullptr;
    EXPECT_EQ(sim_view_on_screen(class_name, &view), SIM_OK) << sim_last_error();
    return static_cast<UIView*>(view);
}

TEST_F(ShownSurfaces, OneKeyboardOfTheSwitcherIsInUse) {
    show_keyboard({.switcher = true});
    NSArray* cells = static_cast<UITableView*>(on_screen("UIInputSwitcherTableView"))->visibleCells();
    std::vector<bool> selected;
    for (NSUInteger i = 0; i < cells->count(); ++i)
        selected.push_back(static_cast<UITableViewCell*>(cells->objectAtIndex(i))->isSelected());
    EXPECT_EQ(selected, (std::vector<bool>{true, false, false, false}));
}

TEST_F(ShownSurfaces, TheSwitchersSurfaceIsAKeysViewOverABlur) {
    show_keyboard({.switcher = true});
    UIView* switcher = on_screen("UIInputSwitcherView");
    auto* shadow = variable<UIView*>(switcher, "m_shadowView");
    auto* surface = variable<UIView*>(switcher, "m_backgroundKeyView");
    auto* table = variable<UIView*>(switcher, "m_table");
    ASSERT_EQ(switcher->subviews()->count(), 3u);
    EXPECT_EQ(switcher->subviews()->objectAtIndex(0), shadow);
    EXPECT_EQ(switcher->subviews()->objectAtIndex(1), surface);
    EXPECT_EQ(switcher->subviews()->objectAtIndex(2), table);
    EXPECT_STREQ(object_getClassName(surface), "UIKBKeyView");
    EXPECT_STREQ(object_getClassName(variable<UIView*>(shadow, "_blurView")), "_UIBackdropView");
    EXPECT_EQ(table->bounds().size, switcher->bounds().size);
}

TEST_F(ShownSurfaces, TheSwitchersSegmentsAreInARowOfTheTable) {
    show_keyboard({.switcher = true});
    UIView* segment = on_screen("UIInputSwitcherTableCellSegmentView");
    std::vector<std::string> above;
    for (UIView* view = segment->superview(); view && above.size() < 4; view = view->superview())
        above.emplace_back(object_getClassName(view));
    EXPECT_EQ(above,
              (std::vector<std::string>{"UIInputSwitcherSegmentControl", "UIView",
                                        "UIInputSwitcherSegmentedTableCell", "UIInputSwitcherTableView"}));
    EXPECT_EQ(segment->frame(), (CGRect{{0, 0}, {72, 48}}));
}

// ---- Pop-up ----

TEST_F(ShownSurfaces, ThePopUpIsAKeysView) {
    show_keyboard({.pressed_key = "g"});
    EXPECT_STREQ(object_getClassName(parts_on_screen().back()), "UIKBKeyView");
    void* effect = nullptr;
    EXPECT_EQ(sim_view_on_screen("UIKBVisualEffectView", &effect), SIM_NOT_FOUND);
}

// ---- Form ----

TEST_F(ShownSurfaces, TheFormsBarIsAsWideAsTheKeyboard) {
    static IMP layout;
    accessory_frames.clear();
    layout = stand_in("UIWebFormAccessory", "layoutSubviews", [](id self, SEL selector) {
        call(layout, self, selector);
        accessory_frames.push_back(static_cast<UIView*>(self)->frame());
    });
    show_keyboard({});
    EXPECT_TRUE(accessory_frames.empty()) << "none without being asked for";
    show_keyboard({.form_accessory = true});
    ASSERT_FALSE(accessory_frames.empty());
    EXPECT_EQ(accessory_frames[0], (CGRect{{0, 0}, {375, 44}}));
}

// ---- Page ----

TEST_F(ShownSurfaces, ThePageIsOfNotesByDefault) {
    const std::string unsaid = picture_of({});
    EXPECT_EQ(picture_of({.background = "notes"}), unsaid);
    for (const char* other : {"light", "busy"}) EXPECT_NE(picture_of({.background = other}), unsaid) << other;
}

TEST_F(ShownSurfaces, APageThatDoesNotExistIsNamedWithThoseThatDo) {
    EXPECT_EQ(requested({.background = "dark"}), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(),
                 "sim_show_keyboard: no background is called \"dark\"; there are notes, light, busy");
}

TEST_F(ShownSurfaces, ACallerThatDoesNotKnowTheseMembersGetsNoneOfThem) {
    const std::string plain = picture_of({});
    sim_keyboard keyboard =
        KeyboardRequest{.split = true, .switcher = true, .form_accessory = true, .background = "busy"}
            .keyboard();
    keyboard.size = offsetof(sim_keyboard, split);
    ASSERT_EQ(sim_show_keyboard(&keyboard), SIM_OK) << sim_last_error();
    EXPECT_EQ(picture(), plain);
}

}  // namespace
}  // namespace test
