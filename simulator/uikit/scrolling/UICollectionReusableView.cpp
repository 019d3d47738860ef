// Views that a collection view uses again.
#include "objc/class.h"
#include "platform/scrolling.h"

namespace {

using objc::strong;

struct ReusableView : objc::Implements<ReusableView, UICollectionReusableView> {
    struct Ivars {
        strong<NSString> reuseIdentifier;
    };

    NSString* reuseIdentifier() { return ivars().reuseIdentifier; }
    void setReuseIdentifier(NSString* identifier) { ivars().reuseIdentifier = identifier; }
    void prepareForReuse() {}
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UICollectionReusableView, UIView, ReusableView,
           ivar<"_reuseIdentifier", &ReusableView::Ivars::reuseIdentifier>,
           method<"reuseIdentifier", &ReusableView::reuseIdentifier>,
           method<"_setReuseIdentifier:", &ReusableView::setReuseIdentifier>,
           method<"prepareForReuse", &ReusableView::prepareForReuse>)
