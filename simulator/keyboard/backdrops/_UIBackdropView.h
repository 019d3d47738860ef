// The parts of the system's backdrop: below the rest the effect, over it a tint.
#pragma once
#include "platform/keyboard.h"

/// The layer of a backdrop: a plain one, known by its class.
struct _UIBackdropViewLayer : objc::Interface<_UIBackdropViewLayer, "_UIBackdropViewLayer", CALayer> {};

/// Blurs what lies behind it: its layer is the one that does.
struct _UIBackdropEffectView : objc::Interface<_UIBackdropEffectView, "_UIBackdropEffectView", UIView> {};

namespace sim {

/// Cuts the blur of the backdrop to a rounded rectangle as large as the view. A mask of the backdrop's own
/// layer would leave it nothing to blur.
void round_blur(_UIBackdropView* view, CGFloat corner_radius);

}  // namespace sim
