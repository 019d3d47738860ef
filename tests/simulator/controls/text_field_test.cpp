// Text fields: typing, what the delegate is asked, and where things stand.
#include "screen_test.h"

namespace test {
namespace {

/// What the delegate answers.
bool allows_beginning, allows_ending, allows_change;

template <bool* Answer>
int ask(id, SEL question, id) {
    heard().emplace_back(sel_getName(question));
    return *Answer;
}
void hear(id, SEL message, id) { heard().emplace_back(sel_getName(message)); }

class TextFields : public Screen {
  protected:
    void SetUp() override {
        Screen::SetUp();
        allows_beginning = allows_ending = allows_change = true;
        field = add<UITextField>({{50, 100}, {250, 40}});
        Class made = class_with(
            "FieldDelegate", "NSObject",
            {own_method("textFieldShouldBeginEditing:", ask<&allows_beginning>, "B@:@"),
             own_method("textFieldDidBeginEditing:", hear, "v@:@"),
             own_method("textFieldShouldEndEditing:", ask<&allows_ending>, "B@:@"),
             own_method("textFieldDidEndEditing:", hear, "v@:@"),
             own_method(
                 "textFieldShouldReturn:",
                 [](id, SEL, UITextField* field) {
                     heard().push_back("return");
                     field->resignFirstResponder();
                     return 1;
                 },
                 "B@:@"),
             own_method(
                 "textField:shouldChangeCharactersInRange:replacementString:",
                 [](id, SEL, UITextField* field, NSRange range, NSString* replacement) {
                     heard().push_back(utf8(field->text()) + " " + std::to_string(range.location) + "+" +
                                       std::to_string(range.length) + " '" + utf8(replacement) + "'");
                     return static_cast<int>(allows_change);
                 },
                 "B@:@{_NSRange=QQ}@")});
        delegate = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
    }
    void TearDown() override {
        delegate = nullptr;
        Screen::TearDown();
    }
    void edit() {
        tap(60, 110);
        ASSERT_TRUE(field->isFirstResponder());
        just_heard();
    }
    static void type(const char* text) { ASSERT_EQ(sim_type_text(text), SIM_OK) << sim_last_error(); }
    static void erase() { ASSERT_EQ(sim_delete_backward(), SIM_OK) << sim_last_error(); }
    static void select(size_t location, size_t length) {
        ASSERT_EQ(sim_select_text(location, length), SIM_OK) << sim_last_error();
    }
    std::string shown() { return utf8(field->text()); }

    UITextField* field = nullptr;
    objc::strong<NSObject> delegate;
};

TEST_F(TextFields, ATapBeginsEditingAndReturnEndsIt) {
    field->setDelegate(delegate);
    tap(60, 110);
    EXPECT_TRUE(field->isEditing());
    EXPECT_EQ(just_heard(), (Heard{"textFieldShouldBeginEditing:", "textFieldDidBeginEditing:"}));
    ASSERT_EQ(sim_press_return(), SIM_OK) << sim_last_error();
    EXPECT_FALSE(field->isEditing());
    EXPECT_EQ(just_heard(), (Heard{"return", "textFieldShouldEndEditing:", "textFieldDidEndEditing:"}));
}

TEST_F(TextFields, TheDelegateMayRefuseToBeginAndToEnd) {
    field->setDelegate(delegate);
    allows_beginning = false;
    EXPECT_FALSE(field->becomeFirstResponder());
    allows_beginning = true;
    EXPECT_TRUE(field->becomeFirstResponder());
    allows_ending = false;
    EXPECT_FALSE(field->resignFirstResponder());
    auto* other = add<UITextField>({{50, 200}, {250, 40}});
    EXPECT_FALSE(other->becomeFirstResponder());
    EXPECT_TRUE(field->isFirstResponder());
}

TEST_F(TextFields, TypingAsksForEachCharacterAtTheCaret) {
    edit();
    field->setDelegate(delegate);
    type("ab");
    EXPECT_EQ(shown(), "ab");
    EXPECT_EQ(just_heard(), (Heard{" 0+0 'a'", "a 1+0 'b'"}));
    select(1, 0);
    type("x");
    EXPECT_EQ(shown(), "axb");
    type("y");
    EXPECT_EQ(shown(), "axyb");
}

TEST_F(TextFields, ARefusedChangeIsNotMade) {
    edit();
    field->setText(text("keep"));
    field->setDelegate(delegate);
    allows_change = false;
    type("x");
    erase();
    EXPECT_EQ(shown(), "keep");
    EXPECT_EQ(just_heard(), (Heard{"keep 4+0 'x'", "keep 3+1 ''"}));
}

TEST_F(TextFields, DeletingTakesTheSelectionOrOneCharacter) {
    edit();
    field->setText(text("abcdef"));
    field->setDelegate(delegate);
    erase();
    EXPECT_EQ(shown(), "abcde");
    select(1, 2);
    erase();
    EXPECT_EQ(shown(), "ade");
    erase();
    EXPECT_EQ(shown(), "de");
    just_heard();
    erase();
    EXPECT_EQ(shown(), "de") << "the caret stands at the beginning";
    EXPECT_EQ(just_heard(), Heard{});
}

TEST_F(TextFields, ACharacterOfSeveralUnitsGoesAsOne) {
    edit();
    type("a\xF0\x9F\x98\x80");
    EXPECT_EQ(field->text()->length(), 3u);
    erase();
    EXPECT_EQ(shown(), "a");
}

TEST_F(TextFields, TypingReplacesTheSelection) {
    edit();
    field->setText(text("abcdef"));
    select(1, 4);
    type("X");
    EXPECT_EQ(shown(), "aXf");
    type("Y");
    EXPECT_EQ(shown(), "aXYf");
}

TEST_F(TextFields, SettingTheTextPutsTheCaretAtTheEndAndAsksNobody) {
    edit();
    field->setDelegate(delegate);
    field->setText(text("abc"));
    EXPECT_EQ(just_heard(), Heard{});
    type("d");
    EXPECT_EQ(shown(), "abcd");
    field->setText(nullptr);
    EXPECT_EQ(shown(), "");
}

TEST_F(TextFields, ADelegateThatSetsTheTextAndRefusesHasItsText) {
    Class made = class_with("InsertingDelegate", "NSObject",
                            {own_method(
                                "textField:shouldChangeCharactersInRange:replacementString:",
                                [](id, SEL, UITextField* field, NSRange, NSString* replacement) {
                                    field->setText(text("#")->stringByAppendingString(replacement));
                                    return 0;
                                },
                                "B@:@{_NSRange=QQ}@")});
    auto inserting = objc::adopt(objc::send<"new", NSObject*>(reinterpret_cast<id>(made)));
    edit();
    field->setDelegate(inserting);
    type("a");
    EXPECT_EQ(shown(), "#a");
}

TEST_F(TextFields, TellOfEditingAsControls) {
    auto target = recording_target();
    field->addTarget(target, sel("pressed"), UIControlEventEditingChanged);
    edit();
    type("ab");
    erase();
    field->setText(text("x"));
    EXPECT_EQ(just_heard(), (Heard{"pressed", "pressed", "pressed"}));
    field->addTarget(target, sel("pressedBy:"), UIControlEventEditingDidEndOnExit);
    ASSERT_EQ(sim_press_return(), SIM_OK);
    EXPECT_EQ(just_heard(), Heard{"pressedBy 0"});
    EXPECT_FALSE(field->isEditing()) << "who listens to the end on exit wants it to end";
}

TEST_F(TextFields, ReturnWithoutADelegateGoesOnEditing) {
    edit();
    type("a\nb");
    EXPECT_EQ(shown(), "ab");
    EXPECT_TRUE(field->isEditing());
}

TEST_F(TextFields, TheDelegateIsNotRetained) {
    field->setDelegate(delegate);
    delegate = nullptr;
    EXPECT_EQ(field->delegate(), nullptr);
    edit();
    type("a");
    EXPECT_EQ(shown(), "a");
}

TEST_F(TextFields, TypingWithoutAFirstResponderIsRefused) {
    EXPECT_EQ(sim_type_text("a"), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(), "sim_type_text: there is no first responder; tap a text field first");
    EXPECT_EQ(sim_delete_backward(), SIM_NOT_FOUND);
    EXPECT_EQ(sim_press_return(), SIM_NOT_FOUND);
    EXPECT_EQ(sim_select_text(0, 0), SIM_NOT_FOUND);
    EXPECT_EQ(sim_type_text(nullptr), SIM_MISUSE);
    edit();
    EXPECT_EQ(sim_type_text("\xff"), SIM_MISUSE);
    EXPECT_EQ(sim_select_text(0, 1), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(),
                 "sim_select_text: the range 0, 1 is not in the text, which has 0 UTF-16 units");
}

TEST_F(TextFields, SideViewsTakeTheirWidthFromTheText) {
    auto left = UIView::alloc()->initWithFrame({{5, 0}, {50, 40}});
    auto right = UIView::alloc()->initWithFrame({{0, 0}, {60, 20}});
    field->setLeftView(left);
    field->setRightView(right);
    EXPECT_EQ(field->textRectForBounds(field->bounds()), (CGRect{{0, 0}, {250, 40}}));
    field->setLeftViewMode(UITextFieldViewModeAlways);
    field->setRightViewMode(UITextFieldViewModeAlways);
    root->layoutIfNeeded();
    EXPECT_EQ(field->textRectForBounds(field->bounds()), (CGRect{{50, 0}, {140, 40}}));
    EXPECT_EQ(left->superview(), field);
    EXPECT_EQ(left->frame(), (CGRect{{0, 0}, {50, 40}}));
    EXPECT_EQ(right->frame(), (CGRect{{190, 10}, {60, 20}}));
}

TEST_F(TextFields, SideViewsComeAndGoWithEditing) {
    auto left = UIView::alloc()->initWithFrame({{0, 0}, {50, 40}});
    auto right = UIView::alloc()->initWithFrame({{0, 0}, {60, 40}});
    field->setLeftView(left);
    field->setLeftViewMode(UITextFieldViewModeWhileEditing);
    field->setRightView(right);
    field->setRightViewMode(UITextFieldViewModeUnlessEditing);
    root->layoutIfNeeded();
    EXPECT_TRUE(!left->superview() && right->superview() == field);
    edit();
    EXPECT_TRUE(left->superview() == field && !right->superview());
}

TEST_F(TextFields, AButtonAtTheSideIsPressedWithoutEditing) {
    auto target = recording_target();
    UIButton* button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->setFrame({{0, 0}, {60, 40}});
    button->addTarget(target, sel("pressed"), UIControlEventTouchUpInside);
    field->setRightView(button);
    field->setRightViewMode(UITextFieldViewModeAlways);
    root->layoutIfNeeded();
    tap(280, 120);
    EXPECT_EQ(just_heard(), Heard{"pressed"});
    EXPECT_FALSE(field->isEditing());
}

TEST_F(TextFields, ADisabledFieldIsNotEdited) {
    field->setEnabled(false);
    tap(60, 110);
    EXPECT_FALSE(field->isEditing());
    EXPECT_FALSE(field->becomeFirstResponder());
}

TEST_F(TextFields, TheAppearanceTintsFieldsThatComeIntoAWindowAfterwards) {
    const Rgba blue = rgba(field->tintColor());
    auto own = objc::adopt(static_cast<UITextField*>(UITextField::alloc()->initWithFrame({}).leak()));
    own->setTintColor(color(0, 1, 0));
    auto later = objc::adopt(static_cast<UITextField*>(UITextField::alloc()->initWithFrame({}).leak()));
    UITextField::appearance()->setTintColor(color(1, 0, 0));
    EXPECT_EQ(rgba(UITextField::appearance()->tintColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(rgba(field->tintColor()), blue) << "it is in a window already";
    EXPECT_EQ(rgba(later->tintColor()), blue) << "it is in none yet";
    root->addSubview(own);
    root->addSubview(later);
    auto* button = add<UIControl>({});
    EXPECT_EQ(rgba(later->tintColor()), (Rgba{1, 0, 0, 1}));
    EXPECT_EQ(rgba(own->tintColor()), (Rgba{0, 1, 0, 1})) << "what is set on the field itself wins";
    EXPECT_EQ(rgba(button->tintColor()), blue) << "it is not a text field";
    UITextField::appearance()->setTintColor(color(0, 0, 1));
    later->removeFromSuperview();
    root->addSubview(later);
    EXPECT_EQ(rgba(later->tintColor()), (Rgba{0, 0, 1, 1}));
}

TEST_F(TextFields, ThePasteboardHoldsATextOrAnImage) {
    auto* board = UIPasteboard::generalPasteboard();
    EXPECT_EQ(board, UIPasteboard::generalPasteboard());
    EXPECT_EQ(board->string(), nullptr);
    board->setString(text("#FF0000"));
    EXPECT_EQ(utf8(board->string()), "#FF0000");
    UIImage* image = filled_image(color(1, 0, 0), 2, 2);
    board->setImage(image);
    EXPECT_EQ(board->string(), nullptr);
    EXPECT_EQ(board->image(), image);
    board->setString(nullptr);
    EXPECT_EQ(board->image(), nullptr);
}

}  // namespace
}  // namespace test
