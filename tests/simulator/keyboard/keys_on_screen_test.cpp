// The keys of the keyboard on the screen, as the C interface answers them.
#include <string>

#include "support/phone.h"

namespace test {
namespace {

class KeysOnScreen : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    static void show(const char* plane, bool landscape = false) {
        sim_keyboard keyboard{};
        keyboard.size = sizeof keyboard;
        keyboard.plane = plane;
        keyboard.landscape = landscape;
        ASSERT_EQ(sim_show_keyboard(&keyboard), SIM_OK) << sim_last_error();
    }

    static sim_key key(const std::string& name) {
        for (size_t index = 0; index < sim_key_count(); ++index) {
            sim_key found{};
            EXPECT_EQ(sim_key_at(index, &found), SIM_OK) << sim_last_error();
            if (name == found.name) return found;
        }
        ADD_FAILURE() << "no key " << name;
        return {};
    }

    Phone phone;
};

TEST_F(KeysOnScreen, ThereAreNoneBeforeAKeyboardIsShown) { EXPECT_EQ(sim_key_count(), 0u); }

TEST_F(KeysOnScreen, AreThoseOfThePlaneWithoutTheMarksOnThem) {
    show("letters");
    EXPECT_EQ(sim_key_count(), 31u);
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
    EXPECT_EQ(q.y, 667 - 46 - 216 + 8);
    EXPECT_EQ(q.height, 42);
    EXPECT_LE(space.y + space.height, 667 - 46);
    show("letters", true);
    EXPECT_GT(key("Latin-Small-Letter-P").x, 375);
    EXPECT_LT(key("Space-Key").y, 375);
}

TEST_F(KeysOnScreen, ANumberBeyondTheEndIsRefused) {
    show("letters");
    sim_key found{};
    EXPECT_EQ(sim_key_at(31, &found), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(), "sim_key_at: there is no key 31 of 31");
    EXPECT_EQ(sim_key_at(0, nullptr), SIM_MISUSE);
}

}  // namespace
}  // namespace test
