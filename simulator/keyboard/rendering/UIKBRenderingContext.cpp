// What a factory draws for: in the model its configuration alone.
#include "keyboard/make.h"
#include "keyboard/rendering/UIKBRenderFactory.h"
#include "objc/class.h"

namespace {

struct RenderingContext : objc::Implements<RenderingContext, UIKBRenderingContext> {
    struct Ivars {
        objc::strong<UIKBRenderConfig> renderConfig;
    };

    static UIKBRenderingContext* forConfig(Class, UIKBRenderConfig* config) {
        auto context = sim::make<UIKBRenderingContext>();
        context->send<"setRenderConfig:">(config);
        return std::move(context).autoreleased();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBRenderingContext, NSObject, RenderingContext,
           property<"renderConfig", &RenderingContext::Ivars::renderConfig>,
           class_method<"renderingContextForRenderConfig:", &RenderingContext::forConfig>)
