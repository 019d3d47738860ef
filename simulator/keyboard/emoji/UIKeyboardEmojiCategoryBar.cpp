// The row of category symbols below the emoji: a key, which draws all symbols into one layer, and a view
// behind the selected one, the disc that a finger moves.
#include "keyboard/make.h"
#include "keyboard/rendering/key_symbols.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct CategoryBar : objc::Implements<CategoryBar, UIKeyboardEmojiCategoryBar> {
    struct Ivars {
        strong<UIView> scrubView;
        NSUInteger selectedIndex;
    };

    strong<UIKeyboardEmojiCategoryBar> initWithFrame(CGRect frame, UIKBTree* keyplane, UIKBTree* key) {
        auto self = initialised_by_super<"initWithFrame:keyplane:key:">(frame, keyplane, key);
        if (!self) return nullptr;
        auto disc = sim::make_view<UIView>();
        disc->layer()->setCornerRadius(disc_size / 2);
        disc->setBackgroundColor(UIColor::colorWithWhite(0, 0.15));
        disc->layer()->setCompositingFilter("plusD"_ns);
        self->ivars().scrubView = disc;
        self->addSubview(disc);
        self->setSelectedIndex(0);
        return self;
    }

    NSUInteger selectedIndex() { return ivars().selectedIndex; }
    void setSelectedIndex(NSUInteger index) {
        ivars().selectedIndex = index;
        const CGPoint middle = sim::middle_of_category(index, bounds());
        ivars().scrubView->setFrame(
            {{middle.x - disc_size / 2, middle.y - disc_size / 2}, {disc_size, disc_size}});
    }

  private:
    static constexpr CGFloat disc_size = 28;
};

}  // namespace

using namespace objc::definition;
using Bar = CategoryBar;

OBJC_CLASS(UIKeyboardEmojiCategoryBar, UIKeyboardEmojiKeyView, CategoryBar,
           property<"scrubView", &Bar::Ivars::scrubView>,
           ivar<"_selectedIndex", &Bar::Ivars::selectedIndex>,
           method<"initWithFrame:keyplane:key:", &Bar::initWithFrame>,
           method<"selectedIndex", &Bar::selectedIndex>,
           method<"setSelectedIndex:", &Bar::setSelectedIndex>)
