// The backdrop of the keys, or of a bar above them: the full piece, or while the keyboard is split the left
// and the right one, which leave the middle free. Whoever places the keyboard says where they are; laying out
// is every view's.
#include "keyboard/backdrops/backdrop_styles.h"
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct InputBackdropView : objc::Implements<InputBackdropView, UIKBInputBackdropView> {
    struct Ivars {
        NSInteger style;
        strong<UIKBBackdropView> full, left, right;
    };

    strong<UIKBInputBackdropView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().style =
            UIKBRenderConfig::backdropStyle(sim::keyboard_style_light, sim::keyboard_quality_full);
        auto full = self->added_piece();
        full->setFrame(self->bounds());
        full->setAutoresizingMask(sim::follows_size);
        as_sent(self)->setInputBackdropFullView(full);
        return self;
    }

    NSInteger style() { return ivars().style; }
    void transitionToStyle(NSInteger style, bool) {
        ivars().style = style;
        auto* self = as_sent(this);
        for (auto* piece :
             {self->inputBackdropFullView(), self->inputBackdropLeftView(), self->inputBackdropRightView()})
            piece->transitionToStyle(style);
    }

    void layoutToFull(CGRect rect) {
        auto* self = as_sent(this);
        place(self->inputBackdropFullView(), rect);
        self->inputBackdropLeftView()->setHidden(true);
        self->inputBackdropRightView()->setHidden(true);
    }

    // The left and the right piece are made when they are first needed.
    void layoutToSplit(CGRect left, CGRect right, NSUInteger) {
        auto* self = as_sent(this);
        if (!ivars().left) self->setInputBackdropLeftView(added_piece());
        if (!ivars().right) self->setInputBackdropRightView(added_piece());
        self->inputBackdropFullView()->setHidden(true);
        place(self->inputBackdropLeftView(), left);
        place(self->inputBackdropRightView(), right);
    }

    UIKBBackdropView* inputBackdropFullView() { return ivars().full; }
    void setInputBackdropFullView(UIKBBackdropView* piece) { ivars().full = piece; }
    UIKBBackdropView* inputBackdropLeftView() { return ivars().left; }
    void setInputBackdropLeftView(UIKBBackdropView* piece) { ivars().left = piece; }
    UIKBBackdropView* inputBackdropRightView() { return ivars().right; }
    void setInputBackdropRightView(UIKBBackdropView* piece) { ivars().right = piece; }

  private:
    /// Through the methods, as everybody else who wants the pieces.
    static UIKBInputBackdropView* as_sent(InputBackdropView* self) { return self; }

    static void place(UIKBBackdropView* piece, CGRect frame) {
        piece->setFrame(frame);
        piece->setHidden(false);
    }

    strong<UIKBBackdropView> added_piece() {
        auto piece = UIKBBackdropView::alloc()->initWithFrame(CGRect{}, ivars().style);
        addSubview(piece);
        return piece;
    }
};

}  // namespace

using namespace objc::definition;
using Backdrop = InputBackdropView;

OBJC_CLASS(UIKBInputBackdropView, UIView, InputBackdropView,
           ivar<"_style", &Backdrop::Ivars::style>,
           ivar<"_inputBackdropFullView", &Backdrop::Ivars::full>,
           ivar<"_inputBackdropLeftView", &Backdrop::Ivars::left>,
           ivar<"_inputBackdropRightView", &Backdrop::Ivars::right>,
           method<"initWithFrame:", &Backdrop::initWithFrame>,
           method<"style", &Backdrop::style>,
           method<"transitionToStyle:isSplit:", &Backdrop::transitionToStyle>,
           method<"layoutInputBackdropToFullWithRect:", &Backdrop::layoutToFull>,
           method<"layoutInputBackdropToSplitWithLeftViewRect:andRightViewRect:innerCorners:",
                  &Backdrop::layoutToSplit>,
           method<"inputBackdropFullView", &Backdrop::inputBackdropFullView>,
           method<"setInputBackdropFullView:", &Backdrop::setInputBackdropFullView>,
           method<"inputBackdropLeftView", &Backdrop::inputBackdropLeftView>,
           method<"setInputBackdropLeftView:", &Backdrop::setInputBackdropLeftView>,
           method<"inputBackdropRightView", &Backdrop::inputBackdropRightView>,
           method<"setInputBackdropRightView:", &Backdrop::setInputBackdropRightView>)
