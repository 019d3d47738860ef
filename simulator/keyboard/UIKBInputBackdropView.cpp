// The backdrop of the whole keyboard: the full piece, or while the keyboard is split the left and the right
// one, which leave the middle free.
#include "keyboard/backdrop_styles.h"
#include "keyboard/planes/split.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct InputBackdropView : objc::Implements<InputBackdropView, UIKBInputBackdropView> {
    struct Ivars {
        strong<UIKBBackdropView> full, left, right;
        bool split;
    };

    strong<UIKBInputBackdropView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars() = {self->add_piece(false), self->add_piece(true), self->add_piece(true), false};
        return self;
    }

    bool isSplit() { return ivars().split; }
    void setSplit(bool split) {
        ivars().split = split;
        setNeedsLayout();
    }

    // Through the getters, as everybody else who wants the pieces.
    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIKBInputBackdropView*>(this);
        const CGSize size = bounds().size;
        const bool split = self->isSplit();
        const CGFloat half = split ? sim::split_half(size.width) : size.width / 2;
        place(self->inputBackdropFullView(), {{0, 0}, size}, !split);
        place(self->inputBackdropLeftView(), {{0, 0}, {half, size.height}}, split);
        place(self->inputBackdropRightView(), {{size.width - half, 0}, {half, size.height}}, split);
    }

    UIKBBackdropView* inputBackdropFullView() { return ivars().full; }
    UIKBBackdropView* inputBackdropLeftView() { return ivars().left; }
    UIKBBackdropView* inputBackdropRightView() { return ivars().right; }

  private:
    static void place(UIKBBackdropView* piece, CGRect frame, bool shown) {
        piece->setFrame(frame);
        piece->setHidden(!shown);
    }

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
           ivar<"_split", &Backdrop::Ivars::split>,
           method<"initWithFrame:", &Backdrop::initWithFrame>,
           method<"isSplit", &Backdrop::isSplit>,
           method<"setSplit:", &Backdrop::setSplit>,
           method<"layoutSubviews", &Backdrop::layoutSubviews>,
           method<"inputBackdropFullView", &Backdrop::inputBackdropFullView>,
           method<"inputBackdropLeftView", &Backdrop::inputBackdropLeftView>,
           method<"inputBackdropRightView", &Backdrop::inputBackdropRightView>)
