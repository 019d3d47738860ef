// Gradients: colours along a line.
#pragma once
#include "coregraphics/cairo_handles.h"
#include "platform/coregraphics.h"
#include "platform/foundation.h"

struct CGGradient : objc::Interface<CGGradient, "CGGradient", NSObject> {};
