// What items of all bars have.
#include "objc/class.h"
#include "platform/navigation.h"

namespace {

struct BarItem : objc::Implements<BarItem, UIBarItem> {
    struct Ivars {
        NSInteger tag;
    };
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIBarItem, NSObject, BarItem, property<"tag", &BarItem::Ivars::tag>)
