// The anchors of views.
#pragma once
#include "uikit/UIView.h"
#include "uikit/layout/NSLayoutAnchor.h"

namespace sim {

template <class Anchor, NSLayoutAttribute Attribute>
Anchor* View::anchor() {
    return make_anchor<Anchor>(this, Attribute);
}

}  // namespace sim
