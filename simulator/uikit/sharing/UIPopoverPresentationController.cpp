// Where a popover points.
#include "objc/class.h"
#include "platform/sharing.h"

namespace {

struct Popover : objc::Implements<Popover, UIPopoverPresentationController> {
    struct Ivars {
        objc::strong<UIView> sourceView;
        CGRect sourceRect{};
        objc::strong<UIBarButtonItem> barButtonItem;
    };
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIPopoverPresentationController, NSObject, Popover,
           property<"sourceView", &Popover::Ivars::sourceView>,
           property<"sourceRect", &Popover::Ivars::sourceRect>,
           property<"barButtonItem", &Popover::Ivars::barButtonItem>)
