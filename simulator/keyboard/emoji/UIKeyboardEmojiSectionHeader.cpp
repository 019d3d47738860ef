// The title over a section of the emoji plane. What it draws with it asks of itself, so that a replaced
// getter is heard.
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct SectionHeader : objc::Implements<SectionHeader, UIKeyboardEmojiSectionHeader> {
    struct Ivars {
        strong<UIColor> headerTextColor;
        double headerOpacity;
        bool useVibrantBlend;
        strong<UILabel> label;
    };

    strong<UIKeyboardEmojiSectionHeader> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto label = sim::make_view<UILabel>(self->bounds());
        self->ivars().label = label;
        label->setFont(UIFont::systemFontOfSize(12, UIFontWeightSemibold));
        label->setAutoresizingMask(sim::follows_size);
        self->addSubview(label);
        self->setHeaderTextColor(UIColor::blackColor());
        self->setHeaderOpacity(0.5);
        self->setUseVibrantBlend(true);
        return self;
    }

    NSString* headerName() { return ivars().label->text(); }
    void setHeaderName(NSString* name) { ivars().label->setText(name); }

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIKeyboardEmojiSectionHeader*>(this);
        UILabel* label = ivars().label;
        label->setTextColor(self->headerTextColor());
        label->setAlpha(self->headerOpacity());
        label->layer()->setCompositingFilter(self->useVibrantBlend() ? "plusD"_ns : nullptr);
    }
};

}  // namespace

using namespace objc::definition;
using Header = SectionHeader;

OBJC_CLASS(UIKeyboardEmojiSectionHeader, UIView, SectionHeader,
           property<"headerTextColor", &Header::Ivars::headerTextColor>,
           property<"headerOpacity", &Header::Ivars::headerOpacity>,
           property<"useVibrantBlend", &Header::Ivars::useVibrantBlend>,
           ivar<"_label", &Header::Ivars::label>,
           method<"initWithFrame:", &Header::initWithFrame>,
           method<"headerName", &Header::headerName>,
           method<"setHeaderName:", &Header::setHeaderName>,
           method<"layoutSubviews", &Header::layoutSubviews>)
