// Rows of candidates, over a backdrop of the keyboard's style.
#include "keyboard/backdrops/backdrop_behind.h"
#include "keyboard/backdrops/backdrop_styles.h"
#include "keyboard/candidates/candidate_views.h"
#include "objc/class.h"

namespace {

struct CandidateGrid : objc::Implements<CandidateGrid, UIKeyboardCandidateGrid> {
    struct Ivars {
        objc::strong<UIKBBackdropView> backdropView;
    };

    objc::strong<UIKeyboardCandidateGrid> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().backdropView = sim::add_backdrop_behind(
            self->self(),
            UIKBRenderConfig::backdropStyle(sim::keyboard_style_light, sim::keyboard_quality_full));
        return self;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardCandidateGrid, UIView, CandidateGrid,
           ivar<"_backdropView", &CandidateGrid::Ivars::backdropView>,
           method<"initWithFrame:", &CandidateGrid::initWithFrame>)
