#include "keyboard/planes/UIKBKeyplaneView.h"

#include "keyboard/planes/key_kind.h"
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "keyboard/rendering/key_painter.h"
#include "objc/class.h"

namespace {

using objc::strong;

struct KeyplaneView : objc::Implements<KeyplaneView, UIKBKeyplaneView> {
    struct Ivars {
        strong<UIKBTree> keyplane;
        strong<UIKBRenderFactory> factory;
        strong<NSMutableArray> keyViews;
    };

    strong<UIKBKeyplaneView> initWithFrame(CGRect frame, UIKBTree* keyplane) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().keyplane = keyplane;
        self->ivars().keyViews = NSMutableArray::arrayWithCapacity(32);
        NSArray* keys = keyplane->subtrees();
        for (NSUInteger index = 0; index < keys->count(); ++index)
            self->add_view_of(static_cast<UIKBTree*>(keys->objectAtIndex(index)));
        return self;
    }

    UIKBTree* keyplane() { return ivars().keyplane; }
    UIKBRenderFactory* factory() {
        if (!ivars().factory) ivars().factory = sim::factory_of(ivars().keyplane);
        return ivars().factory;
    }

    UIView* viewForKey(UIKBTree* key) {
        NSArray* views = ivars().keyViews;
        for (NSUInteger index = 0; index < views->count(); ++index) {
            auto* view = static_cast<UIKBKeyView*>(views->objectAtIndex(index));
            if (view->key() == key) return view;
        }
        return nullptr;
    }

    void setState(int state, UIKBTree* key) {
        key->setState(state);
        static_cast<UIKBKeyView*>(self()->viewForKey(key))->prepareForDisplay();
    }

  private:
    void add_view_of(UIKBTree* key) {
        const auto kind = static_cast<sim::KeyKind>(key->displayType());
        if (kind == sim::KeyKind::indicator) {
            auto mark = UIKBBlurredKeyView::alloc()->initWithFrame(key->frame(), ivars().keyplane, key);
            if (mark) addSubview(mark);
            return;
        }
        if (kind == sim::KeyKind::categories) {
            auto bar =
                UIKeyboardEmojiCategoryBar::alloc()->initWithFrame(key->frame(), ivars().keyplane, key);
            if (bar) addSubview(bar);
            return;
        }
        CGRect frame = key->frame();
        frame.size.height += sim::room_below_cap;
        auto view = UIKBKeyView::alloc()->initWithFrame(frame, ivars().keyplane, key);
        view->setFactory(self()->factory());
        addSubview(view);
        ivars().keyViews->addObject(view);
    }
};

}  // namespace

using namespace objc::definition;
using Plane = KeyplaneView;

OBJC_CLASS(UIKBKeyplaneView, UIKBSplitImageView, KeyplaneView,
           ivar<"_keyplane", &Plane::Ivars::keyplane>,
           ivar<"_factory", &Plane::Ivars::factory>,
           ivar<"_keyViews", &Plane::Ivars::keyViews>,
           method<"initWithFrame:keyplane:", &Plane::initWithFrame>,
           method<"keyplane", &Plane::keyplane>,
           method<"factory", &Plane::factory>,
           method<"viewForKey:", &Plane::viewForKey>,
           method<"setState:forKey:", &Plane::setState>)
