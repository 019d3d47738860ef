// The bar over the keyboard of a web form: a toolbar to go from field to field on the left, one to be done on
// the right.
#include "keyboard/UIToolbar.h"
#include "keyboard/glyph_image.h"
#include "keyboard/make.h"
#include "objc/class.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct WebFormAccessory : objc::Implements<WebFormAccessory, UIWebFormAccessory> {
    struct Ivars {
        strong<UIToolbar> leftToolbar, rightToolbar;
        strong<UILabel> done;
    };

    strong<UIWebFormAccessory> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars() = {self->add_toolbar(), self->add_toolbar(), sim::make_view<UILabel>()};
        for (sim::Glyph glyph : {sim::Glyph::previous, sim::Glyph::next}) {
            auto arrow = UIImageView::alloc()->initWithImage(sim::template_glyph_image(glyph, 24));
            self->ivars().leftToolbar->contentView()->addSubview(arrow);
        }
        UILabel* done = self->ivars().done;
        done->setText("Done"_ns);
        done->setFont(UIFont::systemFontOfSize(17, UIFontWeightSemibold));
        self->ivars().rightToolbar->contentView()->addSubview(done);
        return self;
    }

    void layoutSubviews() {
        super<"layoutSubviews">();
        const CGSize size = bounds().size;
        ivars().leftToolbar->setFrame({{0, 0}, {size.width - right_width, size.height}});
        ivars().rightToolbar->setFrame({{size.width - right_width, 0}, {right_width, size.height}});
        ivars().done->setTextColor(tintColor());
    }
    void tintColorDidChange() {
        super<"tintColorDidChange">();
        setNeedsLayout();
    }

  private:
    static constexpr CGFloat right_width = 72;

    strong<UIToolbar> add_toolbar() {
        auto bar = sim::make_view<UIToolbar>();
        addSubview(bar);
        return bar;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(UIWebFormAccessory, UIView, WebFormAccessory,
           ivar<"_leftToolbar", &WebFormAccessory::Ivars::leftToolbar>,
           ivar<"_rightToolbar", &WebFormAccessory::Ivars::rightToolbar>,
           ivar<"_doneLabel", &WebFormAccessory::Ivars::done>,
           method<"initWithFrame:", &WebFormAccessory::initWithFrame>,
           method<"layoutSubviews", &WebFormAccessory::layoutSubviews>,
           method<"tintColorDidChange", &WebFormAccessory::tintColorDidChange>)
