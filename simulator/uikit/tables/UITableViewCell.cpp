// Rows of tables: a text, and at the right end an accessory.
#include "objc/class.h"
#include "platform/tables.h"

namespace {

using objc::strong;

struct Cell : objc::Implements<Cell, UITableViewCell> {
    struct Ivars {
        strong<NSString> reuseIdentifier;
        strong<UIView> contentView;
        strong<UILabel> textLabel;
        strong<UIView> accessoryView;
        bool selected;
    };

    static constexpr CGFloat margin = 16, text_size = 17;

    // The style decides about a second text, which the model does not have.
    strong<UITableViewCell> initWithStyle(NSInteger, NSString* reuse_identifier) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{});
        if (!self) return nullptr;
        self->ivars().reuseIdentifier = reuse_identifier;
        self->ivars().contentView = UIView::alloc()->initWithFrame({});
        static_cast<UIView*>(self.get())->addSubview(self->ivars().contentView);
        return self;
    }

    NSString* reuseIdentifier() { return ivars().reuseIdentifier; }
    UIView* contentView() { return ivars().contentView; }

    UILabel* textLabel() {
        strong<UILabel>& label = ivars().textLabel;
        if (!label) {
            label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
            label->setFont(UIFont::systemFontOfSize(text_size));
            ivars().contentView->addSubview(label);
            self()->setNeedsLayout();
        }
        return label;
    }

    UIView* accessoryView() { return ivars().accessoryView; }
    void setAccessoryView(UIView* view) {
        ivars().accessoryView->removeFromSuperview();
        ivars().accessoryView = view;
        if (view) self()->addSubview(view);
        self()->setNeedsLayout();
    }

    bool isSelected() { return ivars().selected; }
    void setSelected(bool selected, bool) { ivars().selected = selected; }

    void layoutSubviews() {
        super<"layoutSubviews">();
        const CGSize size = self()->bounds().size;
        const CGSize mark = ivars().accessoryView->bounds().size;
        const CGFloat content_end = size.width - (ivars().accessoryView ? margin + mark.width : 0);
        ivars().accessoryView->setFrame({{content_end, (size.height - mark.height) / 2}, mark});
        ivars().contentView->setFrame({{0, 0}, {content_end, size.height}});
        ivars().textLabel->setFrame({{margin, 0}, {content_end - 2 * margin, size.height}});
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UITableViewCell, UIView, Cell,
           ivar<"_reuseIdentifier", &Cell::Ivars::reuseIdentifier>,
           ivar<"_contentView", &Cell::Ivars::contentView>,
           ivar<"_textLabel", &Cell::Ivars::textLabel>,
           ivar<"_accessoryView", &Cell::Ivars::accessoryView>,
           ivar<"_selected", &Cell::Ivars::selected>,
           method<"initWithStyle:reuseIdentifier:", &Cell::initWithStyle>,
           method<"reuseIdentifier", &Cell::reuseIdentifier>,
           method<"contentView", &Cell::contentView>,
           method<"textLabel", &Cell::textLabel>,
           method<"accessoryView", &Cell::accessoryView>,
           method<"setAccessoryView:", &Cell::setAccessoryView>,
           method<"isSelected", &Cell::isSelected>,
           method<"setSelected:animated:", &Cell::setSelected>,
           method<"layoutSubviews", &Cell::layoutSubviews>)
