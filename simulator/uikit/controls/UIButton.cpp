// Buttons: a title and an image per state.
#include <algorithm>
#include <cmath>
#include <map>

#include "objc/class.h"
#include "platform/controls.h"
#include "runtime/not_modelled.h"

namespace {

using objc::strong;

/// What a button shows in one state; nil is what it shows in the normal one.
struct StateContent {
    strong<NSString> title;
    strong<UIColor> titleColor;
    strong<UIImage> image, backgroundImage;
};

struct Button : objc::Implements<Button, UIButton> {
    struct Ivars {
        UIButtonType buttonType = UIButtonTypeCustom;
        std::map<UIControlState, StateContent> contents;
        strong<UILabel> titleLabel;
        strong<UIImageView> imageView, backgroundView;
        bool adjustsImageWhenHighlighted = true, adjustsImageWhenDisabled = true;
        UIEdgeInsets contentEdgeInsets{};
    };

    static UIButton* buttonWithType(Class self, UIButtonType type) {
        if (type != UIButtonTypeCustom && type != UIButtonTypeSystem)
            sim::not_modelled("UIButton", "buttonWithType:", "a type other than custom (0) and system (1)");
        auto button = objc::adopt(objc::send<"new", Button*>(reinterpret_cast<id>(self)));
        button->ivars().buttonType = type;
        return strong<UIButton>(button.get()).autoreleased();
    }

    strong<UIButton> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        static_cast<UIView*>(self.get())->setOpaque(false);
        return self;
    }

    UIButtonType buttonType() { return ivars().buttonType; }

    // ---- What is shown per state ----------------------------------------------------------------

    NSString* titleForState(UIControlState state) { return content(state, &StateContent::title); }
    void setTitle(NSString* title, UIControlState state) {
        ivars().contents[state].title = strong<NSString>::adopt(title->send<"copy", NSString*>());
        show();
    }
    UIColor* titleColorForState(UIControlState state) {
        if (UIColor* own = content(state, &StateContent::titleColor)) return own;
        if (!is_system()) return UIColor::whiteColor();
        if (state & UIControlStateDisabled) return UIColor::colorWithWhite(0.6, 1);
        return self()->tintColor();
    }
    void setTitleColor(UIColor* color, UIControlState state) {
        ivars().contents[state].titleColor = color;
        show();
    }
    UIImage* imageForState(UIControlState state) { return content(state, &StateContent::image); }
    void setImage(UIImage* image, UIControlState state) {
        ivars().contents[state].image = image;
        show();
    }
    UIImage* backgroundImageForState(UIControlState state) {
        return content(state, &StateContent::backgroundImage);
    }
    void setBackgroundImage(UIImage* image, UIControlState state) {
        ivars().contents[state].backgroundImage = image;
        show();
    }

    NSString* currentTitle() { return self()->titleForState(self()->state()); }
    UIColor* currentTitleColor() { return self()->titleColorForState(self()->state()); }
    UIImage* currentImage() { return self()->imageForState(self()->state()); }
    UIImage* currentBackgroundImage() { return self()->backgroundImageForState(self()->state()); }

    // ---- The views inside -----------------------------------------------------------------------

    UILabel* titleLabel() {
        auto& label = ivars().titleLabel;
        if (!label) {
            label = UILabel::make<"initWithFrame:">(CGRect{});
            label->setFont(UIFont::systemFontOfSize(is_system() ? system_font_size : custom_font_size));
            label->setTextAlignment(NSTextAlignmentCenter);
            self()->addSubview(label);
        }
        return label;
    }
    UIImageView* imageView() {
        auto& view = ivars().imageView;
        if (!view) {
            view = UIImageView::make<"initWithFrame:">(CGRect{});
            if (ivars().titleLabel)
                self()->insertSubviewBelow(view, ivars().titleLabel);
            else
                self()->addSubview(view);
        }
        return view;
    }
    void setContentEdgeInsets(UIEdgeInsets insets) {
        ivars().contentEdgeInsets = insets;
        show();
    }
    UIEdgeInsets contentEdgeInsets() { return ivars().contentEdgeInsets; }

    void setHighlighted(bool highlighted) {
        super<"setHighlighted:">(highlighted);
        show();
    }
    void setSelected(bool selected) {
        super<"setSelected:">(selected);
        show();
    }
    void setEnabled(bool enabled) {
        super<"setEnabled:">(enabled);
        show();
    }
    void tintColorDidChange() {
        super<"tintColorDidChange">();
        show();
    }

    // The image left of the title, together in the middle.
    void layoutSubviews() {
        super<"layoutSubviews">();
        const CGRect bounds = self()->bounds();
        if (ivars().backgroundView) ivars().backgroundView->setFrame(bounds);
        const auto& [top, left, bottom, right] = ivars().contentEdgeInsets;
        const CGRect content{{bounds.origin.x + left, bounds.origin.y + top},
                             {std::max(0.0, bounds.size.width - left - right),
                              std::max(0.0, bounds.size.height - top - bottom)}};
        CGSize image = self()->currentImage()->size(), title = title_size();
        image = {std::min(image.width, content.size.width), std::min(image.height, content.size.height)};
        title = {std::min(title.width, content.size.width - image.width),
                 std::min(title.height, content.size.height)};
        const CGFloat x = content.origin.x + (content.size.width - image.width - title.width) / 2;
        auto place = [&](UIView* view, CGFloat x, CGSize size) {
            const CGFloat y = content.origin.y + (content.size.height - size.height) / 2;
            view->setFrame({{to_pixel(x), to_pixel(y)}, size});
        };
        if (ivars().imageView) place(ivars().imageView, x, image);
        if (ivars().titleLabel) place(ivars().titleLabel, x + image.width, title);
    }

    CGSize sizeThatFits(CGSize) {
        const CGSize image = self()->currentImage()->size(), title = title_size();
        const auto& [top, left, bottom, right] = ivars().contentEdgeInsets;
        const bool has_title = title.width > 0;
        const CGFloat room = has_title && top + bottom == 0 ? title_room : 0;
        return {std::max(has_title ? least_width : 0, image.width + title.width) + left + right,
                std::max(image.height, title.height + 2 * room) + top + bottom};
    }
    CGSize intrinsicContentSize() { return self()->sizeThatFits({}); }

  private:
    static constexpr CGFloat custom_font_size = 18, system_font_size = 15;
    static constexpr CGFloat least_width = 30, title_room = 6;
    /// What a pressed system button keeps of its colour, and what a pressed or disabled custom one of its
    /// image's.
    static constexpr CGFloat pressed_alpha = 0.2, dark = 0.5, disabled_alpha = 0.5;

    bool is_system() { return ivars().buttonType == UIButtonTypeSystem; }
    static CGFloat to_pixel(CGFloat points) {
        const CGFloat scale = UIScreen::mainScreen()->scale();
        return std::round(points * scale) / scale;
    }

    template <class T>
    T* content(UIControlState state, strong<T> StateContent::* member) {
        const auto& contents = ivars().contents;
        for (UIControlState wanted : {state, UIControlStateNormal})
            if (auto found = contents.find(wanted); found != contents.end() && found->second.*member)
                return (found->second.*member).get();
        return nullptr;
    }
    template <class T>
    bool has_own(UIControlState state, strong<T> StateContent::* member) {
        auto found = ivars().contents.find(state);
        return found != ivars().contents.end() && found->second.*member;
    }

    CGSize title_size() {
        UILabel* label = ivars().titleLabel;
        return label->text()->length() ? label->sizeThatFits({}) : CGSize{};
    }

    void show() {
        const UIControlState state = self()->state();
        const bool pressed = state & UIControlStateHighlighted;
        if (NSString* title = self()->currentTitle(); title || ivars().titleLabel) {
            UILabel* label = self()->titleLabel();
            label->setText(title);
            label->setTextColor(self()->currentTitleColor());
            label->setAlpha(
                is_system() && pressed && !has_own(state, &StateContent::titleColor) ? pressed_alpha : 1);
        }
        if (UIImage* image = self()->currentImage(); image || ivars().imageView) show_image(image, state);
        if (UIImage* image = self()->currentBackgroundImage(); image || ivars().backgroundView)
            background_view()->setImage(image);
        self()->setNeedsLayout();
        self()->invalidateIntrinsicContentSize();
    }

    void show_image(UIImage* image, UIControlState state) {
        if (is_system() && image->renderingMode() == UIImageRenderingModeAutomatic)
            image = image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
        UIImageView* view = self()->imageView();
        view->setImage(image);
        const bool is_the_normal_one = !has_own(state, &StateContent::image);
        const bool pressed =
            state & UIControlStateHighlighted && is_the_normal_one && self()->adjustsImageWhenHighlighted();
        const bool faded =
            state & UIControlStateDisabled && is_the_normal_one && ivars().adjustsImageWhenDisabled;
        view->setAlpha(pressed && is_system() ? pressed_alpha : faded ? disabled_alpha : 1);
        view->layer()->setContentsMultiplyColor(
            pressed && !is_system() ? UIColor::colorWithWhite(dark, 1)->CGColor() : nullptr);
    }

    UIImageView* background_view() {
        auto& view = ivars().backgroundView;
        if (!view) {
            view = UIImageView::make<"initWithFrame:">(self()->bounds());
            self()->insertSubview(view, 0);
        }
        return view;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIButton, UIControl, Button,
           class_method<"buttonWithType:", &Button::buttonWithType>,
           method<"initWithFrame:", &Button::initWithFrame>,
           ivar<"_buttonType", &Button::Ivars::buttonType>,
           ivar<"_contents", &Button::Ivars::contents>,
           ivar<"_titleLabel", &Button::Ivars::titleLabel>,
           ivar<"_imageView", &Button::Ivars::imageView>,
           ivar<"_backgroundView", &Button::Ivars::backgroundView>,
           property<"adjustsImageWhenHighlighted", &Button::Ivars::adjustsImageWhenHighlighted>,
           property<"adjustsImageWhenDisabled", &Button::Ivars::adjustsImageWhenDisabled>,
           ivar<"_contentEdgeInsets", &Button::Ivars::contentEdgeInsets>,
           method<"buttonType", &Button::buttonType>,
           method<"titleForState:", &Button::titleForState>,
           method<"setTitle:forState:", &Button::setTitle>,
           method<"titleColorForState:", &Button::titleColorForState>,
           method<"setTitleColor:forState:", &Button::setTitleColor>,
           method<"imageForState:", &Button::imageForState>,
           method<"setImage:forState:", &Button::setImage>,
           method<"backgroundImageForState:", &Button::backgroundImageForState>,
           method<"setBackgroundImage:forState:", &Button::setBackgroundImage>,
           method<"currentTitle", &Button::currentTitle>,
           method<"currentTitleColor", &Button::currentTitleColor>,
           method<"currentImage", &Button::currentImage>,
           method<"currentBackgroundImage", &Button::currentBackgroundImage>,
           method<"titleLabel", &Button::titleLabel>,
           method<"imageView", &Button::imageView>,
           method<"contentEdgeInsets", &Button::contentEdgeInsets>,
           method<"setContentEdgeInsets:", &Button::setContentEdgeInsets>,
           method<"setHighlighted:", &Button::setHighlighted>,
           method<"setSelected:", &Button::setSelected>,
           method<"setEnabled:", &Button::setEnabled>,
           method<"tintColorDidChange", &Button::tintColorDidChange>,
           method<"layoutSubviews", &Button::layoutSubviews>,
           method<"sizeThatFits:", &Button::sizeThatFits>,
           method<"intrinsicContentSize", &Button::intrinsicContentSize>)
