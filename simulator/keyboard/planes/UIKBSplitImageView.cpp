// What a key plane's view is based on: in the model a plain view.
#include "keyboard/planes/UIKBSplitImageView.h"

#include "objc/class.h"

namespace {

struct SplitImageView : objc::Implements<SplitImageView, UIKBSplitImageView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIKBSplitImageView, UIView, SplitImageView, objc::Row)
