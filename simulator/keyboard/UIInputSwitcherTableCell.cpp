// One keyboard in the input switcher's list: its name and, for the one in use, a mark in the tint colour.
#include "keyboard/glyph_image.h"
#include "keyboard/make.h"
#include "objc/class.h"
#include "platform/keyboard.h"

namespace {

using objc::strong;

struct SwitcherCell : objc::Implements<SwitcherCell, UIInputSwitcherTableCell> {
    struct Ivars {
        NSInteger style;
        strong<NSString> reuseIdentifier;
        strong<UILabel> textLabel;
        strong<UIImageView> mark;
    };

    strong<UIInputSwitcherTableCell> initWithStyle(NSInteger style, NSString* reuse_identifier) {
        auto self = initialised_by_super<"initWithFrame:">(CGRect{});
        if (!self) return nullptr;
        Ivars& ivars = self->ivars();
        ivars.style = style;
        ivars.reuseIdentifier = reuse_identifier;
        ivars.textLabel = sim::make_view<UILabel>();
        ivars.textLabel->setFont(UIFont::systemFontOfSize(17));
        self->addSubview(ivars.textLabel);
        ivars.mark =
            UIImageView::alloc()->initWithImage(sim::template_glyph_image(sim::Glyph::check, mark_size));
        ivars.mark->setHidden(true);
        self->addSubview(ivars.mark);
        return self;
    }

    bool isChecked() { return !ivars().mark->isHidden(); }
    void setChecked(bool checked) { ivars().mark->setHidden(!checked); }

    void layoutSubviews() {
        super<"layoutSubviews">();
        const CGSize size = bounds().size;
        ivars().textLabel->setFrame({{margin, 0}, {size.width - 3 * margin - mark_size, size.height}});
        ivars().mark->setFrame(
            {{size.width - margin - mark_size, (size.height - mark_size) / 2}, {mark_size, mark_size}});
    }

  private:
    static constexpr CGFloat margin = 16, mark_size = 20;
};

}  // namespace

using namespace objc::definition;
using Cell = SwitcherCell;

OBJC_CLASS(UIInputSwitcherTableCell, UIView, SwitcherCell,
           property<"style", &Cell::Ivars::style>,
           property<"reuseIdentifier", &Cell::Ivars::reuseIdentifier>,
           property<"textLabel", &Cell::Ivars::textLabel>,
           ivar<"_mark", &Cell::Ivars::mark>,
           method<"initWithStyle:reuseIdentifier:", &Cell::initWithStyle>,
           method<"isChecked", &Cell::isChecked>,
           method<"setChecked:", &Cell::setChecked>,
           method<"layoutSubviews", &Cell::layoutSubviews>)
