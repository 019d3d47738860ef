// The bar over the keyboard of a web form: a toolbar to go from field to field on the left, one to be done on
// the right. It is the one class of the system that answers initForUCB:.
#include "keyboard/form/UIToolbar.h"
#include "keyboard/glyph_image.h"
#include "keyboard/make.h"
#include "objc/class.h"

namespace {

using objc::strong;
using namespace objc::literals;

struct WebFormAccessory : objc::Implements<WebFormAccessory, UIWebFormAccessory> {
    struct Ivars {
        strong<UIToolbar> leftToolbar, rightToolbar;
        bool usesUCB;
    };

    strong<UIWebFormAccessory> initWithFrame(CGRect frame) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars() = {self->add_toolbar(), self->add_toolbar(), false};
        for (sim::Glyph glyph : {sim::Glyph::previous, sim::Glyph::next}) {
            auto arrow = UIImageView::alloc()->initWithImage(sim::template_glyph_image(glyph, 24));
            sim::buttons_of(self->ivars().leftToolbar)->addSubview(arrow);
        }
        auto done = sim::make_view<UILabel>();
        done->setText("Done"_ns);
        done->setFont(UIFont::systemFontOfSize(17, UIFontWeightSemibold));
        sim::buttons_of(self->ivars().rightToolbar)->addSubview(done);
        return self;
    }

    // Takes an object and answers nothing, its name notwithstanding.
    void initForUCB(id) { ivars().usesUCB = true; }

    void layoutSubviews() {
        super<"layoutSubviews">();
        const CGSize size = bounds().size;
        ivars().leftToolbar->setFrame({{0, 0}, {size.width - right_width, size.height}});
        ivars().rightToolbar->setFrame({{size.width - right_width, 0}, {right_width, size.height}});
        NSArray* buttons = sim::buttons_of(ivars().rightToolbar)->subviews();
        for (NSUInteger index = 0; index < buttons->count(); ++index)
            if (auto* done = as<UILabel>(buttons->objectAtIndex(index))) done->setTextColor(tintColor());
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

OBJC_CLASS(UIWebFormAccessory, UIInputView, WebFormAccessory,
           ivar<"_leftToolbar", &WebFormAccessory::Ivars::leftToolbar>,
           ivar<"_rightToolbar", &WebFormAccessory::Ivars::rightToolbar>,
           ivar<"_usesUCB", &WebFormAccessory::Ivars::usesUCB>,
           method<"initWithFrame:", &WebFormAccessory::initWithFrame>,
           method<"initForUCB:", &WebFormAccessory::initForUCB>,
           method<"layoutSubviews", &WebFormAccessory::layoutSubviews>,
           method<"tintColorDidChange", &WebFormAccessory::tintColorDidChange>)
