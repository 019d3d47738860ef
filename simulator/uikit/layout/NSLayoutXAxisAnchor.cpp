// Anchors of positions across the screen.
#include "uikit/layout/NSLayoutAnchor.h"

namespace {

struct XAxisAnchor : objc::Implements<XAxisAnchor, NSLayoutXAxisAnchor> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(NSLayoutXAxisAnchor, NSLayoutAnchor, XAxisAnchor, objc::Row)
