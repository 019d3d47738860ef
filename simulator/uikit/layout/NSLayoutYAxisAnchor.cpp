// Anchors of positions down the screen.
#include "uikit/layout/NSLayoutAnchor.h"

namespace {

struct YAxisAnchor : objc::Implements<YAxisAnchor, NSLayoutYAxisAnchor> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(NSLayoutYAxisAnchor, NSLayoutAnchor, YAxisAnchor, objc::Row)
