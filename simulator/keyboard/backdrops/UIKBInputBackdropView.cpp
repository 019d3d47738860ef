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
        self->self()->setInputBackdropFullView(full);
        return self;
    }

    NSInteger style() { return ivars().style; }
    void transitionToStyle(NSInteger style, bool) {
        ivars().style = style;
        for (auto* piece : {self()->inputBackdropFullView(), self()->inputBackdropLeftView(),
                            self()->inputBackdropRightView()})
            piece->transitionToStyle(style);
    }

    void layoutToFull(CGRect rect) {
        place(self()->inputBackdropFullView(), rect);
        self()->inputBackdropLeftView()->setHidden(true);
        self()->inputBackdropRightView()->setHidden(true);
    }

    // The left and the right piece are made when they are first needed.
    void layoutToSplit(CGRect left, CGRect right, NSUInteger) {
        if (!ivars().left) self()->setInputBackdropLeftView(added_piece());
        if (!ivars().right) self()->setInputBackdropRightView(added_piece());
        self()->inputBackdropFullView()->setHidden(true);
        place(self()->inputBackdropLeftView(), left);
        place(self()->inputBackdropRightView(), right);
    }

    UIKBBackdropView* inputBackdropFullView() { return ivars().full; }
    void setInputBackdropFullView(UIKBBackdropView* piece) { ivars().full = piece; }
    UIKBBackdropView* inputBackdropLeftView() { return ivars().left; }
    void setInputBackdropLeftView(UIKBBackdropView* piece) { ivars().left = piece; }
    UIKBBackdropView* inputBackdropRightView() { return ivars().right; }
    void setInputBackdropRightView(UIKBBackdropView* piece) { ivars().right = piece; }

  private:
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

OBJC_CLASS(UIKBInputBackdropView, UIView, InputBackdropView,
           ivar<"_style", &InputBackdropView::Ivars::style>,
           ivar<"_inputBackdropFullView", &InputBackdropView::Ivars::full>,
           ivar<"_inputBackdropLeftView", &InputBackdropView::Ivars::left>,
           ivar<"_inputBackdropRightView", &InputBackdropView::Ivars::right>,
           method<"initWithFrame:", &InputBackdropView::initWithFrame>,
           method<"style", &InputBackdropView::style>,
           method<"transitionToStyle:isSplit:", &InputBackdropView::transitionToStyle>,
           method<"layoutInputBackdropToFullWithRect:", &InputBackdropView::layoutToFull>,
           method<"layoutInputBackdropToSplitWithLeftViewRect:andRightViewRect:innerCorners:",
                  &InputBackdropView::layoutToSplit>,
           method<"inputBackdropFullView", &InputBackdropView::inputBackdropFullView>,
           method<"setInputBackdropFullView:", &InputBackdropView::setInputBackdropFullView>,
           method<"inputBackdropLeftView", &InputBackdropView::inputBackdropLeftView>,
           method<"setInputBackdropLeftView:", &InputBackdropView::setInputBackdropLeftView>,
           method<"inputBackdropRightView", &InputBackdropView::inputBackdropRightView>,
           method<"setInputBackdropRightView:", &InputBackdropView::setInputBackdropRightView>)
