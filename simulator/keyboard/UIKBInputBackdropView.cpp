// The backdrop of the whole keyboard. The keyboards of the model are never split: the left and the right half
// exist, hidden, and the full piece is what shows.
#include "keyboard/backdrop_styles.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct InputBackdropView : objc::Implements<InputBackdropView, UIKBInputBackdropView> {
    struct Ivars {
        strong<UIKBBackdropView> full, left, right;
    };

    strong<UIKBInputBackdropView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars() = {self->add_piece(false), self->add_piece(true), self->add_piece(true)};
        return self;
    }

    // Through the getters, as everybody else who wants the pieces.
    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIKBInputBackdropView*>(this);
        const CGSize size = bounds().size;
        self->inputBackdropFullView()->setFrame({{0, 0}, size});
        self->inputBackdropLeftView()->setFrame({{0, 0}, {size.width / 2, size.height}});
        self->inputBackdropRightView()->setFrame({{size.width / 2, 0}, {size.width / 2, size.height}});
    }

    UIKBBackdropView* inputBackdropFullView() { return ivars().full; }
    UIKBBackdropView* inputBackdropLeftView() { return ivars().left; }
    UIKBBackdropView* inputBackdropRightView() { return ivars().right; }

  private:
    strong<UIKBBackdropView> add_piece(bool hidden) {
        const NSInteger style =
            UIKBRenderConfig::backdropStyle(sim::keyboard_style_light, sim::keyboard_quality_full);
        auto piece = UIKBBackdropView::alloc()->initWithFrame(bounds(), style);
        piece->setHidden(hidden);
        addSubview(piece);
        return piece;
    }
};

}  // namespace

using namespace objc::definition;
using Backdrop = InputBackdropView;

OBJC_CLASS(UIKBInputBackdropView, UIView, InputBackdropView,
           ivar<"_inputBackdropFullView", &Backdrop::Ivars::full>,
           ivar<"_inputBackdropLeftView", &Backdrop::Ivars::left>,
           ivar<"_inputBackdropRightView", &Backdrop::Ivars::right>,
           method<"initWithFrame:", &Backdrop::initWithFrame>,
           method<"layoutSubviews", &Backdrop::layoutSubviews>,
           method<"inputBackdropFullView", &Backdrop::inputBackdropFullView>,
           method<"inputBackdropLeftView", &Backdrop::inputBackdropLeftView>,
           method<"inputBackdropRightView", &Backdrop::inputBackdropRightView>)
