#include "settings/HCModalView.h"

#include "model/HCCITool.h"
#include "objc/class.h"
#include "settings/eclipse.h"
#include "settings/placement.h"

namespace {

using namespace objc::literals;
using objc::strong;
using settings::activate;
using settings::fix_size;
using settings::growing;

/// Between the card's edges, the content area and what is above and below it, in points.
constexpr CGFloat margin = 15;
constexpr CGFloat content_height = 300;
constexpr CGFloat button_height = 40;

UIFont* bold(UIFont* font, CGFloat size) {
    return UIFont::fontWithName(font->fontName()->stringByAppendingString("-Bold"_ns), size);
}

struct Panel : objc::Implements<Panel, HCModalView> {
    struct Ivars {
        strong<HCModalOptions> modalOptions;
        strong<UIView> contentView, topView;
        bool isEclipseEnabled;
        strong<UIColor> primaryColor, secondaryColor, primaryTextColor, secondaryTextColor;
        strong<UIView> shadowView, panelView;
        strong<UIButton> closeButton, selectButton;
        strong<UIView> extraTopView;
    };

    strong<HCModalView> initWithFrame(CGRect frame, HCModalOptions* options) {
        auto self = initialised_by_super<"initWithFrame:">(frame);
        if (!self) return nullptr;
        self->ivars().modalOptions = options;
        self->setBackgroundColor(UIColor::clearColor());
        self->ivars().isEclipseEnabled = settings::is_eclipse_enabled();
        self->choose_palette();
        self->self()->setupViews();
        self->self()->addSubviewsInOrder();
        self->self()->setupConstraints();
        self->self()->applyColor();
        return self;
    }

    void setupViews() {
        auto& own = ivars();
        HCModalOptions* options = own.modalOptions;
        const CGRect card = options->modalFrame();
        const double radius = options->cornerRadius();

        own.shadowView = UIView::alloc()->initWithFrame(card);
        own.shadowView->setBackgroundColor(UIColor::clearColor());
        own.shadowView->setClipsToBounds(false);
        CALayer* shadow = own.shadowView->layer();
        shadow->setShadowOffset({0, 0});
        shadow->setShadowRadius(10.0);
        shadow->setShadowOpacity(0.4f);
        shadow->setMasksToBounds(false);
        shadow->setShadowPath(
            UIBezierPath::bezierPathWithRoundedRect(own.shadowView->bounds(), radius)->CGPath());
        own.shadowView->setAutoresizingMask(growing);

        own.panelView = UIView::alloc()->initWithFrame(card);
        own.panelView->setClipsToBounds(true);
        own.panelView->layer()->setMasksToBounds(true);
        own.panelView->layer()->setCornerRadius(radius);
        own.panelView->setAutoresizingMask(growing);

        own.contentView = UIView::alloc()->initWithFrame({});
        own.contentView->layer()->setMasksToBounds(true);
        own.contentView->layer()->setCornerRadius(radius);
        own.contentView->layer()->setBorderWidth(1.5);

        own.closeButton = make_button(objc::selector<"closeButtonPressed">(), "X"_ns, 20.0, 20.0);
        own.selectButton =
            make_button(objc::selector<"selectButtonPressed">(), options->selectButtonTitle(), 14.0, 20.5);

        own.extraTopView = UIView::alloc()->initWithFrame({});
        own.extraTopView->layer()->setMasksToBounds(true);
        own.extraTopView->setClipsToBounds(true);
        own.extraTopView->layer()->setCornerRadius(20.0);
        own.extraTopView->setBackgroundColor(UIColor::clearColor());

        own.topView = UIView::alloc()->initWithFrame({});
        own.topView->layer()->setMasksToBounds(true);
        own.topView->layer()->setCornerRadius(20.0);
        own.topView->setAutoresizingMask(growing);
    }

    void addSubviewsInOrder() {
        auto& own = ivars();
        insertSubview(own.shadowView, 0);
        insertSubview(own.panelView, 1);
        own.panelView->addSubview(own.contentView);
        own.panelView->addSubview(own.closeButton);
        own.panelView->addSubview(own.selectButton);
        own.panelView->addSubview(own.extraTopView);
        own.extraTopView->addSubview(own.topView);
    }

    void setupConstraints() {
        auto& own = ivars();
        UIView *card = own.panelView, *content = own.contentView, *close = own.closeButton,
               *select = own.selectButton, *strip = own.extraTopView;
        for (UIView* view : {content, close, select, strip})
            view->setTranslatesAutoresizingMaskIntoConstraints(false);
        const CGFloat content_width = own.modalOptions->modalFrame().size.width - 2 * margin;

        fix_size(content, {content_width, content_height});
        activate(content->leftAnchor()->constraintEqualToAnchor(card->leftAnchor(), margin));
        activate(content->centerYAnchor()->constraintEqualToAnchor(card->centerYAnchor()));

        fix_size(close, {40, button_height});
        activate(close->leftAnchor()->constraintEqualToAnchor(card->leftAnchor(), margin));
        activate(close->bottomAnchor()->constraintEqualToAnchor(content->topAnchor(), -margin));

        fix_size(select, {70, button_height});
        activate(select->centerXAnchor()->constraintEqualToAnchor(card->centerXAnchor(), 0));
        activate(select->topAnchor()->constraintEqualToAnchor(content->bottomAnchor(), margin));

        activate(strip->leftAnchor()->constraintEqualToAnchor(card->leftAnchor(), 70));
        activate(strip->rightAnchor()->constraintEqualToAnchor(card->rightAnchor(), -margin));
        activate(strip->bottomAnchor()->constraintEqualToAnchor(content->topAnchor(), -margin));
        activate(strip->heightAnchor()->constraintEqualToConstant(button_height));
    }

    void applyColor() {
        auto& own = ivars();
        const bool light = own.isEclipseEnabled || own.modalOptions->lightUI();
        UIColor* front = light ? own.secondaryColor : own.primaryColor;
        UIColor* back = light ? own.primaryColor : own.secondaryColor;
        UIColor* title = light ? own.secondaryTextColor : own.primaryTextColor;

        own.shadowView->layer()->setShadowColor(front->CGColor());
        own.panelView->layer()->setBackgroundColor(back->CGColor());
        own.contentView->layer()->setBorderColor(front->CGColor());
        for (UIButton* button : {own.closeButton.get(), own.selectButton.get()}) {
            button->setBackgroundColor(front);
            button->setTitleColor(title, UIControlStateNormal);
            button->setTitleColor(title->colorWithAlphaComponent(0.6f), UIControlStateHighlighted);
        }
    }

  private:
    void choose_palette() {
        auto& own = ivars();
        const bool eclipse = own.isEclipseEnabled;
        NSString* primary = eclipse ? "212121"_ns : "ECECEC"_ns;
        NSString* secondary = eclipse ? "616161"_ns : "22313F"_ns;
        own.primaryColor = HCCITool::colorFromHexString(primary);
        own.secondaryColor = HCCITool::colorFromHexString(secondary);
        // Crosswise: text stands on the other colour.
        own.primaryTextColor = HCCITool::colorFromHexString(secondary);
        own.secondaryTextColor = HCCITool::colorFromHexString(primary);
    }

    /// The delegate is the target itself: the panel takes no part in the press.
    UIButton* make_button(SEL action, NSString* title, CGFloat font_size, CGFloat radius) {
        UIButton* button = UIButton::buttonWithType(UIButtonTypeCustom);
        button->addTarget(ivars().modalOptions->delegate(), action, UIControlEventTouchUpInside);
        button->setTitle(title, UIControlStateNormal);
        button->layer()->setMasksToBounds(true);
        button->layer()->setCornerRadius(radius);
        button->titleLabel()->setFont(bold(button->titleLabel()->font(), font_size));
        return button;
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS(HCModalView, UIView, Panel,
           // Properties
           property<"modalOptions", &Panel::Ivars::modalOptions>,
           property<"contentView", &Panel::Ivars::contentView>,
           property<"topView", &Panel::Ivars::topView>,
           property<"isEclipseEnabled", &Panel::Ivars::isEclipseEnabled>,
           property<"primaryColor", &Panel::Ivars::primaryColor>,
           property<"secondaryColor", &Panel::Ivars::secondaryColor>,
           property<"primaryTextColor", &Panel::Ivars::primaryTextColor>,
           property<"secondaryTextColor", &Panel::Ivars::secondaryTextColor>,
           property<"shadowView", &Panel::Ivars::shadowView>,
           property<"panelView", &Panel::Ivars::panelView>,
           property<"closeButton", &Panel::Ivars::closeButton>,
           property<"selectButton", &Panel::Ivars::selectButton>,
           property<"extraTopView", &Panel::Ivars::extraTopView>,

           // Building
           method<"initWithFrame:modalOptions:", &Panel::initWithFrame>,
           method<"setupViews", &Panel::setupViews>,
           method<"addSubviewsInOrder", &Panel::addSubviewsInOrder>,
           method<"setupConstraints", &Panel::setupConstraints>,
           method<"applyColor", &Panel::applyColor>)
