// A key's view with another key's view in it, which does the drawing.
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct ContainerKeyView : objc::Implements<ContainerKeyView, UIKBContainerKeyView> {
    struct Ivars {
        strong<UIKBKeyView> keyView;
    };

    strong<UIKBContainerKeyView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        auto self = initialised_by_super<"initWithFrame:keyplane:key:">(frame, keyplane, key);
        if (!self) return nullptr;
        self->ivars().keyView = UIKBKeyView::alloc()->initWithFrame({{0, 0}, frame.size}, keyplane, key);
        self->self()->addSubview(self->ivars().keyView);
        return self;
    }

    UIKBKeyView* contentsKeyView() { return ivars().keyView; }

    void layoutSubviews() { ivars().keyView->setFrame(self()->bounds()); }

    /// The other view draws.
    void displayLayer(CALayer*) {}
};

}  // namespace

using namespace objc::definition;
using Container = ContainerKeyView;

OBJC_CLASS(UIKBContainerKeyView, UIKBKeyView, ContainerKeyView,
           ivar<"_keyView", &Container::Ivars::keyView>,
           method<"initWithFrame:keyplane:key:", &Container::initWithFrame>,
           method<"contentsKeyView", &Container::contentsKeyView>,
           method<"layoutSubviews", &Container::layoutSubviews>,
           method<"displayLayer:", &Container::displayLayer>)
