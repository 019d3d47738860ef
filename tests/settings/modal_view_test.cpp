// HCModalView: what the card is made of, and what its buttons do.
#include "settings/modal_view.h"

namespace test {
namespace {

using objc::strong;

TEST_F(ModalView, KeepsTheOptionsThatItIsBuiltFrom) {
    id built_from = options(nullptr, true);
    EXPECT_EQ(part<"modalOptions">(panel_of(built_from)), built_from);
}

TEST_F(ModalView, IsAShadowBelowACardThatHoldsFourParts) {
    UIView* made = panel(true);
    EXPECT_STREQ(class_getName(class_getSuperclass(object_getClass(made))), "UIView");
    EXPECT_EQ(made->frame(), (CGRect{{0, 0}, {375, 667}}));
    EXPECT_EQ(rgba(made->backgroundColor()).alpha, 0);
    EXPECT_EQ(subviews_of(made), (std::vector<id>{part<"shadowView">(made), part<"panelView">(made)}));
    EXPECT_EQ(subviews_of(part<"panelView">(made)),
              (std::vector<id>{part<"contentView">(made), close_button(made), select_button(made),
                               part<"extraTopView">(made)}));
    EXPECT_EQ(subviews_of(part<"extraTopView">(made)), (std::vector<id>{part<"topView">(made)}));
}

TEST_F(ModalView, ShadowAndCardGoBehindWhatIsThereAlready) {
    UIView* made = panel(true);
    auto before = objc::adopt(UIView::alloc()->initWithFrame({}).leak());
    part<"shadowView">(made)->removeFromSuperview();
    part<"panelView">(made)->removeFromSuperview();
    made->addSubview(before);
    made->send<"addSubviewsInOrder">();
    EXPECT_EQ(subviews_of(made),
              (std::vector<id>{part<"shadowView">(made), part<"panelView">(made), before.get()}));
}

TEST_F(ModalView, TheShadowIsCastByATransparentViewWhereTheCardIs) {
    auto* shadow = part<"shadowView">(panel(true));
    EXPECT_EQ(shadow->frame(), (CGRect{{5, 111}, {365, 445}}));
    EXPECT_EQ(rgba(shadow->backgroundColor()).alpha, 0);
    EXPECT_FALSE(shadow->clipsToBounds());
    EXPECT_FALSE(shadow->layer()->masksToBounds());
    EXPECT_EQ(shadow->layer()->shadowOffset(), (CGSize{0, 0}));
    EXPECT_EQ(shadow->layer()->shadowRadius(), 10);
    EXPECT_EQ(shadow->layer()->shadowOpacity(), 0.4f);
    EXPECT_EQ(shadow->autoresizingMask(), 18u);
}

/// Whether a filled path covers the point.
bool covers(CGPathRef path, CGPoint point) {
    UIGraphicsBeginImageContextWithOptions({1, 1}, false, 1.0);
    CGContextTranslateCTM(UIGraphicsGetCurrentContext(), -point.x, -point.y);
    color(1, 0, 0)->setFill();
    UIBezierPath::bezierPathWithCGPath(path)->fill();
    const bool covered =
        static_cast<const uint8_t*>(CGBitmapContextGetData(UIGraphicsGetCurrentContext()))[3] > 127;
    UIGraphicsEndImageContext();
    return covered;
}

TEST_F(ModalView, TheShadowIsCutToTheRoundedOutlineThoughItsViewDoesNotClip) {
    CGPathRef outline = part<"shadowView">(panel(true))->layer()->shadowPath();
    ASSERT_NE(outline, nullptr);
    EXPECT_EQ(CGPathGetBoundingBox(outline), (CGRect{{0, 0}, {365, 445}}));
    EXPECT_FALSE(covers(outline, {2, 2}));
    EXPECT_FALSE(covers(outline, {9, 9})) << "a corner of 40 points leaves 11.7 along the diagonal";
    EXPECT_TRUE(covers(outline, {15, 15}));
    EXPECT_FALSE(covers(outline, {362, 442}));
    EXPECT_TRUE(covers(outline, {182, 2}));
}

TEST_F(ModalView, TheCardIsRoundedAndClips) {
    auto* card = part<"panelView">(panel(true));
    EXPECT_EQ(card->frame(), (CGRect{{5, 111}, {365, 445}}));
    EXPECT_TRUE(card->clipsToBounds());
    EXPECT_TRUE(card->layer()->masksToBounds());
    EXPECT_EQ(card->layer()->cornerRadius(), 40);
    EXPECT_EQ(card->autoresizingMask(), 18u);
}

TEST_F(ModalView, TheContentAreaIsRoundedLikeTheCardAndHasABorder) {
    auto* content = part<"contentView">(panel(true));
    EXPECT_TRUE(content->layer()->masksToBounds());
    EXPECT_EQ(content->layer()->cornerRadius(), 40);
    EXPECT_EQ(content->layer()->borderWidth(), 1.5);
}

TEST_F(ModalView, TheButtonsAreCustomAndRound) {
    UIView* made = panel(true);
    for (UIButton* button : {close_button(made), select_button(made)}) {
        EXPECT_EQ(button->buttonType(), 0);
        EXPECT_TRUE(button->layer()->masksToBounds());
    }
    EXPECT_EQ(close_button(made)->layer()->cornerRadius(), 20);
    EXPECT_EQ(select_button(made)->layer()->cornerRadius(), 20.5);
    EXPECT_EQ(utf8(close_button(made)->titleForState(0)), "X");
    EXPECT_EQ(utf8(select_button(made)->titleForState(0)), "SELECT");
}

TEST_F(ModalView, TitlesAreInTheBoldFaceOfTheButtonsFont) {
    UIView* made = panel(true);
    EXPECT_EQ(utf8(close_button(made)->titleLabel()->font()->fontName()), ".SFUIText-Bold");
    EXPECT_EQ(close_button(made)->titleLabel()->font()->pointSize(), 20);
    EXPECT_EQ(utf8(select_button(made)->titleLabel()->font()->fontName()), ".SFUIText-Bold");
    EXPECT_EQ(select_button(made)->titleLabel()->font()->pointSize(), 14);
}

TEST_F(ModalView, WithoutABoldFaceTitlesKeepTheirDefaultFont) {
    static std::string asked_for;
    MSHookMessageEx(object_getClass(class_named("UIFont")), sel_registerName("fontWithName:size:"),
                    reinterpret_cast<IMP>(+[](id, SEL, id name, CGFloat) -> id {
                        asked_for = utf8(name);
                        return nullptr;
                    }),
                    nullptr);
    UIView* made = panel(true);
    EXPECT_EQ(asked_for, ".SFUIText-Bold");
    EXPECT_EQ(utf8(close_button(made)->titleLabel()->font()->fontName()), ".SFUIText");
    EXPECT_EQ(utf8(select_button(made)->titleLabel()->font()->fontName()), ".SFUIText");
    const CGFloat size = static_cast<UILabel*>(test::made("UILabel"))->font()->pointSize();
    EXPECT_EQ(close_button(made)->titleLabel()->font()->pointSize(), size);
    EXPECT_EQ(select_button(made)->titleLabel()->font()->pointSize(), size);
}

TEST_F(ModalView, WithoutATitleTheConfirmButtonHasNone) {
    UIView* made = panel_of(options(nullptr, true, {{5, 111}, {365, 445}}, nullptr));
    EXPECT_EQ(select_button(made)->titleForState(0), nullptr);
    show(made);
    expect_sound_layout();
}

TEST_F(ModalView, TheStripIsRoundedAndClear) {
    UIView* made = panel(true);
    for (UIView* view : {part<"extraTopView">(made), part<"topView">(made)}) {
        EXPECT_TRUE(view->layer()->masksToBounds());
        EXPECT_EQ(view->layer()->cornerRadius(), 20);
    }
    EXPECT_TRUE(part<"extraTopView">(made)->clipsToBounds());
    EXPECT_EQ(rgba(part<"extraTopView">(made)->backgroundColor()).alpha, 0);
    EXPECT_EQ(part<"topView">(made)->autoresizingMask(), 18u);
}

// ---- Layout

TEST_F(ModalView, IsLaidOutByTheseConstraints) {
    UIView* made = panel(true);
    const Names names{{part<"panelView">(made), "card"},
                      {part<"contentView">(made), "content"},
                      {close_button(made), "close"},
                      {select_button(made), "select"},
                      {part<"extraTopView">(made), "strip"}};
    EXPECT_EQ(constraints_in(made, names),
              (std::vector<std::string>{
                  "close.bottom = content.top - 15", "close.height = 40", "close.left = card.left + 15",
                  "close.width = 40", "content.centerY = card.centerY", "content.height = 300",
                  "content.left = card.left + 15", "content.width = 335", "select.centerX = card.centerX",
                  "select.height = 40", "select.top = content.bottom + 15", "select.width = 70",
                  "strip.bottom = content.top - 15", "strip.height = 40", "strip.left = card.left + 70",
                  "strip.right = card.right - 15"}));
    for (UIView* view : {part<"contentView">(made), static_cast<UIView*>(close_button(made)),
                         static_cast<UIView*>(select_button(made)), part<"extraTopView">(made)})
        EXPECT_FALSE(view->translatesAutoresizingMaskIntoConstraints());
    for (UIView* view : {part<"panelView">(made), part<"shadowView">(made), part<"topView">(made)})
        EXPECT_TRUE(view->translatesAutoresizingMaskIntoConstraints());
}

TEST_F(ModalView, EachPartIsInItsPlace) {
    UIView* made = panel(true);
    show(made);
    EXPECT_EQ(part<"contentView">(made)->frame(), (CGRect{{15, 72.5}, {335, 300}}));
    EXPECT_EQ(close_button(made)->frame(), (CGRect{{15, 17.5}, {40, 40}}));
    EXPECT_EQ(select_button(made)->frame(), (CGRect{{147.5, 387.5}, {70, 40}}));
    EXPECT_EQ(part<"extraTopView">(made)->frame(), (CGRect{{70, 17.5}, {280, 40}}));
    EXPECT_EQ(part<"topView">(made)->frame(), (CGRect{{0, 0}, {280, 40}})) << "it fills the strip";
    expect_sound_layout();
}

TEST_F(ModalView, ACardOf330PointsHasAContentAreaOf300By300) {
    UIView* made = panel_of(options(nullptr, true, {{20, 100}, {330, 445}}));
    show(made);
    EXPECT_EQ(part<"contentView">(made)->bounds().size, (CGSize{300, 300}));
}

TEST_F(ModalView, AtAnyCardWidthTheConfirmButtonIsCentredAndTheStripFits) {
    for (double width : {200.0, 310.0, 330.0, 365.0, 404.0}) {
        UIView* made = panel_of(options(nullptr, true, {{0, 50}, {width, 445}}));
        made->layoutIfNeeded();
        const CGRect select = select_button(made)->frame(), strip = part<"extraTopView">(made)->frame();
        EXPECT_EQ(select.origin.x + select.size.width / 2, width / 2);
        EXPECT_EQ(strip.origin.x, 70);
        EXPECT_EQ(strip.origin.x + strip.size.width, width - 15);
        EXPECT_EQ(part<"topView">(made)->bounds().size, strip.size);
        EXPECT_EQ(part<"contentView">(made)->bounds().size.width, width - 30);
    }
    expect_sound_layout();
}

TEST_F(ModalView, ACardThatIsTooLowIsBuiltAllTheSame) {
    UIView* made = panel_of(options(nullptr, true, {{5, 111}, {365, 100}}));
    show(made);
    EXPECT_EQ(part<"contentView">(made)->frame(), (CGRect{{15, -100}, {335, 300}}));
    expect_sound_layout();
}

TEST_F(ModalView, CardAndShadowGrowWithTheView) {
    UIView* made = panel(true);
    made->setFrame({{0, 0}, {475, 867}});
    made->layoutIfNeeded();
    EXPECT_EQ(part<"panelView">(made)->frame(), (CGRect{{5, 111}, {465, 645}}));
    EXPECT_EQ(part<"shadowView">(made)->frame(), (CGRect{{5, 111}, {465, 645}}));
    EXPECT_EQ(part<"contentView">(made)->frame(), (CGRect{{15, 172.5}, {335, 300}})) << "as wide as before";
    EXPECT_EQ(part<"extraTopView">(made)->frame().size.width, 380);
}

// ---- Buttons

TEST_F(ModalView, TheButtonsTellTheDelegateWhenTheyAreReleasedInside) {
    id delegate = noting_delegate();
    UIView* made = panel(true, delegate);
    show(made);
    tap(close_button(made));
    EXPECT_EQ(heard, (Selectors{"closeButtonPressed"}));
    heard.clear();
    tap(select_button(made));
    EXPECT_EQ(heard, (Selectors{"selectButtonPressed"}));
}

TEST_F(ModalView, AButtonReleasedOutsideTellsNothing) {
    id delegate = noting_delegate();
    UIView* made = panel(true, delegate);
    show(made);
    for (UIButton* button : {close_button(made), select_button(made)}) {
        const auto [x, y] = middle_of(button);
        touch(SIM_TOUCH_BEGAN, x, y);
        touch(SIM_TOUCH_MOVED, 300, 350);
        touch(SIM_TOUCH_ENDED, 300, 350);
    }
    EXPECT_EQ(heard, Selectors{});
}

TEST_F(ModalView, AButtonTellsNothingBeforeItIsReleased) {
    id delegate = noting_delegate();
    UIView* made = panel(true, delegate);
    show(made);
    for (UIButton* button : {close_button(made), select_button(made)}) {
        const auto [x, y] = middle_of(button);
        touch(SIM_TOUCH_BEGAN, x, y);
        EXPECT_EQ(heard, Selectors{});
        touch(SIM_TOUCH_CANCELLED, x, y);
        EXPECT_EQ(heard, Selectors{});
    }
}

TEST_F(ModalView, ADelegateSetAfterwardsIsNotUsed) {
    id first = noting_delegate(), second = made("NSObject");
    id built_from = options(first, true);
    UIView* made = panel_of(built_from);
    objc::send<"setDelegate:">(built_from, second);
    show(made);
    tap(close_button(made));
    EXPECT_EQ(heard, (Selectors{"closeButtonPressed"}));
}

TEST_F(ModalView, ADelegateThatIsGoneMakesTheButtonsDoNothing) {
    UIView* made = nullptr;
    {
        objc::AutoreleasePool pool;
        made = static_cast<UIView*>(objc_retain(panel(true, noting_delegate())));
    }
    show(made);
    objc_release(made);
    tap(close_button(made));
    tap(select_button(made));
    EXPECT_EQ(heard, Selectors{});
}

TEST_F(ModalView, WithoutADelegateTheButtonsDoNothing) {
    UIView* made = panel(true, nullptr);
    show(made);
    tap(close_button(made));
    tap(select_button(made));
    EXPECT_EQ(heard, Selectors{});
}

TEST_F(ModalView, ADelegateWithoutTheMethodRaises) {
    id delegate = made("NSObject");
    UIView* made = panel(true, delegate);
    show(made);
    const auto [x, y] = middle_of(close_button(made));
    EXPECT_EQ(sim_tap(x, y), SIM_RAISED);
    EXPECT_NE(std::string(sim_last_error()).find("NSInvalidArgumentException"), std::string::npos)
        << sim_last_error();
}

TEST_F(ModalView, TheDelegatesProtocolExists) { EXPECT_NE(objc_getProtocol("HCModalDelegate"), nullptr); }

// ---- Building

TEST_F(ModalView, IsBuiltInFourStepsByMessage) {
    observe<"setupViews">("HCModalView");
    observe<"addSubviewsInOrder">("HCModalView");
    observe<"setupConstraints">("HCModalView");
    observe<"applyColor">("HCModalView");
    panel(true);
    EXPECT_EQ(heard, (Selectors{"setupViews", "addSubviewsInOrder", "setupConstraints", "applyColor"}));
}

TEST_F(ModalView, ASubclassMayReplaceAStep) {
    class_with("OwnPanel", "HCModalView", {own_method("applyColor", note_selector, "v@:")});
    id own =
        made<"initWithFrame:modalOptions:">("OwnPanel", CGRect{{0, 0}, {375, 667}}, options(nullptr, true));
    EXPECT_EQ(heard, (Selectors{"applyColor"}));
    EXPECT_EQ(close_button(own)->backgroundColor(), nullptr) << "nothing is painted";
}

TEST_F(ModalView, WithoutAViewThereIsNoPanel) {
    MSHookMessageEx(objc_getClass("UIView"), sel_registerName("initWithFrame:"),
                    reinterpret_cast<IMP>(+[](id self, SEL, CGRect) -> id {
                        objc_release(self);
                        return nullptr;
                    }),
                    nullptr);
    EXPECT_EQ(panel(true), nullptr);
}

TEST_F(ModalView, GoesWithItsLastOwner) {
    objc::weak<UIView> gone;
    {
        objc::AutoreleasePool pool;
        gone = panel(true);
        EXPECT_NE(gone.get(), nullptr);
    }
    EXPECT_EQ(gone.get(), nullptr);
}

TEST_F(ModalView, EveryPropertyCanBeSet) {
    UIView* made = panel(true);
    for (const char* name :
         {"modalOptions", "contentView", "topView", "primaryColor", "secondaryColor", "primaryTextColor",
          "secondaryTextColor", "shadowView", "panelView", "closeButton", "selectButton", "extraTopView"}) {
        id value = test::made("NSObject");
        made->send<"setValue:forKey:">(value, text(name));
        EXPECT_EQ(variable<NSObject*>(made, (std::string("_") + name).c_str()), value) << name;
        EXPECT_EQ((made->send<"valueForKey:", id>(text(name))), value) << name;
    }
    objc::send<"setIsEclipseEnabled:">(made, true);
    EXPECT_TRUE((objc::send<"isEclipseEnabled", bool>(made)));
}

}  // namespace
}  // namespace test
