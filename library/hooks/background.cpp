#include "hooks/background.h"

#include "hooks/shared_preferences.h"
#include "model/HCCITool.h"
#include "objc/fast_enumeration.h"
#include "views/theme_background.h"

namespace hooks {

namespace {

constexpr uintptr_t retain_nonatomic = 1;  // the association policy
// Their addresses are the keys.
const char active_background_key = 0;
const char average_key = 0;

/// An image's average reads all its pixels, and every backdrop asks for it: it stays with the image, which
/// never changes.
UIColor* average_of(UIImage* image) {
    if (id known = image ? objc_getAssociatedObject(image, &average_key) : nullptr)
        return static_cast<UIColor*>(known);
    UIColor* average = HCCITool::averageColorForImage(image);
    if (image) objc_setAssociatedObject(image, &average_key, average, retain_nonatomic);
    return average;
}

/// The theme image's average, at the theme's image alpha.
UIColor* average_of_theme_image() {
    return average_of(sharedPreferences->getImage())
        ->colorWithAlphaComponent(sharedPreferences->getImageAlpha());
}

_UIBackdropView* themed_backdrop(NSArray* colours, NSUInteger type) {
    return filled_backdrop<HCPreferences>(sharedPreferences, colours, type, NewBackdrops{});
}

/// Shows the view over the whole content view.
void show(UIView* themed, UIKBBackdropView* backdrop) {
    themed->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    backdrop->contentView()->addSubview(themed);
}

void take_out_active_background(UIKBBackdropView* backdrop) {
    backdrop->activeBackgroundView()->removeFromSuperview();
    backdrop->setActiveBackgroundView(nullptr);
}

}  // namespace

id active_background_view(UIKBBackdropView* self) {
    return objc::strong<objc_object>(objc_getAssociatedObject(self, &active_background_key)).autoreleased();
}

void set_active_background_view(UIKBBackdropView* self, id view) {
    objc_setAssociatedObject(self, &active_background_key, view, retain_nonatomic);
}

/// Every backdrop gets its themed view; with an image, its average colour only, since the pieces show the
/// image.
objc::strong<UIKBBackdropView> install_background(objc::Previous<BackdropInit> previous, UIKBBackdropView*,
                                                  CGRect frame, NSInteger style) {
    objc::strong<UIKBBackdropView> backdrop = previous(frame, style);
    backdrop->setBackgroundColor(UIColor::clearColor());
    NSArray* colours = sharedPreferences->getColors();
    const NSUInteger type = sharedPreferences->getBackgroundType();
    if (type == image_background)
        backdrop->setBackgroundColor(average_of_theme_image());
    else
        backdrop->setActiveBackgroundView(themed_backdrop(colours, type));
    if (UIView* themed = backdrop->activeBackgroundView()) show(themed, backdrop);
    return backdrop;
}

/// The visual-effect view gets no themed view, but a colour that comes near to the theme.
objc::strong<UIKBBackdropView> approximate_background(objc::Previous<BackdropInit> previous,
                                                      UIKBBackdropView*, CGRect frame, NSInteger style) {
    objc::strong<UIKBBackdropView> view = previous(frame, style);
    NSArray* colours = sharedPreferences->getColors();
    switch (sharedPreferences->getBackgroundType()) {
        case image_background: view->setBackgroundColor(average_of_theme_image()); break;
        case gradient_background: {
            const CGSize size = UIKeyboardImpl::keyboardSize(UIInterfaceOrientationPortrait);
            auto* active = static_cast<_UIBackdropGradientView*>(view->activeBackgroundView());
            view->setBackgroundColor(HCCITool::averageColorForImage(active->imageFromGradientOfSize(size))
                                         ->colorWithAlphaComponent(1.0));
            break;
        }
        case flat_background:
            view->setBackgroundColor(first_or_clear(colours)->colorWithAlphaComponent(1.0));
            break;
        default: view->setBackgroundColor(UIColor::clearColor()); break;
    }
    if (view->activeBackgroundView()) take_out_active_background(view);
    return view;
}

/// An image background lies behind each piece of the input backdrop. One that is there already is not
/// refreshed.
UIKBBackdropView* put_image_behind(objc::Previous<UIKBBackdropView*()> previous, UIKBInputBackdropView*) {
    UIKBBackdropView* piece = previous();
    if (sharedPreferences->getBackgroundType() != image_background) return piece;
    UIView* active = piece->activeBackgroundView();
    if (active && !active->isKindOfClass(_UIBackdropImageView::class_object()))
        take_out_active_background(piece);
    if (piece->activeBackgroundView()) return piece;
    UIView* themed = themed_backdrop(nullptr, image_background);
    piece->setActiveBackgroundView(themed);
    show(themed, piece);
    piece->setBackgroundColor(UIColor::clearColor());
    return piece;
}

/// A sibling that answers `initForUCB:` shows a background of its own: the pieces give theirs up.
void strip_pieces(UIKBInputBackdropView* self) {
    objc::for_each<NSObject>(self->superview()->subviews(), [self](NSObject* sibling) {
        if (!sibling->respondsToSelector(objc::selector<"initForUCB:">())) return;
        if (UIView* piece = self->inputBackdropFullView()) self->removeKBBackdropEffects(piece);
        if (UIView* piece = self->inputBackdropLeftView()) self->removeKBBackdropEffects(piece);
        if (UIView* piece = self->inputBackdropRightView()) self->removeKBBackdropEffects(piece);
    });
}

void remove_backdrop_effects(UIKBInputBackdropView*, id piece) {
    if (!static_cast<NSObject*>(piece)->isKindOfClass(UIKBBackdropView::class_object())) return;
    auto* backdrop = static_cast<UIKBBackdropView*>(piece);
    if (backdrop->activeBackgroundView()) take_out_active_background(backdrop);
}

}  // namespace hooks
