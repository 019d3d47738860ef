// What stands above and below sections.
#include "objc/class.h"
#include "platform/tables.h"

namespace {

using objc::strong;

struct HeaderFooter : objc::Implements<HeaderFooter, UITableViewHeaderFooterView> {
    struct Ivars {
        strong<NSString> reuseIdentifier;
        strong<UIView> contentView;
        strong<UILabel> textLabel;
    };

    strong<UITableViewHeaderFooterView> initWithReuseIdentifier(NSString* identifier) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{});
        if (!self) return nullptr;
        self->ivars().reuseIdentifier = identifier;
        self->ivars().contentView = UIView::alloc()->initWithFrame({});
        static_cast<UIView*>(self.get())->addSubview(self->ivars().contentView);
        return strong<UITableViewHeaderFooterView>(self.get());
    }

    NSString* reuseIdentifier() { return ivars().reuseIdentifier; }
    void prepareForReuse() {}
    UIView* contentView() { return ivars().contentView; }
    UILabel* textLabel() {
        auto& label = ivars().textLabel;
        if (!label) {
            label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
            ivars().contentView->addSubview(label);
        }
        return label;
    }
    void layoutSubviews() {
        super<"layoutSubviews">();
        ivars().contentView->setFrame(self()->bounds());
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UITableViewHeaderFooterView, UIView, HeaderFooter,
           ivar<"_reuseIdentifier", &HeaderFooter::Ivars::reuseIdentifier>,
           ivar<"_contentView", &HeaderFooter::Ivars::contentView>,
           ivar<"_textLabel", &HeaderFooter::Ivars::textLabel>,
           method<"initWithReuseIdentifier:", &HeaderFooter::initWithReuseIdentifier>,
           method<"reuseIdentifier", &HeaderFooter::reuseIdentifier>,
           method<"prepareForReuse", &HeaderFooter::prepareForReuse>,
           method<"contentView", &HeaderFooter::contentView>,
           method<"textLabel", &HeaderFooter::textLabel>,
           method<"layoutSubviews", &HeaderFooter::layoutSubviews>)
