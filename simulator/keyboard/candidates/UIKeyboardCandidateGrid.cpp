// Rows of candidates, over a backdrop of the keyboard's style.
#include "keyboard/candidates/candidate_views.h"
#include "keyboard/candidates/over_backdrop.h"

namespace {

using CandidateGrid = sim::OverBackdrop<UIKeyboardCandidateGrid>;

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardCandidateGrid, UIView, CandidateGrid,
           ivar<"_backdropView", &CandidateGrid::Ivars::backdropView>,
           method<"initWithFrame:", &CandidateGrid::initWithFrame>)
