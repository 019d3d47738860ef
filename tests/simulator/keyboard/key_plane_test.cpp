// Keys and key planes: what they draw, of whom they ask it, and which keyboards there are.
#include "platform/keyboard.h"
#include "platform/substrate.h"
#include "support/keyboard_request.h"
#include "support/phone.h"

namespace test {
namespace {

struct Pixel {
    int red, green, blue, alpha;
    friend bool operator==(const Pixel&, const Pixel&) = default;
    friend void PrintTo(const Pixel& p, std::ostream* out) {
        *out << "(" << p.red << ", " << p.green << ", " << p.blue << ", " << p.alpha << ")";
    }
};

constexpr Pixel nothing{0, 0, 0, 0}, white{255, 255, 255, 255}, blue{0, 122, 255, 255};

class KeyView : public testing::Test {
  protected:
    void SetUp() override { phone.boot(); }

    // The kinds of keys, as -[UIKBTree displayType] has them in the model.
    static constexpr int character = 0, control = 2, confirming = 4, indicator = 6;
    // -[UIKBTree state], of a key that is held down.
    static constexpr int pressed = 4;

    static UIKBTree* key(int kind, const char* label, CGRect frame = {{0, 0}, {30, 40}}) {
        auto made = UIKBTree::alloc()->initWithType(8);
        made->setName(text(label));
        made->setDisplayString(text(label));
        made->setDisplayType(kind);
        made->setFrame(frame);
        return std::move(made).autoreleased();
    }

    static UIView* view_of(UIKBTree* key) {
        CGRect frame = key->frame();
        frame.size.height += 1;
        auto plane = UIKBTree::alloc()->initWithType(2);
        return UIKBKeyView::alloc()->initWithFrame(frame, plane, key).autoreleased();
    }

    /// What the view draws at a point, over nothing, at one pixel per point.
    static Pixel drawn(UIView* view, size_t x, size_t y) {
        view->layoutIfNeeded();
        const CGSize size = view->bounds().size;
        UIGraphicsBeginImageContextWithOptions(size, false, 1);
        view->drawViewHierarchyInRect({{0, 0}, size}, true);
        CGContextRef context = UIGraphicsGetCurrentContext();
        const auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(context)) +
                            CGBitmapContextGetBytesPerRow(context) * y + x * 4;
        const Pixel pixel{bytes[2], bytes[1], bytes[0], bytes[3]};
        UIGraphicsEndImageContext();
        return pixel;
    }

    /// A key without text draws its cap alone.
    static UIView* cap(int kind, int state = 2) {
        UIKBTree* plain = key(kind, "x");
        plain->setState(state);
        plain->setDisplayString(nullptr);
        return view_of(plain);
    }

    template <class Function>
    static void replace(const char* class_name, const char* selector, Function function,
                        bool on_class = false) {
        Class target = objc_getClass(class_name);
        IMP previous = nullptr;
        MSHookMessageEx(on_class ? object_getClass(reinterpret_cast<id>(target)) : target,
                        sel_registerName(selector), reinterpret_cast<IMP>(+function), &previous);
        ASSERT_NE(previous, nullptr) << class_name << " " << selector;
    }

    Phone phone;
};

constexpr size_t middle_x = 15, middle_y = 20, below_cap = 40;

TEST_F(KeyView, ACharacterHasAWhiteCapWithALineBelow) {
    UIView* view = cap(character);
    EXPECT_EQ(drawn(view, middle_x, middle_y), white);
    EXPECT_EQ(drawn(view, middle_x, below_cap), (Pixel{0, 0, 0, 89})) << "35 percent of black";
    EXPECT_EQ(drawn(view, 0, 0), nothing) << "corners are round";
}

TEST_F(KeyView, AControlIsGreyWithADarkerWash) {
    EXPECT_EQ(drawn(cap(control), middle_x, middle_y), (Pixel{172, 178, 187, 255}));
    replace("UIKBRenderFactory", "controlKeyForegroundColorName",
            [](id, SEL) -> id { return text("UIKBColorClear"); });
    EXPECT_EQ(drawn(cap(control), middle_x, middle_y), (Pixel{180, 187, 196, 255}))
        << "the grey key's background";
}

TEST_F(KeyView, AConfirmingKeyIsBlue) { EXPECT_EQ(drawn(cap(confirming), middle_x, middle_y), blue); }

TEST_F(KeyView, APressedControlIsBlue) { EXPECT_EQ(drawn(cap(control, pressed), middle_x, middle_y), blue); }

TEST_F(KeyView, ACapIsFilledWithTheNameThatTheFactoryAnswers) {
    replace("UIKBRenderFactory", "defaultKeyBackgroundColorName",
            [](id, SEL) -> id { return text("UIKBColorBlack"); });
    EXPECT_EQ(drawn(cap(character), middle_x, middle_y), (Pixel{0, 0, 0, 255}));
}

TEST_F(KeyView, AControlIsWashedWithTheNameThatTheFactoryAnswers) {
    replace("UIKBRenderFactory", "controlKeyForegroundColorName",
            [](id, SEL) -> id { return text("UIKBColorBlack"); });
    EXPECT_EQ(drawn(cap(control), middle_x, middle_y), (Pixel{0, 0, 0, 255}));
}

TEST_F(KeyView, AClearCapWithAClearLineDrawsNothing) {
    auto clear = [](id, SEL) -> id { return text("UIKBColorClear"); };
    replace("UIKBRenderFactory", "defaultKeyBackgroundColorName", clear);
    replace("UIKBRenderFactory", "defaultKeyShadowColorName", clear);
    UIView* view = cap(character);
    EXPECT_EQ(drawn(view, middle_x, middle_y), nothing);
    EXPECT_EQ(drawn(view, middle_x, below_cap), nothing);
}

TEST_F(KeyView, AnEffectWithoutEdgesDrawsNoLine) {
    replace("UIKBEdgeEffect", "edges", [](id, SEL) -> NSUInteger { return 0; });
    EXPECT_EQ(drawn(cap(character), middle_x, below_cap), nothing);
}

TEST_F(KeyView, ACapIsFilledWithTheGradientThatTheClassAnswers) {
    replace(
        "UIKBGradient", "gradientWithFlatColor:",
        [](id, SEL, id) -> id {
            return UIKBGradient::alloc()
                ->initWithFlatColor(text("UIKBColorKeyBlueKeyBackground"))
                .autoreleased();
        },
        true);
    EXPECT_EQ(drawn(cap(character), middle_x, middle_y), blue);
}

class FilledKeyView : public KeyView {
  protected:
    /// A cap whose gradient is of another kind than the flat one that it asks for.
    template <class Function>
    static UIView* cap_filled(Function gradient) {
        replace("UIKBGradient", "gradientWithFlatColor:", gradient, true);
        return cap(character);
    }
    static constexpr size_t near_top = 2, near_bottom = 37;
};

TEST_F(FilledKeyView, AGradientsNameFillsFromTopToBottom) {
    UIView* view = cap_filled([](id, SEL, id) -> id {
        return UIKBGradient::gradientWithName(text("UIKBColorWildcatKeyActiveBlueGradient"));
    });
    const Pixel top = drawn(view, middle_x, near_top), bottom = drawn(view, middle_x, near_bottom);
    EXPECT_EQ(top.alpha, 255);
    EXPECT_EQ(bottom.alpha, 255);
    EXPECT_GT(top.red, 80);
    EXPECT_LT(bottom.red, 20);
    EXPECT_EQ(drawn(view, 0, 0), nothing) << "corners are round";
}

TEST_F(FilledKeyView, TwoColoursFillFromTopToBottom) {
    UIView* view = cap_filled([](id, SEL, id) -> id {
        return UIKBGradient::gradientWithStartColor(text("UIKBColorWhite"), text("UIKBColorBlack"));
    });
    EXPECT_GT(drawn(view, middle_x, near_top).red, 230);
    EXPECT_LT(drawn(view, middle_x, near_bottom).red, 25);
}

TEST_F(FilledKeyView, TheMiddleOneOfThreeColoursIsAtItsLocation) {
    UIView* view = cap_filled([](id, SEL, id) -> id {
        const id names[] = {text("UIKBColorWhite"), text("UIKBColorBlack"), text("UIKBColorWhite")};
        return UIKBGradient::gradientWith3Colors(NSArray::arrayWithObjects(names, 3), 0.25);
    });
    EXPECT_GT(drawn(view, middle_x, near_top).red, 180);
    EXPECT_LT(drawn(view, middle_x, 10).red, 20) << "a quarter down";
    EXPECT_GT(drawn(view, middle_x, near_bottom).red, 230);
}

TEST_F(FilledKeyView, ANameThatIsNoGradientsFillsNothing) {
    replace("UIKBRenderFactory", "defaultKeyShadowColorName",
            [](id, SEL) -> id { return text("UIKBColorClear"); });
    UIView* view =
        cap_filled([](id, SEL, id) -> id { return UIKBGradient::gradientWithName(text("UIKBColorBlack")); });
    EXPECT_EQ(drawn(view, middle_x, middle_y), nothing);
}

TEST_F(KeyView, TheTextIsInTheColourOfItsStyle) {
    replace("UIKBTextStyle", "textColor",
            [](id, SEL) -> id { return text("UIKBColorKeyBlueKeyBackground"); });
    UIView* view = view_of(key(character, "I"));
    EXPECT_EQ(drawn(view, middle_x, middle_y), blue) << "the letter's stem";
    EXPECT_EQ(view->subviews()->count(), 0u) << "it is in the key's picture";
}

// ---- Planes ----

class Keyplane : public KeyView {
  protected:
    static UIView* view_of_plane(std::vector<UIKBTree*> keys) {
        auto plane = UIKBTree::alloc()->initWithType(2);
        for (UIKBTree* key : keys) plane->subtrees()->addObject(key);
        return objc::send<"initWithFrame:keyplane:", objc::strong<UIView>>(
                   objc::send<"alloc", id>(class_named("UIKBKeyplaneView")), CGRect{{0, 0}, {200, 100}},
                   plane.get())
            .autoreleased();
    }
};

TEST_F(Keyplane, HasAViewForEachKeyWhereTheKeyIs) {
    UIView* plane =
        view_of_plane({key(character, "a", {{3, 8}, {30, 40}}), key(character, "b", {{39, 8}, {30, 40}})});
    ASSERT_EQ(plane->subviews()->count(), 2u);
    auto* second = static_cast<UIView*>(plane->subviews()->objectAtIndex(1));
    EXPECT_EQ(second->frame().origin, (CGPoint{39, 8}));
    EXPECT_EQ(second->frame().size.width, 30.0);
}

TEST_F(Keyplane, AMarkOnAKeyIsABlurredKeyView) {
    UIView* plane = view_of_plane({key(indicator, "EnabledLanguageIndicator")});
    ASSERT_EQ(plane->subviews()->count(), 1u);
    EXPECT_NE(as<UIKBBlurredKeyView>(plane->subviews()->objectAtIndex(0)), nullptr);
}

TEST_F(Keyplane, AMarkWithoutAViewIsLeftOut) {
    replace("UIKBBlurredKeyView", "initWithFrame:keyplane:key:", [](id self, SEL, CGRect, id, id) -> id {
        objc_release(self);
        return nullptr;
    });
    EXPECT_EQ(view_of_plane({key(indicator, "EnabledLanguageIndicator")})->subviews()->count(), 0u);
}

TEST_F(Keyplane, AKeysStateIsInTheTreeAndInItsPicture) {
    UIKBTree *first = key(control, "x"), *second = key(control, "x", {{36, 0}, {30, 40}});
    for (UIKBTree* each : {first, second}) each->setDisplayString(nullptr);
    UIView* plane = view_of_plane({first, second});
    auto view_for = [&](UIKBTree* key) { return objc::send<"viewForKey:", UIView*>(plane, key); };
    EXPECT_NE(drawn(view_for(second), middle_x, middle_y), blue);
    objc::send<"setState:forKey:">(plane, pressed, second);
    EXPECT_EQ(second->state(), pressed);
    EXPECT_NE(first->state(), pressed);
    EXPECT_EQ(drawn(view_for(second), middle_x, middle_y), blue);
    EXPECT_NE(drawn(view_for(first), middle_x, middle_y), blue);
}

TEST_F(Keyplane, EachVisualStyleHasAFactoryOfItsOwn) {
    const char* of_style[] = {"UIKBRenderFactoryiPhone", "UIKBRenderFactory_Emoji",
                              "UIKBRenderFactoryNumberPad", "UIKBRenderFactory_Candidates"};
    for (int style = 0; style < 4; ++style) {
        auto plane = UIKBTree::alloc()->initWithType(2);
        plane->setVisualStyle(style);
        auto view = UIKBKeyView::alloc()->initWithFrame({}, plane, key(character, "g"));
        EXPECT_STREQ(object_getClassName(view->factory()), of_style[style]);
        EXPECT_TRUE(view->factory()->renderConfig()->lightKeyboard());
    }
}

// ---- Requests ----

class ShownKeyboard : public KeyView {
  protected:
    static sim_status show(const char* plane, const char* pressed = nullptr,
                           const char* return_key = nullptr) {
        return requested({.plane = plane, .pressed_key = pressed, .return_key = return_key});
    }
};

TEST_F(ShownKeyboard, APlaneThatDoesNotExistIsNamedWithThoseThatDo) {
    EXPECT_EQ(show("runes"), SIM_NOT_FOUND);
    EXPECT_STREQ(
        sim_last_error(),
        "sim_show_keyboard: no key plane is called \"runes\"; there are letters, shifted, numbers, symbols, "
        "emoji");
}

TEST_F(ShownKeyboard, AReturnKeyThatDoesNotExistIsNamedWithThoseThatDo) {
    EXPECT_EQ(show(nullptr, nullptr, "stop"), SIM_NOT_FOUND);
    EXPECT_STREQ(sim_last_error(),
                 "sim_show_keyboard: no return key is called \"stop\"; there are return, go");
}

TEST_F(ShownKeyboard, AKeyThatIsOnAnotherPlaneIsRefused) {
    EXPECT_EQ(show("numbers", "q"), SIM_NOT_FOUND);
    EXPECT_NE(std::string(sim_last_error()).find("no key of this plane is called \"q\""), std::string::npos)
        << sim_last_error();
}

TEST_F(ShownKeyboard, KeysGoByTextByNameAndByTheStartOfTheirName) {
    for (const char* name :
         {"g", "Latin-Small-Letter-G", "return", "shift", "Shift-Key", "DELETE", "space", "more"})
        EXPECT_EQ(show("letters", name), SIM_OK) << name << ": " << sim_last_error();
}

TEST_F(ShownKeyboard, AMarkCannotBePressed) {
    EXPECT_EQ(show("letters", "EN"), SIM_NOT_FOUND);
    EXPECT_EQ(show("letters", "EnabledLanguageIndicator"), SIM_NOT_FOUND);
}

TEST_F(ShownKeyboard, ARefusedRequestLeavesTheScreenAsItWas) {
    const auto picture = phone.host("/picture.png");
    EXPECT_NE(sim_take_picture(picture.c_str(), 1), SIM_OK) << "nothing is shown";
    EXPECT_EQ(show("runes"), SIM_NOT_FOUND);
    EXPECT_NE(sim_take_picture(picture.c_str(), 1), SIM_OK) << "still nothing";
    ASSERT_EQ(show("letters"), SIM_OK) << sim_last_error();
    ASSERT_EQ(sim_take_picture(picture.c_str(), 1), SIM_OK) << sim_last_error();
    const std::string before = phone.read("/picture.png");
    EXPECT_EQ(show("runes"), SIM_NOT_FOUND);
    ASSERT_EQ(sim_take_picture(picture.c_str(), 1), SIM_OK) << sim_last_error();
    EXPECT_EQ(phone.read("/picture.png"), before);
}

TEST_F(ShownKeyboard, APictureThatCannotBeWrittenNamesItsFile) {
    ASSERT_EQ(show("letters"), SIM_OK) << sim_last_error();
    EXPECT_EQ(sim_take_picture("/nowhere/picture.png", 1), SIM_BAD_FILE);
    EXPECT_NE(std::string(sim_last_error()).find("/nowhere/picture.png"), std::string::npos)
        << sim_last_error();
}

}  // namespace
}  // namespace test
