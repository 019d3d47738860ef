// A view that shows effects, and what is put into its content view over them. It raises when a view is added
// to it instead, as applications are reported to end on systems from 11 on.
#include "uikit/effects/UIVisualEffectView.h"

#include "foundation/raise.h"
#include "objc/class.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct VisualEffectView : objc::Implements<VisualEffectView, UIVisualEffectView> {
    struct Ivars {
        strong<UIView> backgroundHost, contentView;
    };

    strong<UIVisualEffectView> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars() = {self->add_part(), self->add_part()};
        return self;
    }

    UIView* contentView() { return ivars().contentView; }

    void addSubview(UIView* view) { refuse(view); }
    void insertSubview(UIView* view, NSInteger) { refuse(view); }
    void insertSubviewBeside(UIView* view, UIView*) { refuse(view); }

  private:
    strong<UIView> add_part() {
        auto part = UIView::alloc()->initWithFrame(bounds());
        part->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        super<"addSubview:">(part.get());
        return part;
    }

    [[noreturn]] void refuse(UIView* view) {
        sim::raise("NSInternalInconsistencyException"_ns, std::string("a ") + object_getClassName(view) +
                                                              " was added to a " + object_getClassName(this) +
                                                              " itself, instead of to its contentView");
    }
};

}  // namespace

namespace sim {

void show_effect(UIVisualEffectView* view, UIColor* color) {
    static_cast<VisualEffectView*>(view)->ivars().backgroundHost->setBackgroundColor(color);
}

}  // namespace sim

using namespace objc::definition;
using Effect = VisualEffectView;

OBJC_CLASS(UIVisualEffectView, UIView, VisualEffectView,
           ivar<"_backgroundHost", &Effect::Ivars::backgroundHost>,
           ivar<"_contentHost", &Effect::Ivars::contentView>,
           method<"initWithFrame:", &Effect::initWithFrame>,
           method<"contentView", &Effect::contentView>,
           method<"addSubview:", &Effect::addSubview>,
           method<"insertSubview:atIndex:", &Effect::insertSubview>,
           method<"insertSubview:belowSubview:", &Effect::insertSubviewBeside>,
           method<"insertSubview:aboveSubview:", &Effect::insertSubviewBeside>)
