// A key of the emoji plane that is more than a key: in the model a key's view, known by its class.
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

struct EmojiKeyView : objc::Implements<EmojiKeyView, UIKeyboardEmojiKeyView> {
    using Ivars = objc::NoIvars;
};

}  // namespace

OBJC_CLASS(UIKeyboardEmojiKeyView, UIKBKeyView, EmojiKeyView, objc::Row)
