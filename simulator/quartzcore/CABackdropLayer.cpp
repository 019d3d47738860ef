// Layers that show what lies behind them, blurred. The renderer does it.
#include "quartzcore/CABackdropLayer.h"

#include "objc/class.h"

namespace {

struct BackdropLayer : objc::Implements<BackdropLayer, CABackdropLayer> {
    struct Ivars {
        CGFloat blurRadius;
    };
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(CABackdropLayer, CALayer, BackdropLayer, property<"blurRadius", &BackdropLayer::Ivars::blurRadius>)
