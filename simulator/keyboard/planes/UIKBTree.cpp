// A keyboard's description of itself: keyboard, key planes, keys.
#include "keyboard/planes/key_kind.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct Tree : objc::Implements<Tree, UIKBTree> {
    struct Ivars {
        int type;
        strong<NSString> name, displayString, representedString;
        int displayType, state, visualStyle;
        CGRect frame;
        strong<NSMutableArray> subtrees;
    };

    strong<UIKBTree> initWithType(int type) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().type = type;
        self->ivars().state = static_cast<int>(sim::KeyState::enabled);
        self->ivars().subtrees = NSMutableArray::arrayWithCapacity(4);
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBTree, NSObject, Tree,
           property<"type", &Tree::Ivars::type>,
           property<"name", &Tree::Ivars::name>,
           property<"displayString", &Tree::Ivars::displayString>,
           property<"representedString", &Tree::Ivars::representedString>,
           property<"displayType", &Tree::Ivars::displayType>,
           property<"state", &Tree::Ivars::state>,
           property<"visualStyle", &Tree::Ivars::visualStyle>,
           property<"frame", &Tree::Ivars::frame>,
           property<"subtrees", &Tree::Ivars::subtrees>,
           method<"initWithType:", &Tree::initWithType>)
