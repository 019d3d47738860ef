// The view that holds a keyboard, what is above it and what is behind it.
#pragma once
#include "platform/uikit.h"

struct UIInputSetHostView : objc::Interface<UIInputSetHostView, "UIInputSetHostView", UIView> {};
