// A view that draws a key plane.
#include "keyboard/UIKBKeyplaneView.h"

#include "keyboard/key_kind.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct KeyplaneView : objc::Implements<KeyplaneView, UIKBKeyplaneView> {
    struct Ivars {
        strong<UIKBTree> keyplane;
        strong<NSMutableArray> keyViews;
    };

    strong<UIKBKeyplaneView> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBRenderFactory* factory) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().keyplane = keyplane;
        self->ivars().keyViews = NSMutableArray::arrayWithCapacity(32);
        NSArray* keys = keyplane->subtrees();
        for (NSUInteger index = 0; index < keys->count(); ++index)
            self->add_view_of(static_cast<UIKBTree*>(keys->objectAtIndex(index)), factory);
        return self;
    }

    void setPressedKey(UIKBTree* key) {
        NSArray* views = ivars().keyViews;
        for (NSUInteger index = 0; index < views->count(); ++index) {
            auto* view = static_cast<UIKBKeyView*>(views->objectAtIndex(index));
            view->setPressed(view->key() == key);
        }
    }

  private:
    void add_view_of(UIKBTree* key, UIKBRenderFactory* factory) {
        if (static_cast<sim::KeyKind>(key->displayType()) == sim::KeyKind::indicator) {
            auto mark = UIKBBlurredKeyView::alloc()->initWithFrame(key->frame(), ivars().keyplane, key);
            if (mark) addSubview(mark);
            return;
        }
        auto view = UIKBKeyView::alloc()->initWithKey(key, factory);
        addSubview(view);
        ivars().keyViews->addObject(view);
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBKeyplaneView, UIView, KeyplaneView,
           property<"keyplane", &KeyplaneView::Ivars::keyplane>,
           ivar<"_keyViews", &KeyplaneView::Ivars::keyViews>,
           method<"initWithFrame:keyplane:factory:", &KeyplaneView::initWithFrame>,
           method<"setPressedKey:", &KeyplaneView::setPressedKey>)
