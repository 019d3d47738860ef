// An input method's candidates, with nothing replaced: which views show them, over which backdrops.
#include "platform/keyboard.h"
#include "support/keyboard_request.h"
#include "support/runtime.h"

namespace test {
namespace {

class Candidates : public testing::Test {
  protected:
    static void show(const char* candidates) { show_keyboard({.candidates = candidates}); }
    /// nil when the screen has none.
    static UIView* on_screen(const char* class_name) {
        void* view = nullptr;
        return sim_view_on_screen(class_name, &view) == SIM_OK ? static_cast<UIView*>(view) : nullptr;
    }
    void boot_tablet() { phone.boot({.screen_width = 768, .screen_height = 1024}); }

    Phone phone;
};

TEST_F(Candidates, ARowTakesThePlaceOfThePredictions) {
    phone.boot();
    show("none");
    EXPECT_NE(on_screen("UIKeyboardPredictionCell"), nullptr);
    EXPECT_EQ(on_screen("UIKeyboardCandidateGrid"), nullptr);
    show("row");
    EXPECT_EQ(on_screen("UIKeyboardPredictionCell"), nullptr);
    ASSERT_NE(on_screen("UIKeyboardCandidateGrid"), nullptr);
    EXPECT_EQ(on_screen("UIKeyboardCandidateGrid")->frame(), (CGRect{{0, 0}, {375, 42}}));
    EXPECT_EQ(on_screen("UIKeyboardCandidateGridHeader"), nullptr);
    EXPECT_GT(sim_key_count(), 26u);
}

TEST_F(Candidates, ExpandedTheyTakeThePlaceOfTheKeysToo) {
    phone.boot();
    show("expanded");
    EXPECT_EQ(on_screen("UIKeyboardCandidateGrid")->frame(), (CGRect{{0, 0}, {375, 258}}));
    EXPECT_TRUE(on_screen("UIKBKeyplaneView")->isHidden());
    EXPECT_EQ(sim_key_count(), 0u);
}

TEST_F(Candidates, AGridAndItsHeaderHaveABackdropEach) {
    phone.boot();
    show("expanded");
    for (const char* name : {"UIKeyboardCandidateGrid", "UIKeyboardCandidateGridHeader"}) {
        UIView* view = on_screen(name);
        auto* backdrop = variable<UIView*>(view, "_backdropView");
        EXPECT_STREQ(object_getClassName(backdrop), "UIKBBackdropView") << name;
        EXPECT_EQ(view->subviews()->objectAtIndex(0), backdrop) << name;
        EXPECT_EQ(backdrop->frame(), view->bounds()) << name;
        view->setFrame({{0, 0}, {100, 50}});
        EXPECT_EQ(backdrop->frame(), (CGRect{{0, 0}, {100, 50}})) << name;
    }
}

TEST_F(Candidates, ATabletHasAnInputBackdropBehindThem) {
    boot_tablet();
    for (const char* candidates : {"row", "expanded"}) {
        show(candidates);
        EXPECT_EQ(on_screen("UIKeyboardCandidateGrid"), nullptr);
        UIView* view = on_screen("UIKeyboardCandidateView_iPad");
        ASSERT_NE(view, nullptr) << candidates;
        auto* backdrop = variable<UIKBInputBackdropView*>(view, "_backdropView");
        EXPECT_STREQ(object_getClassName(backdrop), "UIKBInputBackdropView");
        EXPECT_EQ(view->subviews()->objectAtIndex(0), backdrop);
        EXPECT_EQ(backdrop->inputBackdropFullView()->frame(), view->bounds());
    }
}

TEST_F(Candidates, TheBackdropsOfTheWindowAreNotBehindThem) {
    phone.boot();
    show("row");
    UIView* host = on_screen("UIInputSetHostView");
    std::vector<CGRect> backdrops;
    for (NSUInteger i = 0; i < host->subviews()->count(); ++i)
        if (auto* backdrop = as<UIKBInputBackdropView>(host->subviews()->objectAtIndex(i)))
            backdrops.push_back(backdrop->frame());
    EXPECT_EQ(backdrops, (std::vector<CGRect>{{{0, 42}, {375, 216}}}));
}

TEST_F(Candidates, AKindThatDoesNotExistIsNamedWithThoseThatDo) {
    phone.boot();
    EXPECT_EQ(requested({.candidates = "column"}), SIM_NOT_FOUND);
    EXPECT_STREQ(
        sim_last_error(),
        "sim_show_keyboard: no kind of candidates is called \"column\"; there are none, row, expanded");
}

TEST_F(Candidates, ASplitKeyboardHasNone) {
    phone.boot();
    EXPECT_EQ(requested({.split = true, .candidates = "row"}), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(), "sim_show_keyboard: a split keyboard has no candidates; they are \"row\"");
}

TEST_F(Candidates, ExpandedTheyLeaveNoKeyToPress) {
    phone.boot();
    EXPECT_EQ(requested({.pressed_key = "g", .candidates = "expanded"}), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(),
                 "sim_show_keyboard: expanded candidates are in place of the keys; \"g\" cannot be pressed");
}

}  // namespace
}  // namespace test
