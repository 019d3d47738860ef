// The backdrops of a keyboard's window: the theme in each of them, and a web form's bar that takes it away.
#include "hooks/background_test.h"
#include "support/keyboard_request.h"

namespace test {
namespace {

class InputWindow : public Background {
  protected:
    void SetUp() override { start("1", red_and_blue); }

    /// The pieces that are shown, of every backdrop in the window. Read as variables: the getters are hooked.
    static std::vector<UIKBBackdropView*> shown_pieces() {
        void* host = nullptr;
        EXPECT_EQ(sim_view_on_screen("UIInputSetHostView", &host), SIM_OK) << sim_last_error();
        NSArray* parts = static_cast<UIView*>(host)->subviews();
        std::vector<UIKBBackdropView*> pieces;
        for (NSUInteger i = 0; i < parts->count(); ++i)
            if (auto* input = as<UIKBInputBackdropView>(parts->objectAtIndex(i)))
                pieces.push_back(variable<UIKBBackdropView*>(input, "_inputBackdropFullView"));
        return pieces;
    }

    static constexpr struct {
        NSUInteger background;
        const char* themed;
    } kinds[] = {{0, "_UIBackdropColouredView"},
                 {1, "_UIBackdropColouredView"},
                 {2, "_UIBackdropGradientView"},
                 {3, "_UIBackdropImageView"}};
};

TEST_F(InputWindow, EachBackdropShowsTheThemeForItself) {
    for (const auto& [background, themed] : kinds) {
        set_type(background);
        show_keyboard({});
        const auto pieces = shown_pieces();
        ASSERT_EQ(pieces.size(), 2u) << "of the keys and of the predictions";
        for (auto* piece : pieces) {
            EXPECT_EQ(class_of(piece->activeBackgroundView()), themed);
            EXPECT_EQ(piece->activeBackgroundView()->bounds().size, piece->bounds().size);
        }
        EXPECT_NE(pieces[0]->activeBackgroundView(), pieces[1]->activeBackgroundView());
    }
}

TEST_F(InputWindow, AWebFormsBarTakesTheThemeOutOfEveryBackdrop) {
    for (const auto& kind : kinds) {
        set_type(kind.background);
        show_keyboard({.form_accessory = true});
        const auto pieces = shown_pieces();
        ASSERT_EQ(pieces.size(), 3u) << "of the keys, of the predictions and of the bar";
        for (auto* piece : pieces) {
            EXPECT_EQ(piece->activeBackgroundView(), nullptr) << kind.background;
            EXPECT_EQ(piece->contentView()->subviews()->count(), 0u) << kind.background;
            EXPECT_EQ(rgba(piece->backgroundColor()).alpha, 0) << kind.background;
        }
    }
}

}  // namespace
}  // namespace test
