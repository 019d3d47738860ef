// Pictures of the controls, as a person sees them.
#include "picture.h"

#include "platform/scrolling.h"
#include "screen_test.h"

namespace test {
namespace {

class ControlPictures : public Screen {
  protected:
    void expect_looks(const std::string& name) {
        const auto png = phone.host("/picture.png");
        ASSERT_EQ(sim_take_picture_of(root.get(), png.c_str(), 2), SIM_OK) << sim_last_error();
        EXPECT_TRUE(looks_as_expected(png, name, "controls."));
    }
    void shrink(CGFloat width, CGFloat height) { root->setFrame({{0, 0}, {width, height}}); }
};

TEST_F(ControlPictures, Buttons) {
    shrink(300, 150);
    auto add_button = [&](UIButtonType type, CGRect frame, const char* title) {
        UIButton* button = UIButton::buttonWithType(type);
        button->setFrame(frame);
        if (title) button->setTitle(text(title), UIControlStateNormal);
        root->addSubview(button);
        return button;
    };
    add_button(UIButtonTypeSystem, {{10, 10}, {80, 30}}, "Button");
    add_button(UIButtonTypeSystem, {{100, 10}, {80, 30}}, "Pressed")->setHighlighted(true);
    add_button(UIButtonTypeSystem, {{190, 10}, {100, 30}}, "Disabled")->setEnabled(false);
    UIButton* round = add_button(UIButtonTypeCustom, {{10, 50}, {40, 40}}, "X");
    round->setBackgroundColor(color(0.13, 0.19, 0.25));
    round->layer()->setCornerRadius(20);
    UIButton* wide = add_button(UIButtonTypeCustom, {{60, 50}, {120, 40}}, "a title that is too long");
    wide->setTitleColor(color(0.8, 0, 0), UIControlStateNormal);
    wide->setBackgroundImage(filled_image(color(0.9, 0.9, 0.9), 2, 2), UIControlStateNormal);
    UIImage* square = filled_image(color(0.9, 0.5, 0), 20, 20);
    add_button(UIButtonTypeCustom, {{190, 50}, {40, 40}}, nullptr)->setImage(square, UIControlStateNormal);
    UIButton* dark = add_button(UIButtonTypeCustom, {{240, 50}, {40, 40}}, nullptr);
    dark->setImage(square, UIControlStateNormal);
    dark->setHighlighted(true);
    UIButton* both = add_button(UIButtonTypeSystem, {{10, 100}, {120, 40}}, " Image");
    both->setImage(square, UIControlStateNormal);
    expect_looks("controls-buttons");
}

TEST_F(ControlPictures, Sliders) {
    shrink(220, 150);
    auto add_slider = [&](CGFloat y, float value) {
        auto* slider = add<UISlider>({{10, y}, {200, 31}});
        slider->setValue(value);
        return slider;
    };
    add_slider(10, 0);
    add_slider(45, 0.6f);
    add_slider(80, 1);
    UISlider* coloured = add_slider(115, 0.3f);
    coloured->setMinimumTrackTintColor(color(0.8, 0, 0));
    coloured->setMaximumTrackTintColor(UIColor::clearColor());
    expect_looks("controls-sliders");
}

TEST_F(ControlPictures, TextFields) {
    shrink(300, 220);
    auto add_field = [&](CGFloat y, const char* shown) {
        auto* field = add<UITextField>({{20, y}, {260, 34}});
        field->setText(text(shown));
        return field;
    };
    UITextField* plain = add_field(10, "");
    plain->setBorderStyle(UITextBorderStyleRoundedRect);
    plain->setPlaceholder(text("Placeholder"));
    UITextField* selected = add_field(50, "Selected text");
    selected->setBorderStyle(UITextBorderStyleRoundedRect);
    UITextField* centred = add_field(90, "#595457");
    centred->setTextAlignment(NSTextAlignmentCenter);
    centred->setBackgroundColor(color(0.13, 0.19, 0.25));
    centred->setTextColor(color(0.93, 0.93, 0.93));
    centred->setTintColor(color(1, 0.8, 0));
    centred->layer()->setCornerRadius(14);
    centred->setClipsToBounds(true);
    auto hint =
        objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({{0, 0}, {50, 34}}).leak()));
    hint->setText(text("Tap to Edit"));
    hint->setFont(UIFont::systemFontOfSize(10));
    hint->setTextColor(color(0.93, 0.93, 0.93));
    hint->setTextAlignment(NSTextAlignmentCenter);
    hint->setLineBreakMode(NSLineBreakByWordWrapping);
    hint->setNumberOfLines(0);
    centred->setLeftView(hint);
    centred->setLeftViewMode(UITextFieldViewModeAlways);
    add_field(130, "right")->setTextAlignment(NSTextAlignmentRight);
    selected->becomeFirstResponder();
    ASSERT_EQ(sim_select_text(0, 8), SIM_OK) << sim_last_error();
    expect_looks("controls-text-field-selection");
    centred->becomeFirstResponder();
    expect_looks("controls-text-field-caret");
}

TEST_F(ControlPictures, AScrolledColumn) {
    shrink(220, 160);
    auto* scroll_view = add<UIScrollView>({{10, 10}, {200, 140}});
    scroll_view->setBackgroundColor(color(0.93, 0.93, 0.93));
    scroll_view->layer()->setCornerRadius(20);
    auto stack = objc::adopt(
        static_cast<UIStackView*>(UIStackView::alloc()->initWithFrame({{0, 0}, {200, 300}}).leak()));
    stack->setAxis(UILayoutConstraintAxisVertical);
    stack->setDistribution(UIStackViewDistributionEqualSpacing);
    stack->setAlignment(UIStackViewAlignmentCenter);
    for (int i = 0; i < 5; ++i) {
        auto bar = UIView::alloc()->init();
        bar->setBackgroundColor(color(0.2 * i, 0.4, 1 - 0.2 * i));
        bar->widthAnchor()->constraintEqualToConstant(60 + 20 * i)->setActive(true);
        bar->heightAnchor()->constraintEqualToConstant(30)->setActive(true);
        stack->addArrangedSubview(bar);
    }
    scroll_view->addSubview(stack);
    scroll_view->setContentSize({200, 300});
    press(100, 120);
    move(100, 100);
    move(100, 40);
    lift(100, 40);
    expect_looks("controls-scrolled-column");
}

}  // namespace
}  // namespace test
