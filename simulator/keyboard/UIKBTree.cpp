// A keyboard's description of itself: keyboard, key planes, keys.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct Tree : objc::Implements<Tree, UIKBTree> {
    struct Ivars {
        NSInteger type;
        strong<NSString> name, displayString, representedString;
        NSInteger displayType;
        CGRect frame;
        strong<NSMutableArray> subtrees;
    };

    strong<UIKBTree> initWithType(NSInteger type) {
        auto self = initialised_by_super<"init">();
        if (!self) return nullptr;
        self->ivars().type = type;
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
           property<"frame", &Tree::Ivars::frame>,
           property<"subtrees", &Tree::Ivars::subtrees>,
           method<"initWithType:", &Tree::initWithType>)
