// The factory of the emoji plane. It answers two of the colours' names without asking its superclass: that
// the system's does not ask either, and which names these are, is the model's reading.
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "objc/class.h"

namespace {

using namespace objc::literals;

struct EmojiFactory : objc::Implements<EmojiFactory, UIKBRenderFactory_Emoji> {
    using Ivars = objc::NoIvars;

    NSString* controlKeyBackgroundColorName() {
        return light() ? "UIKBColorBlack_Alpha10"_ns : "UIKBColorWhite_Alpha10"_ns;
    }
    NSString* defaultKeyBackgroundColorName() {
        return light() ? "UIKBColorBlack_Alpha10"_ns : "UIKBColorWhite_Alpha10"_ns;
    }

  private:
    bool light() { return renderConfig()->lightKeyboard(); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBRenderFactory_Emoji, UIKBRenderFactory, EmojiFactory,
           method<"controlKeyBackgroundColorName", &EmojiFactory::controlKeyBackgroundColorName>,
           method<"defaultKeyBackgroundColorName", &EmojiFactory::defaultKeyBackgroundColorName>)
