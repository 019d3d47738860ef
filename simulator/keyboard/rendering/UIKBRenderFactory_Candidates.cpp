// The factory of candidates. It answers two of the colours' names without asking its superclass: that the
// system's does not ask either, and which names these are, is the model's reading.
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "objc/class.h"

namespace {

using namespace objc::literals;

struct CandidatesFactory : objc::Implements<CandidatesFactory, UIKBRenderFactory_Candidates> {
    using Ivars = objc::NoIvars;

    NSString* controlKeyBackgroundColorName() {
        return light() ? "UIKBColorBlack_Alpha5"_ns : "UIKBColorWhite_Alpha12"_ns;
    }
    NSString* controlKeyForegroundColorName() {
        return light() ? "UIKBColorBlack_Alpha5"_ns : "UIKBColorBlack_Alpha10"_ns;
    }

  private:
    bool light() { return renderConfig()->lightKeyboard(); }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBRenderFactory_Candidates, UIKBRenderFactory, CandidatesFactory,
           method<"controlKeyBackgroundColorName", &CandidatesFactory::controlKeyBackgroundColorName>,
           method<"controlKeyForegroundColorName", &CandidatesFactory::controlKeyForegroundColorName>)
