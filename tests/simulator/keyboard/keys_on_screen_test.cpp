// The keys of the keyboard on the screen, as the C interface answers them.
#include <optional>
#include <string>

#include "platform/keyboard.h"
#include "support/keyboard_request.h"
#include "support/phone.h"

namespace test {
namespace {

class ShownKeys : public testing::Test {
  protected:
    static void show(const char* plane, bool landscape = false) {
        show_keyboard({.plane = plane, .landscape = landscape});
    }

    static UIView* view_on_screen(const char* class_name) {
        void* view = nullptr;
        sim_view_on_screen(class_name, &view);
        return static_cast<UIView*>(view);
    }

    static std::optional<sim_key> key_if_there(const std::string& name) {
        for (size_t index = 0; index < sim_key_count(); ++index) {
            sim_key found{};
            EXPECT_EQ(sim_key_at(index, &found), SIM_OK) << sim_last_error();
            if (name == found.name) return found;
        }
        return std::nullopt;
    }
    static sim_key key(const std::string& name) {
        auto found = key_if_there(name);
        EXPECT_TRUE(found) << "no key " << name;
        return found.value_or(sim_key{});
    }

    Phone phone;
};

class KeysOnScreen : public ShownKeys {
  protected:
    void SetUp() override { phone.boot(); }
};

TEST_F(KeysOnScreen, ThereAreNoneBeforeAKeyboardIsShown) { EXPECT_EQ(sim_key_count(), 0u); }

TEST_F(KeysOnScreen, AreThoseOfThePlaneWithoutTheMarksOnThem) {
    show("letters");
    EXPECT_EQ(sim_key_count(), 33u);
    EXPECT_STREQ(key("Latin-Small-Letter-G").text, "g");
    EXPECT_EQ(key("Shift-Key").text, nullptr);
    for (size_t index = 0; index < sim_key_count(); ++index) {
        sim_key found{};
        ASSERT_EQ(sim_key_at(index, &found), SIM_OK);
        EXPECT_STRNE(found.name, "EnabledLanguageIndicator");
    }
}

TEST_F(KeysOnScreen, StandWhereTheKeyboardDoes) {
    show("letters");
    const sim_key q = key("Latin-Small-Letter-Q"), space = key("Space-Key");
    EXPECT_EQ(q.x, 3);
    EXPECT_EQ(q.y, 667 - 216 + 8);
    EXPECT_EQ(q.height, 42);
    EXPECT_LE(space.y + space.height, 667);
    show("letters", true);
    EXPECT_GT(key("Latin-Small-Letter-P").x, 375);
    EXPECT_LT(key("Space-Key").y, 375);
}

TEST_F(KeysOnScreen, GlobeAndMicrophoneAreKeysBeforeTheSpaceBar) {
    for (bool landscape : {false, true}) {
        show("numbers", landscape);
        const char* in_order[] = {"More-Key", "International-Key", "Dictation-Key", "Space-Key"};
        for (size_t i = 1; i < std::size(in_order); ++i) {
            const sim_key left = key(in_order[i - 1]), right = key(in_order[i]);
            EXPECT_EQ(left.x + left.width + 6, right.x) << in_order[i];
            EXPECT_EQ(left.y, right.y);
        }
        EXPECT_EQ(view_on_screen("UIKeyboardDockView"), nullptr);
    }
}

class KeysAboveADock : public ShownKeys {
  protected:
    void SetUp() override { phone.boot({.screen_width = 375, .screen_height = 812, .screen_scale = 3}); }
};

TEST_F(KeysAboveADock, GlobeAndMicrophoneAreInTheDockBelowThem) {
    show("letters");
    EXPECT_EQ(sim_key_count(), 31u);
    EXPECT_FALSE(key_if_there("International-Key"));
    EXPECT_FALSE(key_if_there("Dictation-Key"));
    auto* dock = view_on_screen("UIKeyboardDockView");
    ASSERT_NE(dock, nullptr);
    EXPECT_EQ(dock->subviews()->count(), 2u);
    for (NSUInteger index = 0; index < 2; ++index)
        EXPECT_NE(as<UIKeyboardDockItemButton>(dock->subviews()->objectAtIndex(index)), nullptr);
    const sim_key space = key("Space-Key");
    EXPECT_LE(space.y + space.height, 812 - dock->bounds().size.height);
}

TEST_F(KeysOnScreen, ANumberBeyondTheEndIsRefused) {
    show("letters");
    sim_key found{};
    EXPECT_EQ(sim_key_at(33, &found), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(), "sim_key_at: there is no key 33 of 33");
    EXPECT_EQ(sim_key_at(0, nullptr), SIM_MISUSE);
}

}  // namespace
}  // namespace test
