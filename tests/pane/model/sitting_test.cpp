// An editor's sitting: undo, redo, and whether anything is changed.
#include "pane/model/sitting.h"

#include "kept_files.h"

namespace test {
namespace {

class SittingWithATheme : public testing::Test {
  protected:
    void SetUp() override {
        phone.start();
        sitting = pane::Sitting(HuecraftConfig::defaultConfig());
        name("first");
        sitting = pane::Sitting(sitting.theme());
    }
    void name(const std::string& given, int kind = 0) {
        sitting.theme()->setConfigName(text(given));
        sitting.changed(kind);
    }
    std::string name() const { return utf8(sitting.theme()->getConfigName()); }

    Phone phone;
    pane::Sitting sitting;
};

TEST_F(SittingWithATheme, BeginsUnchanged) {
    EXPECT_FALSE(sitting.is_changed());
    EXPECT_FALSE(sitting.can_undo());
    EXPECT_FALSE(sitting.can_redo());
}

TEST_F(SittingWithATheme, EveryChangeCanBeTakenBackAndMadeAgain) {
    for (const char* each : {"a", "b", "c"}) name(each);
    for (const char* expected : {"b", "a", "first"}) {
        ASSERT_TRUE(sitting.can_undo());
        sitting.undo();
        EXPECT_EQ(name(), expected);
    }
    EXPECT_FALSE(sitting.can_undo());
    EXPECT_FALSE(sitting.is_changed());
    for (const char* expected : {"a", "b", "c"}) {
        ASSERT_TRUE(sitting.can_redo());
        sitting.redo();
        EXPECT_EQ(name(), expected);
    }
    EXPECT_FALSE(sitting.can_redo());
}

TEST_F(SittingWithATheme, AChangeAfterTakingBackForgetsWhatWasTakenBack) {
    name("a");
    sitting.undo();
    name("b");
    EXPECT_FALSE(sitting.can_redo());
    sitting.undo();
    EXPECT_EQ(name(), "first");
}

TEST_F(SittingWithATheme, WhatASliderTellsIsOneChange) {
    constexpr int alpha = 1, other = 2;
    name("a", alpha);
    name("b", alpha);
    name("c", other);
    name("d", alpha);
    sitting.undo();
    EXPECT_EQ(name(), "c");
    sitting.undo();
    EXPECT_EQ(name(), "b");
    sitting.undo();
    EXPECT_EQ(name(), "first");
}

TEST_F(SittingWithATheme, WhatChangesNothingIsNoChange) {
    name("first");
    EXPECT_FALSE(sitting.can_undo());
}

TEST_F(SittingWithATheme, KeptIsUnchangedUntilTheNextChange) {
    name("a");
    EXPECT_TRUE(sitting.is_changed());
    sitting.kept();
    EXPECT_FALSE(sitting.is_changed());
    sitting.undo();
    EXPECT_TRUE(sitting.is_changed()) << "what is kept is another";
}

TEST_F(SittingWithATheme, NothingToTakeBackChangesNothing) {
    sitting.undo();
    sitting.redo();
    EXPECT_EQ(name(), "first");
}

}  // namespace
}  // namespace test
