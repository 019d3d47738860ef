// How a layer's space lies in its superlayer's.
#pragma once
#include "platform/quartzcore.h"

namespace sim {

/// From the layer's space, where its bounds are, to its superlayer's, where its frame is. Stops the process
/// for a transformation with depth or perspective.
CGAffineTransform to_superlayer(CALayer*);

/// From the space of one layer to that of another in the same tree; nil stands for the topmost layer's
/// superlayer. Flat transformations on the way answer nothing useful, and no error.
CGAffineTransform between(CALayer* from, CALayer* to);

CATransform3D to_3d(const CGAffineTransform&);
/// The flat part; stops the process for depth or perspective.
CGAffineTransform to_2d(const CATransform3D&);

}  // namespace sim
