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
        strong<UILabel> emojiSectionHeader;
    };

    strong<UIKeyboardEmojiSectionHeader> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        auto label = sim::make_view<UILabel>(self->bounds());
        self->ivars().emojiSectionHeader = label;
        label->setAutoresizingMask(sim::follows_size);
        self->addSubview(label);
        self->setHeaderFontSize(12);
        self->setHeaderTextColor(UIColor::blackColor());
        self->setHeaderOpacity(0.5);
        self->setUseVibrantBlend(true);
        return self;
    }

    NSString* headerName() { return label()->text(); }
    void setHeaderName(NSString* name) { label()->setText(name); }
    CGFloat headerFontSize() { return label()->font()->pointSize(); }
    void setHeaderFontSize(CGFloat size) {
        label()->setFont(UIFont::systemFontOfSize(size, UIFontWeightSemibold));
    }
    UIColor* headerTextColor() { return label()->textColor(); }
    void setHeaderTextColor(UIColor* color) { label()->setTextColor(color); }
    double headerOpacity() { return label()->alpha(); }
    void setHeaderOpacity(double opacity) { label()->setAlpha(opacity); }
    bool useVibrantBlend() { return label()->layer()->compositingFilter() != nullptr; }
    void setUseVibrantBlend(bool vibrant) {
        label()->layer()->setCompositingFilter(vibrant ? "plusD"_ns : nullptr);
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        auto* self = static_cast<UIKeyboardEmojiSectionHeader*>(this);
        setHeaderTextColor(self->headerTextColor());
        setHeaderOpacity(self->headerOpacity());
        setUseVibrantBlend(self->useVibrantBlend());
    }

  private:
    UILabel* label() { return ivars().emojiSectionHeader; }
};

}  // namespace

using namespace objc::definition;
using Header = SectionHeader;

OBJC_CLASS(UIKeyboardEmojiSectionHeader, UICollectionReusableView, SectionHeader,
           ivar<"_emojiSectionHeader", &Header::Ivars::emojiSectionHeader>,
           method<"initWithFrame:", &Header::initWithFrame>,
           method<"headerName", &Header::headerName>,
           method<"setHeaderName:", &Header::setHeaderName>,
           method<"headerFontSize", &Header::headerFontSize>,
           method<"setHeaderFontSize:", &Header::setHeaderFontSize>,
           method<"headerTextColor", &Header::headerTextColor>,
           method<"setHeaderTextColor:", &Header::setHeaderTextColor>,
           method<"headerOpacity", &Header::headerOpacity>,
           method<"setHeaderOpacity:", &Header::setHeaderOpacity>,
           method<"useVibrantBlend", &Header::useVibrantBlend>,
           method<"setUseVibrantBlend:", &Header::setUseVibrantBlend>,
           method<"layoutSubviews", &Header::layoutSubviews>)
