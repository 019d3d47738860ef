// The colour picker's hex field: typing, deleting, and the return key.
#include "settings/color_picker.h"

namespace test {
namespace {

class HexTyping : public ColorPicker {
  protected:
    void SetUp() override {
        ColorPicker::SetUp();
        show();
        tap(field());
        ASSERT_TRUE(field()->isFirstResponder());
    }
    void type(const std::string& letters) const {
        ASSERT_EQ(sim_type_text(letters.c_str()), SIM_OK) << sim_last_error();
    }
    static void press_delete() { ASSERT_EQ(sim_delete_backward(), SIM_OK) << sim_last_error(); }
    static void press_return() { ASSERT_EQ(sim_press_return(), SIM_OK) << sim_last_error(); }
    static void select(size_t location, size_t length) {
        ASSERT_EQ(sim_select_text(location, length), SIM_OK) << sim_last_error();
    }
    /// As a person does it, letter by letter.
    void empty_field() const {
        while (field()->text()->length()) press_delete();
    }
    /// What the picker answers when it is asked by another field or by hand.
    bool ask(UITextField* asking, NSRange range, const char* replacement) const {
        return picker->send<"textField:shouldChangeCharactersInRange:replacementString:", bool>(
            asking, range, text(replacement));
    }
};

TEST_F(HexTyping, LettersInAnEmptyFieldComeAfterAHash) {
    empty_field();
    EXPECT_EQ(hex_text(), "");
    type("ff");
    EXPECT_EQ(hex_text(), "#FF");
    empty_field();
    type("#ff");
    EXPECT_EQ(hex_text(), "#FF");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, EveryLetterThatAHexTextMayHoldIsTakenAndNoOther) {
    const std::string allowed = "#0123456789ABCDEFabcdef";
    for (char letter = ' '; letter < 0x7f; ++letter) {
        set_text("#1");
        type({letter});
        if (allowed.find(letter) == std::string::npos) {
            EXPECT_EQ(hex_text(), "#1") << letter;
            EXPECT_TRUE(shook()) << letter;
        } else {
            EXPECT_EQ(hex_text(), std::string("#1") + static_cast<char>(std::toupper(letter)));
            EXPECT_FALSE(shook()) << letter;
        }
    }
}

TEST_F(HexTyping, AtEveryLengthEveryLetterIsTakenOrRefused) {
    const std::string allowed = "#0123456789ABCDEFabcdef", longest = "#12345678";
    for (size_t length = 0; length <= longest.size(); ++length)
        for (char letter = ' '; letter < 0x7f; ++letter) {
            const std::string before = longest.substr(0, length);
            const bool taken = allowed.find(letter) != std::string::npos && length < longest.size();
            const std::string hash = length == 0 && letter != '#' ? "#" : "";
            set_text(before.c_str());
            type({letter});
            EXPECT_EQ(hex_text(), taken ? before + hash + static_cast<char>(std::toupper(letter)) : before)
                << letter;
            EXPECT_EQ(shook(), !taken) << before << " " << letter;
        }
}

TEST_F(HexTyping, ControlCharactersAndNonAsciiAreRefusedAtEveryLength) {
    const std::string longest = "#12345678";
    for (size_t length = 0; length <= longest.size(); ++length)
        for (const char* letter : {"\t", "\x01", "\x7f", "é", "Ａ", "٣", "😀", "\u00a0"}) {
            set_text(longest.substr(0, length).c_str());
            type(letter);
            EXPECT_EQ(hex_text(), longest.substr(0, length)) << letter;
            EXPECT_TRUE(shook()) << letter;
        }
}

TEST_F(HexTyping, NineCharactersAreTheMost) {
    empty_field();
    std::string expected = "#";
    for (char digit : std::string("12345678")) {
        type({digit});
        EXPECT_EQ(hex_text(), expected += digit);
        EXPECT_FALSE(shook()) << expected;
    }
    for (const char* more : {"9", "#", "a"}) {
        type(more);
        EXPECT_EQ(hex_text(), "#12345678");
        EXPECT_TRUE(shook());
    }
    press_delete();
    EXPECT_EQ(hex_text(), "#1234567");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, AHashMayStandAnywhere) {
    empty_field();
    type("12#4");
    EXPECT_EQ(hex_text(), "#12#4");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, NewLettersGoToTheEndWhereverTheCaretIs) {
    set_text("#123");
    select(1, 0);
    type("a");
    EXPECT_EQ(hex_text(), "#123A");
    select(0, 0);
    type("b");
    EXPECT_EQ(hex_text(), "#123AB");
}

TEST_F(HexTyping, WhatIsSelectedIsNotReplaced) {
    set_text("#123");
    select(1, 1);
    type("a");
    EXPECT_EQ(hex_text(), "#123A");
    select(0, 5);
    type("b");
    EXPECT_EQ(hex_text(), "#123AB");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, ASelectionMakesNoRoom) {
    set_text("#12345678");
    select(0, 9);
    type("a");
    EXPECT_EQ(hex_text(), "#12345678");
    EXPECT_TRUE(shook());
}

TEST_F(HexTyping, OneCharacterIsDeleted) {
    set_text("#12345678");
    press_delete();
    EXPECT_EQ(hex_text(), "#1234567");
    select(0, 1);
    press_delete();
    EXPECT_EQ(hex_text(), "1234567");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, DeletingTwoSelectedCharactersChangesNothingAndDoesNotShake) {
    set_text("#123456");
    select(2, 2);
    press_delete();
    EXPECT_EQ(hex_text(), "#123456");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, SeveralLettersAtOnceCountWhole) {
    set_text("#12");
    EXPECT_FALSE(ask(field(), {3, 0}, "345678"));
    EXPECT_EQ(hex_text(), "#12345678");
    set_text("#12");
    EXPECT_FALSE(ask(field(), {3, 0}, "3456789"));
    EXPECT_EQ(hex_text(), "#12");
    EXPECT_TRUE(shook());
    EXPECT_FALSE(ask(field(), {3, 0}, "3g"));
    EXPECT_EQ(hex_text(), "#12");
    EXPECT_TRUE(shook());
}

TEST_F(HexTyping, NineLettersAtOnceInAnEmptyFieldMakeTen) {
    set_text("");
    EXPECT_FALSE(ask(field(), {0, 0}, "123456789"));
    EXPECT_EQ(hex_text(), "#123456789") << "the hash is not counted";
}

TEST_F(HexTyping, OfATextThatIsTooLongACharacterIsDeletedThoughItShakes) {
    set_text("#123456789");
    press_delete();
    EXPECT_EQ(hex_text(), "#12345678");
    EXPECT_TRUE(shook());
    press_delete();
    EXPECT_EQ(hex_text(), "#1234567");
    EXPECT_FALSE(shook());
}

TEST_F(HexTyping, NothingTypedIntoAnEmptyFieldIsAHash) {
    for (NSUInteger length : {0ul, 1ul}) {
        set_text("");
        EXPECT_EQ(ask(field(), {0, length}, ""), length == 1);
        EXPECT_EQ(hex_text(), "#");
        EXPECT_FALSE(shook());
    }
}

TEST_F(HexTyping, OnlyOneCharactersDeletionIsLeftToTheField) {
    for (NSUInteger length = 0; length < 4; ++length)
        for (const char* replacement : {"", "1", "12", "g"}) {
            set_text("#12");
            EXPECT_EQ(ask(field(), {0, length}, replacement), length == 1 && !*replacement)
                << length << " " << replacement;
        }
}

TEST_F(HexTyping, AnotherFieldsTextIsItsOwn) {
    auto other = objc::adopt(static_cast<UITextField*>(UITextField::alloc()->initWithFrame({}).leak()));
    set_text("#12");
    EXPECT_FALSE(ask(other, {0, 0}, "ab"));
    EXPECT_EQ(utf8(other->text()), "#AB");
    EXPECT_EQ(hex_text(), "#12");
}

// ---- The return key

TEST_F(HexTyping, ReturnMakesAValidTextTheColour) {
    const struct {
        const char *typed, *written;
    } texts[] = {{"#FF0000", "#FF0000"},    {"00FF00", "#00FF00"},    {"#FF000080", "#FF000080"},
                 {"0000FF80", "#0000FF80"}, {"#12345", "#000000"},    {"12#456", "#000012"},
                 {"123456789", "#FFFFFF"},  {"#FF0000FF", "#FF0000"}, {"#12#45", "#000000"}};
    for (const auto& each : texts) {
        tap(field());
        set_text(each.typed);
        press_return();
        EXPECT_EQ(hex_text(), each.written) << each.typed;
        EXPECT_EQ(hex(color(current().red, current().green, current().blue, current().alpha)).substr(0, 7),
                  std::string(each.written).substr(0, 7));
        EXPECT_FALSE(field()->isFirstResponder()) << each.typed;
        EXPECT_FALSE(shook()) << each.typed;
    }
}

TEST_F(HexTyping, ReturnOnAnInvalidTextShakesAndClosesTheKeyboard) {
    for (const char* typed : {"#12", "", "#", "#12#4", "12345", "#123456789"}) {
        tap(field());
        const Rgba before = current();
        set_text(typed);
        press_return();
        EXPECT_EQ(hex_text(), typed);
        EXPECT_EQ(current(), before);
        EXPECT_FALSE(field()->isFirstResponder()) << typed;
        EXPECT_TRUE(shook()) << typed;
    }
}

TEST_F(HexTyping, ReturnInAnotherFieldJudgesItsTextAndTakesThePickers) {
    auto other = objc::adopt(static_cast<UITextField*>(UITextField::alloc()->initWithFrame({}).leak()));
    other->setText(text("#00FF00"));
    set_text("#0000FF");
    EXPECT_TRUE((picker->send<"textFieldShouldReturn:", bool>(other.get())));
    EXPECT_EQ(current(), (Rgba{0, 0, 1, 1}));
    other->setText(text("#00"));
    EXPECT_TRUE((picker->send<"textFieldShouldReturn:", bool>(other.get())));
    EXPECT_TRUE(shook());
    set_text("#12");
    other->setText(text("#00FF00"));
    picker->send<"textFieldShouldReturn:", bool>(other.get());
    EXPECT_EQ(hex_text(), "#00000000") << "a text that is no colour is transparent black";
}

TEST_F(HexTyping, RefusalsAndColoursGoByMessage) {
    observe<"shakeWrong">("HCColorPickerController");
    observe<"updateToColor:", void, id>("HCColorPickerController");
    type("x");
    set_text("#12");
    press_return();
    tap(field());
    set_text("#123456");
    press_return();
    EXPECT_EQ(heard, (Selectors{"shakeWrong", "shakeWrong", "updateToColor:"}));
}

}  // namespace
}  // namespace test
