// How a key's text or glyph is drawn.
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct TextStyle : objc::Implements<TextStyle, UIKBTextStyle> {
    struct Ivars {
        strong<NSString> fontName;
        CGFloat fontSize;
        strong<NSString> textColor;
    };

    strong<UIKBTextStyle> init() {
        auto self = initialised_by_super<"init">();
        if (self) self->ivars().textColor = "UIKBColorBlack"_ns;
        return self;
    }

    static UIKBTextStyle* style(Class, NSString* font_name, CGFloat font_size) {
        auto style = sim::make<UIKBTextStyle>();
        style->setFontName(font_name);
        style->setFontSize(font_size);
        return std::move(style).autoreleased();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIKBTextStyle, NSObject, TextStyle,
           property<"fontName", &TextStyle::Ivars::fontName>,
           property<"fontSize", &TextStyle::Ivars::fontSize>,
           property<"textColor", &TextStyle::Ivars::textColor>,
           method<"init", &TextStyle::init>,
           class_method<"styleWithFontName:withFontSize:", &TextStyle::style>)
