// HCColorPickerController: what it is built of.
#include "settings/color_picker.h"

namespace test {
namespace {

class BuiltPicker : public ColorPicker {
  protected:
    void SetUp() override {
        ColorPicker::SetUp();
        picker->view();
    }
};

constexpr double single_1_4 = static_cast<double>(1.4f);

TEST_F(ColorPicker, IsAViewControllerThatIsLightAtFirst) {
    EXPECT_STREQ(class_getName(class_getSuperclass(object_getClass(picker))), "UIViewController");
    EXPECT_TRUE((picker->send<"lightUI", bool>()));
    EXPECT_FALSE(picker->isViewLoaded());
    EXPECT_EQ((picker->send<"delegate", id>()), nullptr);
}

TEST_F(ColorPicker, ConformsToItsProtocols) {
    for (const char* name : {"HCModalDelegate", "UICollectionViewDataSource", "UICollectionViewDelegate",
                             "UICollectionViewDelegateFlowLayout", "UITextFieldDelegate"}) {
        ASSERT_NE(objc_getProtocol(name), nullptr) << name;
        EXPECT_TRUE(
            class_conformsToProtocol(objc_getClass("HCColorPickerController"), objc_getProtocol(name)))
            << name;
    }
}

TEST_F(ColorPicker, ItsDelegatesProtocolExistsForOthers) {
    ASSERT_NE(objc_getProtocol("HCColorPickerDelegate"), nullptr);
    EXPECT_FALSE(class_conformsToProtocol(objc_getClass("HCColorPickerController"),
                                          objc_getProtocol("HCColorPickerDelegate")));
}

TEST_F(ColorPicker, IsBuiltInStepsByMessage) {
    observe<"configColorPicker">("HCColorPickerController");
    observe<"setupContentView">("HCColorPickerController");
    observe<"setupContentSubviews">("HCColorPickerController");
    observe<"addViewsInOrder">("HCColorPickerController");
    observe<"setupConstraints">("HCColorPickerController");
    observe<"applyColor">("HCColorPickerController");
    observe<"updateToColor:", void, id>("HCColorPickerController");
    observe<"grabRecentColorData">("HCColorPickerController");
    picker->view();
    EXPECT_EQ(heard,
              (Selectors{"configColorPicker", "setupContentView", "setupContentSubviews", "addViewsInOrder",
                         "setupConstraints", "applyColor", "updateToColor:", "grabRecentColorData"}));
}

TEST_F(ColorPicker, AMemoryWarningGoesToTheSuperclassAlone) {
    picker->view();
    observe<"didReceiveMemoryWarning">("UIViewController");
    picker->didReceiveMemoryWarning();
    EXPECT_EQ(heard, (Selectors{"didReceiveMemoryWarning"}));
    EXPECT_NE(panel(), nullptr);
}

TEST_F(ColorPicker, EveryPropertyCanBeSet) {
    picker->view();
    for (const char* name :
         {"modal", "scrollView", "scrollViewStack", "previewColor", "hexTextField", "canEditMessage",
          "canEditMessageBorder", "duplicatePasteView", "duplicateButton", "pasteButton", "redSlider",
          "greenSlider", "blueSlider", "alphaSlider", "duplicateButtonImage", "pasteButtonImage",
          "recentCollectionView", "recentColorDictionary", "recentColors"}) {
        id value = made("NSObject");
        picker->send<"setValue:forKey:">(value, text(name));
        EXPECT_EQ(variable<NSObject*>(picker, (std::string("_") + name).c_str()), value) << name;
        EXPECT_EQ((picker->send<"valueForKey:", id>(text(name))), value) << name;
    }
    picker->send<"setMainRect:">(CGRect{{1, 2}, {3, 4}});
    EXPECT_EQ((picker->send<"mainRect", CGRect>()), (CGRect{{1, 2}, {3, 4}}));
    picker->send<"setMainCornerRadius:">(5.0);
    EXPECT_EQ((picker->send<"mainCornerRadius", double>()), 5);
    picker->send<"setLightUI:">(false);
    EXPECT_FALSE((picker->send<"lightUI", bool>()));
}

TEST_F(BuiltPicker, TurnsTheStatusBarUpright) {
    UIApplication::sharedApplication()->setStatusBarOrientation(3);
    picker->send<"configColorPicker">();
    EXPECT_EQ(UIApplication::sharedApplication()->statusBarOrientation(), 1);
    EXPECT_EQ(rgba(picker->view()->backgroundColor()).alpha, 0);
}

TEST_F(BuiltPicker, ThePanelIsInTheMiddleOfTheView) {
    EXPECT_EQ((picker->send<"mainRect", CGRect>()), (CGRect{{5, 111}, {365, 445}}));
    EXPECT_EQ((picker->send<"mainCornerRadius", double>()), 40);
    EXPECT_STREQ(object_getClassName(panel()), "HCModalView");
    EXPECT_EQ(panel()->frame(), (CGRect{{0, 0}, {375, 667}}));
    id options = panel_part<"modalOptions">();
    EXPECT_EQ((objc::send<"modalFrame", CGRect>(options)), (CGRect{{5, 111}, {365, 445}}));
    EXPECT_EQ((objc::send<"cornerRadius", double>(options)), 40);
    EXPECT_EQ((objc::send<"delegate", id>(options)), picker);
    EXPECT_TRUE((objc::send<"lightUI", bool>(options)));
    EXPECT_EQ(utf8(objc::send<"selectButtonTitle", id>(options)), "SELECT");
}

TEST_F(BuiltPicker, ThePanelFollowsTheViewsFrame) {
    picker->view()->setFrame({{10, 20}, {300, 600}});
    picker->send<"configColorPicker">();
    EXPECT_EQ((picker->send<"mainRect", CGRect>()), (CGRect{{5, 97.5}, {290, 445}}));
    picker->send<"setMainCornerRadius:">(12.5);
    picker->send<"setLightUI:">(false);
    picker->send<"setupContentView">();
    EXPECT_EQ(panel()->frame(), (CGRect{{10, 20}, {300, 600}}));
    EXPECT_EQ(panel_part<"panelView">()->layer()->cornerRadius(), 12.5);
    EXPECT_FALSE((objc::send<"lightUI", bool>(panel_part<"modalOptions">())));
}

TEST_F(BuiltPicker, ViewsAreInOrder) {
    UIView* behind = UIView::alloc()->initWithFrame({}).leak();
    picker->view()->addSubview(behind);
    objc_release(behind);
    EXPECT_EQ(subviews_of(picker->view()), (std::vector<id>{panel(), behind}));
    picker->send<"addViewsInOrder">();
    EXPECT_EQ(subviews_of(picker->view())[0], panel()) << "the panel goes to the back";
    EXPECT_EQ(subviews_of(panel_part<"topView">()), (std::vector<id>{part<"recentCollectionView">()}));
    EXPECT_EQ(subviews_of(panel_part<"contentView">()), (std::vector<id>{part<"scrollView">()}));
    EXPECT_EQ(part<"scrollViewStack">()->superview(), part<"scrollView">());
    EXPECT_EQ(elements(part<"scrollViewStack", UIStackView>()->arrangedSubviews()),
              (std::vector<id>{part<"previewColor">(), field(), part<"redSlider">(), part<"greenSlider">(),
                               part<"blueSlider">(), part<"alphaSlider">()}));
}

TEST_F(BuiltPicker, TheStripOfRecentColours) {
    auto* strip = part<"recentCollectionView", UICollectionView>();
    auto* layout = static_cast<UICollectionViewFlowLayout*>(strip->collectionViewLayout());
    EXPECT_STREQ(object_getClassName(layout), "UICollectionViewFlowLayout");
    EXPECT_EQ(layout->minimumInteritemSpacing(), 2.5);
    EXPECT_TRUE(strip->layer()->masksToBounds());
    EXPECT_EQ(strip->layer()->cornerRadius(), 20);
    EXPECT_EQ(strip->layer()->borderWidth(), single_1_4);
    EXPECT_FALSE(strip->isScrollEnabled());
    EXPECT_EQ(strip->autoresizingMask(), 18u);
    EXPECT_EQ(strip->dataSource(), picker);
    EXPECT_EQ(strip->delegate(), picker);
    EXPECT_EQ(rgba(strip->backgroundColor()).alpha, 0);
    EXPECT_EQ(rgba(panel_part<"topView">()->backgroundColor()).alpha, 0);
}

TEST_F(BuiltPicker, TheScrollingColumn) {
    auto* scroll = part<"scrollView", UIScrollView>();
    EXPECT_TRUE(scroll->layer()->masksToBounds());
    EXPECT_EQ(scroll->layer()->cornerRadius(), 40);
    EXPECT_EQ(scroll->layer()->borderWidth(), 1.4);
    EXPECT_EQ(scroll->autoresizingMask(), 18u);
    auto* stack = part<"scrollViewStack", UIStackView>();
    EXPECT_EQ(stack->axis(), 1);
    EXPECT_EQ(stack->distribution(), 3);
    EXPECT_EQ(stack->alignment(), 3);
    EXPECT_EQ(stack->spacing(), 15);
    EXPECT_EQ(stack->layoutMargins(), (UIEdgeInsets{25, 0, 0, 0}));
    EXPECT_TRUE(stack->isLayoutMarginsRelativeArrangement());
}

TEST_F(BuiltPicker, ThePreviewIsAPill) {
    auto* preview = part<"previewColor">();
    EXPECT_STREQ(object_getClassName(preview), "UIImageView");
    EXPECT_TRUE(preview->clipsToBounds());
    EXPECT_TRUE(preview->layer()->masksToBounds());
    EXPECT_EQ(preview->layer()->cornerRadius(), 27.5);
    EXPECT_EQ(preview->layer()->borderWidth(), 1);
}

TEST_F(BuiltPicker, TheHexField) {
    EXPECT_EQ(field()->delegate(), picker);
    EXPECT_EQ(field()->returnKeyType(), 9);
    EXPECT_EQ(field()->layer()->cornerRadius(), 14);
    EXPECT_EQ(field()->textAlignment(), 1);
    EXPECT_EQ(field()->autocapitalizationType(), 3);
    EXPECT_TRUE(field()->clipsToBounds());
    EXPECT_TRUE(field()->layer()->masksToBounds());
    EXPECT_EQ(field()->leftView(), part<"canEditMessage">());
    EXPECT_EQ(field()->leftViewMode(), 3);
    EXPECT_EQ(field()->rightView(), part<"duplicatePasteView">());
    EXPECT_EQ(field()->rightViewMode(), 3);
}

TEST_F(BuiltPicker, TheFieldSaysRedUntilTheFirstColour) {
    picker->send<"setupContentSubviews">();
    EXPECT_EQ(hex_text(), "#FF0000");
    EXPECT_NEAR(current().red, 0x59 / 255.0, 1e-6);
    EXPECT_NEAR(current().green, 0x54 / 255.0, 1e-6);
    EXPECT_NEAR(current().blue, 0x57 / 255.0, 1e-6);
    EXPECT_EQ(current().alpha, 1);
}

TEST_F(BuiltPicker, TheHintWrapsAndHasALineAtItsRight) {
    auto* hint = part<"canEditMessage", UILabel>();
    EXPECT_EQ(hint->frame().size, (CGSize{50, 40}));
    EXPECT_EQ(utf8(hint->text()), "Tap to Edit");
    EXPECT_EQ(utf8(hint->font()->fontName()), ".SFUIText");
    EXPECT_EQ(hint->font()->pointSize(), 10);
    EXPECT_EQ(hint->textAlignment(), 1);
    EXPECT_EQ(hint->lineBreakMode(), 0);
    EXPECT_EQ(hint->numberOfLines(), 0);
    EXPECT_TRUE(hint->clipsToBounds());
    EXPECT_TRUE(hint->layer()->masksToBounds());
    auto* line = part<"canEditMessageBorder", CALayer>();
    EXPECT_EQ(line->borderWidth(), 1);
    EXPECT_EQ(line->frame(), (CGRect{{-1, -1}, {50, 42}}));
    EXPECT_EQ(line->superlayer(), hint->layer());
}

TEST_F(BuiltPicker, TheClipboardButtons) {
    auto* holder = part<"duplicatePasteView">();
    EXPECT_EQ(holder->bounds().size, (CGSize{60, 40}));
    EXPECT_TRUE(holder->clipsToBounds());
    EXPECT_TRUE(holder->layer()->masksToBounds());
    auto *copy = part<"duplicateButton", UIButton>(), *paste = part<"pasteButton", UIButton>();
    EXPECT_EQ(subviews_of(holder), (std::vector<id>{copy, paste}));
    EXPECT_EQ(copy->frame(), (CGRect{{0, 0}, {30, 40}}));
    EXPECT_EQ(paste->frame(), (CGRect{{30, 0}, {30, 40}}));
    for (UIButton* button : {copy, paste}) {
        EXPECT_EQ(button->buttonType(), 1);
        EXPECT_EQ(button->imageView()->contentMode(), 1);
        EXPECT_TRUE(button->adjustsImageWhenHighlighted());
        EXPECT_EQ(button->allControlEvents(), 64u);
    }
}

TEST_F(BuiltPicker, AChannelPerSlider) {
    NSUInteger type = 1;
    for (id slider : sliders()) {
        EXPECT_STREQ(object_getClassName(slider), "HCColorSlider");
        EXPECT_EQ((objc::send<"type", NSUInteger>(slider)), type++);
        EXPECT_EQ(static_cast<UIView*>(slider)->frame().size, (CGSize{305, 20}));
        EXPECT_EQ(elements(knob_of(slider)->actionsForTarget(picker, UIControlEventValueChanged)).size(), 1u);
    }
}

TEST_F(BuiltPicker, IsLaidOutByTheseConstraints) {
    picker->send<"setupContentSubviews">();  // whose parts have no constraints yet
    picker->send<"addViewsInOrder">();
    UIView *recent = part<"recentCollectionView">(), *stack = part<"scrollViewStack">();
    picker->send<"setupConstraints">();
    const Names names{{panel_part<"topView">(), "top"},    {recent, "recent"},
                      {part<"scrollView">(), "scroll"},    {stack, "stack"},
                      {part<"previewColor">(), "preview"}, {field(), "field"},
                      {part<"redSlider">(), "red"},        {part<"greenSlider">(), "green"},
                      {part<"blueSlider">(), "blue"},      {part<"alphaSlider">(), "alpha"}};
    auto lines = constraints_in(picker->view(), names);
    std::erase_if(lines, [](const std::string& line) {  // the panel's, and those that the stack makes itself
        return line.find('?') != std::string::npos || line.find("= stack.") != std::string::npos ||
               line.find("(not a plain equation)") != std::string::npos;
    });
    EXPECT_EQ(lines, (std::vector<std::string>{"alpha.height = 20",
                                               "alpha.width = 305",
                                               "blue.height = 20",
                                               "blue.width = 305",
                                               "field.height = 40",
                                               "field.width = 250",
                                               "green.height = 20",
                                               "green.width = 305",
                                               "preview.height = 55",
                                               "preview.width = 120",
                                               "recent.centerY = top.centerY",
                                               "recent.right = top.right",
                                               "recent.top = top.top",
                                               "recent.width = 215",
                                               "red.height = 20",
                                               "red.width = 305",
                                               "stack.bottom = scroll.bottom",
                                               "stack.centerX = scroll.centerX",
                                               "stack.leading = scroll.leading",
                                               "stack.top = scroll.top",
                                               "stack.trailing = scroll.trailing"}));
    EXPECT_FALSE(recent->translatesAutoresizingMaskIntoConstraints());
    EXPECT_FALSE(stack->translatesAutoresizingMaskIntoConstraints());
}

// ---- Colours

struct PickerPalette {
    std::string front, text;
    friend bool operator==(const PickerPalette&, const PickerPalette&) = default;
    friend void PrintTo(const PickerPalette& p, std::ostream* out) { *out << p.front << " " << p.text; }
};

class PickerColours : public ColorPicker {
  protected:
    PickerPalette palette() const {
        const PickerPalette found{hex(field()->backgroundColor()), hex(field()->textColor())};
        EXPECT_EQ(hex(part<"scrollView">()->layer()->borderColor()), found.front);
        EXPECT_EQ(hex(part<"recentCollectionView">()->layer()->borderColor()), found.front);
        EXPECT_EQ(hex(part<"previewColor">()->layer()->borderColor()), found.front);
        EXPECT_EQ(hex(part<"canEditMessage", UILabel>()->textColor()), found.text);
        EXPECT_EQ(hex(part<"canEditMessageBorder", CALayer>()->borderColor()), found.text);
        for (UIButton* button : {part<"duplicateButton", UIButton>(), part<"pasteButton", UIButton>()}) {
            EXPECT_EQ(hex(button->tintColor()), found.text);
            EXPECT_EQ(hex(average(button->imageForState(UIControlStateNormal))), found.text);
        }
        return found;
    }
    /// Of the opaque middle of an icon.
    static Rgba average(UIImage* image) {
        UIGraphicsBeginImageContextWithOptions({1, 1}, false, 1.0);
        image->drawInRect({{-10, -10}, {20, 20}});
        auto* bytes = static_cast<const uint8_t*>(CGBitmapContextGetData(UIGraphicsGetCurrentContext()));
        const Rgba found{bytes[2] / 255.0, bytes[1] / 255.0, bytes[0] / 255.0, bytes[3] / 255.0};
        UIGraphicsEndImageContext();
        return found;
    }
    static std::string hex(const Rgba& c) { return test::hex(color(c.red, c.green, c.blue, c.alpha)); }
    static std::string hex(UIColor* color) { return test::hex(color); }
    static std::string hex(CGColorRef color) { return test::hex(color); }
};

TEST_F(PickerColours, AreLightOrDark) {
    picker->view();
    EXPECT_EQ(palette(), (PickerPalette{"#22313F", "#ECECEC"}));
    picker = made_picker();
    picker->send<"setLightUI:">(false);
    picker->view();
    EXPECT_EQ(palette(), (PickerPalette{"#ECECEC", "#22313F"}));
}

TEST_F(PickerColours, AreEclipsesInTheDark) {
    phone.write("/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib", "");
    phone.write("/var/mobile/Library/Preferences/com.hvelden.eclipse.plist",
                "{ enabled = 1; \"EnabledApps-com.apple.Preferences\" = 1; }");
    for (bool light : {true, false}) {
        picker = made_picker();
        picker->send<"setLightUI:">(light);
        picker->view();
        EXPECT_EQ(palette(), (PickerPalette{"#616161", "#212121"}));
    }
}

TEST_F(PickerColours, TheLightCaseIsTheControllersOwn) {
    picker->view();
    objc::send<"setLightUI:">(panel_part<"modalOptions">(), false);
    picker->send<"applyColor">();
    EXPECT_EQ(palette(), (PickerPalette{"#22313F", "#ECECEC"}));
    picker->send<"setLightUI:">(false);
    picker->send<"applyColor">();
    EXPECT_EQ(palette(), (PickerPalette{"#ECECEC", "#22313F"}));
}

TEST_F(PickerColours, EveryTextFieldMadeAfterwardsHasTheTint) {
    for (bool light : {true, false}) {
        picker = made_picker();
        picker->send<"setLightUI:">(light);
        picker->view();
        auto field = objc::adopt(UITextField::alloc()->initWithFrame({{0, 0}, {100, 30}}).leak());
        ASSERT_EQ(sim_show_view(field), SIM_OK) << sim_last_error();
        EXPECT_EQ(hex(field->tintColor()), light ? "#ECECEC" : "#22313F");
    }
}

// ---- Geometry

struct Screen {
    double width, height;
};
void PrintTo(const Screen& screen, std::ostream* out) { *out << screen.width << " points wide"; }

class PickerOnScreens : public ColorPicker, public testing::WithParamInterface<Screen> {
  protected:
    void SetUp() override {
        start({.screen_width = GetParam().width, .screen_height = GetParam().height});
        show();
    }
};

TEST_P(PickerOnScreens, EachPartIsInItsPlace) {
    const auto [width, height] = GetParam();
    const double card = width - 10;
    EXPECT_EQ(panel()->frame(), (CGRect{{0, 0}, {width, height}}));
    EXPECT_EQ(panel_part<"panelView">()->frame(), (CGRect{{5, height / 2 - 222.5}, {card, 445}}));
    EXPECT_EQ(panel_part<"contentView">()->bounds().size, (CGSize{card - 30, 300}));
    EXPECT_EQ(part<"scrollView">()->frame(), (CGRect{{0, 0}, {card - 30, 300}}));
    EXPECT_EQ(panel_part<"topView">()->bounds().size, (CGSize{card - 85, 40}));
    EXPECT_EQ(part<"recentCollectionView">()->frame(), (CGRect{{card - 85 - 215, 0}, {215, 40}}));
    for (id slider : sliders())
        EXPECT_EQ(static_cast<UIView*>(slider)->bounds().size, (CGSize{card - 60, 20}));
    EXPECT_EQ(part<"scrollViewStack">()->frame(), (CGRect{{0, 0}, {card - 30, 275}}));
    expect_sound_layout();
}

TEST_P(PickerOnScreens, TheColumnIsStackedFromTheTopInTheMiddle) {
    const double middle = (GetParam().width - 40) / 2;
    double top = 25;
    for (UIView* row : {part<"previewColor">(), static_cast<UIView*>(field()), part<"redSlider">(),
                        part<"greenSlider">(), part<"blueSlider">(), part<"alphaSlider">()}) {
        EXPECT_EQ(row->frame().origin.y, top);
        EXPECT_EQ(row->center().x, middle);
        top += row->bounds().size.height + 15;
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, PickerOnScreens,
                         testing::Values(Screen{320, 568}, Screen{375, 667}, Screen{414, 736}));

}  // namespace
}  // namespace test
