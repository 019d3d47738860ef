#include "pane/screens/editor/control_cells.h"

#include <algorithm>
#include <initializer_list>

#include "pane/drawing/photo.h"
#include "pane/screens/editor/background_kinds.h"
#include "pane/texts.h"

namespace pane {
namespace {

using objc::strong;

constexpr CGFloat margin = 16, page_width = 150, page_height = 84;

strong<UITableViewCell> make_cell() {
    strong<UITableViewCell> cell =
        UITableViewCell::alloc()->initWithStyle(UITableViewCellStyleDefault, nullptr);
    cell->setSelectionStyle(UITableViewCellSelectionStyleNone);
    return cell;
}

void activate(std::initializer_list<NSLayoutConstraint*> constraints) {
    for (NSLayoutConstraint* each : constraints) each->setActive(true);
}

/// Adds the view; its place in the cell is for constraints.
UIView* add(UIView* view, UITableViewCell* cell) {
    cell->contentView()->addSubview(view);
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    return cell->contentView();
}

/// A page of an application, for what is seen through a keyboard's image.
strong<UIView> make_page() {
    auto page = UIView::alloc()->initWithFrame({{0, 0}, {page_width, page_height}});
    page->setBackgroundColor(UIColor::whiteColor());
    page->setClipsToBounds(true);
    page->layer()->setCornerRadius(6);
    page->layer()->setBorderWidth(0.5);
    page->layer()->setBorderColor(UIColor::colorWithWhite(0.7, 1)->CGColor());
    constexpr CGFloat line = 6, between = 12, inset = 10;
    for (int place = 0; place < 6; ++place) {
        const CGFloat width = page_width - 2 * inset - (place % 3 == 2 ? 50 : 0);
        auto text = UIView::alloc()->initWithFrame({{inset, inset + place * between}, {width, line}});
        text->setBackgroundColor(UIColor::colorWithWhite(0.25, 1));
        page->addSubview(text);
    }
    return page;
}

}  // namespace

ControlCells::ControlCells(id target)
    : kind(make_cell()),
      direction(make_cell()),
      alpha(make_cell()),
      caps(make_cell()),
      pad_(target, objc::selector<"directionChosen:">()),
      page_(make_page()) {
    const id titles[] = {text<"None">(), text<"Colour">(), text<"Gradient">(), text<"Image">()};
    kinds = UISegmentedControl::alloc()->initWithItems(NSArray::arrayWithObjects(titles, 4));
    kinds->addTarget(target, objc::selector<"kindChosen:">(), UIControlEventValueChanged);
    UIView* content = add(kinds, kind);
    activate({kinds->leadingAnchor()->constraintEqualToAnchor(content->leadingAnchor(), margin),
              kinds->trailingAnchor()->constraintEqualToAnchor(content->trailingAnchor(), -margin),
              kinds->centerYAnchor()->constraintEqualToAnchor(content->centerYAnchor())});

    content = add(pad_.view, direction);
    activate({pad_.view->centerXAnchor()->constraintEqualToAnchor(content->centerXAnchor()),
              pad_.view->centerYAnchor()->constraintEqualToAnchor(content->centerYAnchor()),
              pad_.view->widthAnchor()->constraintEqualToConstant(DirectionPad::side),
              pad_.view->heightAnchor()->constraintEqualToConstant(DirectionPad::side)});

    slider = UISlider::make<"initWithFrame:">(CGRect{});
    slider->setAccessibilityLabel(text<"Opacity of the image">());
    slider->addTarget(target, objc::selector<"alphaChanged:">(), UIControlEventValueChanged);
    slider->addTarget(target, objc::selector<"alphaSettled:">(),
                      UIControlEventTouchUpInside | UIControlEventTouchUpOutside | UIControlEventTouchCancel);
    content = add(page_, alpha);
    add(slider, alpha);
    activate({page_->topAnchor()->constraintEqualToAnchor(content->topAnchor(), margin),
              page_->centerXAnchor()->constraintEqualToAnchor(content->centerXAnchor()),
              page_->widthAnchor()->constraintEqualToConstant(page_width),
              page_->heightAnchor()->constraintEqualToConstant(page_height),
              slider->topAnchor()->constraintEqualToAnchor(page_->bottomAnchor(), 10),
              slider->leadingAnchor()->constraintEqualToAnchor(content->leadingAnchor(), margin),
              slider->trailingAnchor()->constraintEqualToAnchor(content->trailingAnchor(), -margin)});

    caps_switch = UISwitch::make<"initWithFrame:">(CGRect{});
    caps_switch->addTarget(target, objc::selector<"capsSwitched:">(), UIControlEventValueChanged);
    caps->textLabel()->setText(text<"Visible Key Caps">());
    caps_switch->setAccessibilityLabel(text<"Visible Key Caps">());
    content = add(caps_switch, caps);
    activate({caps_switch->trailingAnchor()->constraintEqualToAnchor(content->trailingAnchor(), -margin),
              caps_switch->centerYAnchor()->constraintEqualToAnchor(content->centerYAnchor())});
}

void ControlCells::show(HuecraftConfig* theme, NSUInteger background, NSUInteger arrow) {
    caps->textLabel()->setFont(UIFont::preferredFontForTextStyle(UIFontTextStyleBody));
    caps_switch->setOn(theme->getVisibleKeycaps());
    kinds->setSelectedSegmentIndex(segment_of(background));
    if (background == huecraft::gradient_background) pad_.show(theme, arrow);
    if (background != huecraft::image_background) return;
    slider->setValue(static_cast<float>(theme->getImageAlpha()));
    show_alpha(theme);
}

// Alphas that the view is given count one upon the other, so each gets a view of its own.
void ControlCells::show_alpha(HuecraftConfig* theme) {
    if (auto* shown = as<HCImageView>(page_->subviews()->lastObject())) shown->removeFromSuperview();
    if (!small_)
        if (UIImage* image = theme->getImage())
            small_ = cropped(image, {{0, 0}, image->size()}, {page_width, page_height});
    if (!small_) return;
    const auto view = HCImageView::alloc()->initWithImage(small_, 1);
    if (!view) return;
    view->setImageAlpha(std::clamp(theme->getImageAlpha(), 0.0, 1.0));
    page_->addSubview(view);
}

}  // namespace pane
