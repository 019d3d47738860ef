// The title over a grid's rows of candidates, over a backdrop of the keyboard's style.
#include "keyboard/candidates/candidate_views.h"
#include "keyboard/candidates/over_backdrop.h"

namespace {

using GridHeader = sim::OverBackdrop<UIKeyboardCandidateGridHeader>;

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKeyboardCandidateGridHeader, UIView, GridHeader,
           ivar<"_backdropView", &GridHeader::Ivars::backdropView>,
           method<"initWithFrame:", &GridHeader::initWithFrame>)
