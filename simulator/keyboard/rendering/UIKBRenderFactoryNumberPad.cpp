// The factory of the number pad. It answers two of the colours' names without asking its superclass: that the
// system's does not ask either, and which names these are, is the model's reading.
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "objc/class.h"

namespace {

using namespace objc::literals;

struct NumberPadFactory : objc::Implements<NumberPadFactory, UIKBRenderFactoryNumberPad> {
    using Ivars = objc::NoIvars;

    NSString* controlKeyBackgroundColorName() {
        return light() ? "UIKBColorKeyGrayKeyLightBackground"_ns : "UIKBColorWhite_Alpha12"_ns;
    }
    NSString* controlKeyForegroundColorName() {
        return light() ? "UIKBColorBlack_Alpha5"_ns : "UIKBColorBlack_Alpha10"_ns;
    }

  private:
    bool light() { return renderConfig()->lightKeyboard(); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBRenderFactoryNumberPad, UIKBRenderFactory, NumberPadFactory,
           method<"controlKeyBackgroundColorName", &NumberPadFactory::controlKeyBackgroundColorName>,
           method<"controlKeyForegroundColorName", &NumberPadFactory::controlKeyForegroundColorName>)
