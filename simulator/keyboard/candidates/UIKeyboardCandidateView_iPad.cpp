// Rows of candidates on a tablet, over an input backdrop: the keyboard's own kind, in pieces.
#include "keyboard/candidates/candidate_views.h"
#include "keyboard/make.h"
#include "objc/class.h"

namespace {

struct TabletCandidates : objc::Implements<TabletCandidates, UIKeyboardCandidateView_iPad> {
    struct Ivars {
        objc::strong<UIKBInputBackdropView> backdropView;
    };

    objc::strong<UIKeyboardCandidateView_iPad> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        const CGRect whole{{0, 0}, frame.size};
        auto backdrop = sim::make_view<UIKBInputBackdropView>(whole);
        self->ivars().backdropView = backdrop;
        backdrop->layoutToFull(whole);
        backdrop->setAutoresizingMask(sim::follows_size);
        self->self()->addSubview(backdrop);
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardCandidateView_iPad, UIView, TabletCandidates,
           ivar<"_backdropView", &TabletCandidates::Ivars::backdropView>,
           method<"initWithFrame:", &TabletCandidates::initWithFrame>)
