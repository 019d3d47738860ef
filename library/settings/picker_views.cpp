#include "settings/picker_views.h"

#include "model/HCCITool.h"
#include "settings/placement.h"

namespace settings {

using namespace objc::literals;
using objc::strong;

namespace {

void clip(UIView* view) {
    view->setClipsToBounds(true);
    view->layer()->setMasksToBounds(true);
}

}  // namespace

strong<UICollectionView> make_recent_strip(UIView* strip, id owner) {
    auto layout = UICollectionViewFlowLayout::make();
    layout->setMinimumInteritemSpacing(2.5);
    auto view = UICollectionView::alloc()->initWithFrame(strip->frame(), layout);
    view->layer()->setMasksToBounds(true);
    view->layer()->setCornerRadius(strip->layer()->cornerRadius());
    view->layer()->setBorderWidth(1.4f);
    view->setScrollEnabled(false);
    view->setAutoresizingMask(growing);
    view->setDataSource(owner);
    view->setDelegate(owner);
    view->registerClass(UICollectionViewCell::class_object(), "RecentColorCell"_ns);
    view->setBackgroundColor(UIColor::clearColor());
    return view;
}

strong<UIScrollView> make_scroll_view(UIView* content, double corner_radius) {
    auto view = UIScrollView::make<"initWithFrame:">(content->frame());
    view->layer()->setMasksToBounds(true);
    view->layer()->setCornerRadius(corner_radius);
    view->layer()->setBorderWidth(1.4);
    view->setAutoresizingMask(growing);
    return view;
}

strong<UIStackView> make_column() {
    auto stack = UIStackView::make<"initWithFrame:">(CGRect{});
    stack->setAxis(UILayoutConstraintAxisVertical);
    stack->setDistribution(UIStackViewDistributionEqualSpacing);
    stack->setAlignment(UIStackViewAlignmentCenter);
    stack->setSpacing(15);
    stack->setLayoutMargins({.top = 25, .left = 0, .bottom = 0, .right = 0});
    stack->setLayoutMarginsRelativeArrangement(true);
    return stack;
}

strong<UIImageView> make_preview() {
    auto view = UIImageView::make<"initWithFrame:">(CGRect{});
    clip(view);
    view->layer()->setCornerRadius(27.5);
    view->layer()->setBorderWidth(1.0);
    return view;
}

strong<UITextField> make_hex_field(id delegate) {
    auto field = UITextField::make<"initWithFrame:">(CGRect{});
    field->setDelegate(delegate);
    field->setReturnKeyType(UIReturnKeyDone);
    field->layer()->setCornerRadius(14.0);
    field->setTextAlignment(NSTextAlignmentCenter);
    field->setAutocapitalizationType(UITextAutocapitalizationTypeAllCharacters);
    clip(field);
    field->setText(HCCITool::hexStringFromColor(UIColor::redColor()));
    return field;
}

strong<UILabel> make_hint() {
    auto label = UILabel::make<"initWithFrame:">(CGRect{{5, 0}, {50, 40}});
    label->setText("Tap to Edit"_ns);
    label->setFont(UIFont::fontWithName(label->font()->fontName(), 10.0));
    label->setTextAlignment(NSTextAlignmentCenter);
    label->setLineBreakMode(NSLineBreakByWordWrapping);
    label->setNumberOfLines(0);
    clip(label);
    return label;
}

strong<CALayer> make_hint_border(UILabel* hint) {
    strong<CALayer> border = CALayer::layer();
    border->setBorderWidth(1.0);
    // Clipped by the label on all sides but the right one.
    const CGSize size = hint->frame().size;
    border->setFrame({{-1, -1}, {size.width, size.height + 2}});
    hint->layer()->addSublayer(border);
    return border;
}

strong<UIView> make_clipboard_holder() {
    auto view = UIView::alloc()->initWithFrame({{0, 0}, {60, 40}});
    clip(view);
    return view;
}

UIButton* make_clipboard_button(CGRect frame, UIImage* icon, id target, SEL action) {
    UIButton* button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->setFrame(frame);
    button->setImage(icon, UIControlStateNormal);
    button->imageView()->setContentMode(UIViewContentModeScaleAspectFit);
    button->setAdjustsImageWhenHighlighted(true);
    button->addTarget(target, action, UIControlEventTouchUpInside);
    return button;
}

}  // namespace settings
