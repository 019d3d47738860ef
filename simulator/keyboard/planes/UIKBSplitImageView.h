// What a key plane's view is based on.
#pragma once
#include "platform/uikit.h"

struct UIKBSplitImageView : objc::Interface<UIKBSplitImageView, "UIKBSplitImageView", UIView> {};
