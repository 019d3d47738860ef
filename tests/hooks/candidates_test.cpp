// The candidates of an input method under a theme: the backdrops behind them, and what is drawn on these.
#include "hooks/background_test.h"
#include "support/keyboard_request.h"

namespace test {
namespace {

const Phone::Options tablet{.screen_width = 768, .screen_height = 1024};

class Candidates : public Background {
  protected:
    /// With green text over blue.
    void start_on(const Phone::Options& screen) {
        arrange_theme_of(phone,
                         "<key>_TextColor</key><string>#00FF00</string><key>_VisibleKeycaps</key><false/>"
                         "<key>_BackgroundType</key><integer>1</integer><key>_Colors</key><array>"
                         "<string>#0000FF</string></array>");
        phone.start(screen);
    }
    static void choose_image() {
        objc::send<"setImageData:">(active_theme(), filled_image(color(1, 0, 0), 4, 4));
        set_type(3);
    }

    static void show(const char* candidates, bool form_accessory = false) {
        show_keyboard({.form_accessory = form_accessory, .candidates = candidates});
    }

    static UIView* on_screen(const char* class_name) {
        void* view = nullptr;
        EXPECT_EQ(sim_view_on_screen(class_name, &view), SIM_OK) << sim_last_error();
        return static_cast<UIView*>(view);
    }
    static UIKBBackdropView* backdrop_of(const char* class_name) {
        return variable<UIKBBackdropView*>(on_screen(class_name), "_backdropView");
    }
    /// The full piece of the tablet's backdrop. Read as a variable: the getter is hooked.
    static UIKBBackdropView* tablets_piece() {
        auto* backdrop =
            variable<UIKBInputBackdropView*>(on_screen("UIKeyboardCandidateView_iPad"), "_backdropView");
        return variable<UIKBBackdropView*>(backdrop, "_inputBackdropFullView");
    }

    static UILabel* label_in(UIView* view) {
        NSArray* subviews = view->subviews();
        for (NSUInteger i = 0; i < subviews->count(); ++i)
            if (auto* label = as<UILabel>(subviews->objectAtIndex(i))) return label;
        return nullptr;
    }
    static std::vector<UIView*> cells_of(UIView* candidates) {
        std::vector<UIView*> cells;
        NSArray* subviews = candidates->subviews();
        for (NSUInteger i = 0; i < subviews->count(); ++i)
            if (auto* view = static_cast<UIView*>(subviews->objectAtIndex(i));
                label_in(view) && class_of(view) == "UIView")
                cells.push_back(view);
        return cells;
    }
    /// What the view shows at that point of its own, at two pixels to a point.
    static Rgba drawn(UIView* view, CGFloat x, CGFloat y) {
        UIGraphicsBeginImageContextWithOptions(view->bounds().size, false, 2);
        view->drawViewHierarchyInRect(view->bounds(), true);
        CGContextRef context = UIGraphicsGetCurrentContext();
        const auto* pixel = static_cast<const uint8_t*>(CGBitmapContextGetData(context)) +
                            CGBitmapContextGetBytesPerRow(context) * static_cast<size_t>(2 * y) +
                            static_cast<size_t>(2 * x) * 4;
        const Rgba color{pixel[2] / 255.0, pixel[1] / 255.0, pixel[0] / 255.0, pixel[3] / 255.0};
        UIGraphicsEndImageContext();
        return color;
    }

    static constexpr struct {
        NSUInteger background;
        const char* themed;
    } kinds[] = {
        {0, "_UIBackdropColouredView"}, {1, "_UIBackdropColouredView"}, {2, "_UIBackdropGradientView"}};
};

// ---- Backdrops ----

TEST_F(Candidates, GridAndHeaderHaveTheWholeThemeEach) {
    start_on({});
    for (const auto& [background, themed] : kinds) {
        set_type(background);
        show("expanded");
        for (const char* name : {"UIKeyboardCandidateGrid", "UIKeyboardCandidateGridHeader"}) {
            UIKBBackdropView* backdrop = backdrop_of(name);
            EXPECT_EQ(class_of(expect_installed(backdrop)), themed) << name;
            EXPECT_EQ(backdrop->activeBackgroundView()->bounds().size, on_screen(name)->bounds().size);
        }
    }
}

TEST_F(Candidates, AGridHasTheAverageOfAnImage) {
    start_on({});
    choose_image();
    show("row");
    UIKBBackdropView* backdrop = backdrop_of("UIKeyboardCandidateGrid");
    expect_no_themed_view(backdrop);
    EXPECT_EQ(rgba(backdrop->backgroundColor()), (Rgba{1, 0, 0, 1}));
}

TEST_F(Candidates, ATabletsCandidatesHaveTheWholeTheme) {
    start_on(tablet);
    for (const auto& [background, themed] : kinds) {
        set_type(background);
        show("row");
        UIKBBackdropView* piece = tablets_piece();
        EXPECT_EQ(class_of(expect_installed(piece)), themed);
    }
}

TEST_F(Candidates, ATabletShowsTheImageBehindItsCandidates) {
    start_on(tablet);
    choose_image();
    show("row");
    EXPECT_EQ(class_of(tablets_piece()->activeBackgroundView()), "_UIBackdropImageView");
}

TEST_F(Candidates, AWebFormsBarLeavesATabletsCandidatesTheirTheme) {
    start_on(tablet);
    show("row", true);
    EXPECT_EQ(class_of(tablets_piece()->activeBackgroundView()), "_UIBackdropColouredView");
}

// ---- What is drawn on them ----

TEST_F(Candidates, CandidatesAreWrittenInTheTextColour) {
    start_on({});
    for (const char* candidates : {"row", "expanded"}) {
        show(candidates);
        const auto cells = cells_of(on_screen("UIKeyboardCandidateGrid"));
        ASSERT_GT(cells.size(), 2u) << candidates;
        for (UIView* cell : cells) EXPECT_EQ(rgba(label_in(cell)->textColor()), theme_text) << candidates;
    }
    UIView* header = on_screen("UIKeyboardCandidateGridHeader");
    EXPECT_EQ(rgba(label_in(header)->textColor()), theme_text);
}

TEST_F(Candidates, HiddenCapsLeaveTheHighlightAndNoLines) {
    start_on({});
    show("row");
    const auto cells = cells_of(on_screen("UIKeyboardCandidateGrid"));
    ASSERT_GT(cells.size(), 2u);
    EXPECT_EQ(drawn(cells[0], 2, 2), (Rgba{1, 1, 1, 1})) << "the chosen candidate keeps the system's white";
    EXPECT_EQ(drawn(cells[1], 2, 2).alpha, 0);
    const CGFloat right = cells[1]->bounds().size.width - 0.25;
    EXPECT_EQ(drawn(cells[1], right, 2).alpha, 0) << "no line to the next one";
}

TEST_F(Candidates, HiddenCapsLeaveTheToggleItsSystemCap) {
    start_on({});
    show("row");
    UIView* toggle = as<UIView>(on_screen("UIKeyboardCandidateGrid")->subviews()->lastObject());
    EXPECT_EQ(toggle->frame().origin.x, 331);
    EXPECT_GT(drawn(toggle, 2, 2).alpha, 0);
}

}  // namespace
}  // namespace test
