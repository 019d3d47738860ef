// Navigation bars: the title in the middle, the way back and the top controller's buttons at the ends.
#include "uikit/navigation/UINavigationBar.h"

#include <algorithm>
#include <cmath>

#include "objc/string.h"
#include "uikit/navigation/UIBarButtonItem.h"

namespace sim {

using objc::strong;
using namespace objc::literals;

namespace {

constexpr CGFloat edge = 16, back_edge = 8, gap = 16, text_size = 17;
/// A title longer than this makes the button say "Back".
constexpr CGFloat longest_back_title = 120;

UIImage* chevron() {
    UIGraphicsBeginImageContextWithOptions({13, 21}, false, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextSetStrokeColorWithColor(context, UIColor::blackColor()->CGColor());
    CGContextSetLineWidth(context, 3);
    CGContextMoveToPoint(context, 11.5, 1);
    CGContextAddLineToPoint(context, 2.5, 10.5);
    CGContextAddLineToPoint(context, 11.5, 20);
    CGContextStrokePath(context);
    UIImage* image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

UIImage* mirrored(UIImage* image) {
    const CGSize size = image->size();
    UIGraphicsBeginImageContextWithOptions(size, false, 0);
    CGContextRef context = UIGraphicsGetCurrentContext();
    CGContextTranslateCTM(context, size.width, 0);
    CGContextScaleCTM(context, -1, 1);
    image->drawAtPoint({0, 0});
    UIImage* turned = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return turned->imageWithRenderingMode(UIImageRenderingModeAlwaysTemplate);
}

bool runs_leftwards(UIView* view) {
    return view->effectiveUserInterfaceLayoutDirection() == UIUserInterfaceLayoutDirectionRightToLeft;
}

}  // namespace

strong<UINavigationBar> NavigationBar::initWithFrame(CGRect frame) {
    auto self = initialised_by_super<"initWithFrame:">(frame);
    if (!self) return nullptr;
    auto& parts = self->ivars();
    parts.background = UIView::alloc()->initWithFrame({});
    parts.background->setBackgroundColor(UIColor::colorWithWhite(0.975, 1));
    parts.shadow = UIView::alloc()->initWithFrame({});
    parts.shadow->setBackgroundColor(UIColor::colorWithWhite(0, 0.3));
    auto* view = static_cast<UIView*>(self.get());
    for (UIView* part : {parts.background.get(), parts.shadow.get()}) {
        part->setUserInteractionEnabled(false);
        view->addSubview(part);
    }
    return strong<UINavigationBar>(self.get());
}

void NavigationBar::show(const std::vector<strong<UIViewController>>& controllers) {
    for (UINavigationItem* item : ivars().items)
        item->send<"_setNavigationBar:">(static_cast<UIView*>(nullptr));
    ivars().items.clear();
    for (UIViewController* controller : controllers) {
        UINavigationItem* item = controller->navigationItem();
        item->send<"_setNavigationBar:">(static_cast<UIView*>(self()));
        ivars().items.emplace_back(item);
    }
    items_changed();
}

UINavigationItem* NavigationBar::topItem() {
    return ivars().items.empty() ? nullptr : ivars().items.back().get();
}
UINavigationItem* NavigationBar::backItem() {
    const auto& items = ivars().items;
    return items.size() < 2 ? nullptr : items[items.size() - 2].get();
}
NSArray* NavigationBar::items() {
    NSMutableArray* list = NSMutableArray::arrayWithCapacity(ivars().items.size());
    for (UINavigationItem* item : ivars().items) list->addObject(item);
    return list;
}

void NavigationBar::items_changed() {
    ivars().is_built = false;
    self()->setNeedsLayout();
}

void NavigationBar::go_back() { ivars().controller->popViewController(true); }

strong<UIView> NavigationBar::back_button(UINavigationItem* back, UINavigationItem*) {
    UIBarButtonItem* own = back->backBarButtonItem();
    NSString* title = own ? own->title() : back->title();
    UIButton* button = UIButton::buttonWithType(UIButtonTypeSystem);
    button->titleLabel()->setFont(UIFont::systemFontOfSize(text_size));
    button->setTitle(title, UIControlStateNormal);
    if (!own && (!title->length() || button->titleLabel()->sizeThatFits({}).width > longest_back_title))
        button->setTitle("Back"_ns, UIControlStateNormal);
    if (runs_leftwards(self())) {
        // Buttons have their image at the left: here it stands behind the title.
        auto arrow = UIImageView::alloc()->initWithImage(mirrored(chevron()));
        const CGSize size = arrow->bounds().size;
        button->setContentEdgeInsets({0, 0, 0, size.width});
        arrow->setFrame({{button->sizeThatFits({}).width - size.width, (height - size.height) / 2}, size});
        button->addSubview(arrow);
    } else
        button->setImage(chevron(), UIControlStateNormal);
    button->setFrame({{0, 0}, {button->sizeThatFits({}).width, height}});
    button->addTarget(self(), objc::selector<"_goBack">(), UIControlEventTouchUpInside);
    return strong<UIView>(button);
}

void NavigationBar::add(NSArray* items, std::vector<strong<UIView>>& side) {
    for (NSUInteger i = 0; i < items->count(); ++i) {
        auto* item = static_cast<BarButtonItem*>(static_cast<UIBarButtonItem*>(items->objectAtIndex(i)));
        if (auto view = item->make_view(self())) side.push_back(std::move(view));
    }
}

void NavigationBar::build() {
    auto& parts = ivars();
    parts.is_built = true;
    for (auto* side : {&parts.left, &parts.right}) {
        for (UIView* view : *side) view->removeFromSuperview();
        side->clear();
    }
    parts.title->removeFromSuperview();
    parts.title = nullptr;
    auto* self = this->self();
    UINavigationItem* top = self->topItem();
    if (!top) return;
    if (UINavigationItem* back = self->backItem();
        back && !top->hidesBackButton() && !top->leftBarButtonItems()->count())
        parts.left.push_back(back_button(back, top));
    add(top->leftBarButtonItems(), parts.left);
    add(top->rightBarButtonItems(), parts.right);
    if (UIView* own = top->titleView())
        parts.title = own;
    else {
        auto label = objc::adopt(static_cast<UILabel*>(UILabel::alloc()->initWithFrame({}).leak()));
        label->setFont(UIFont::systemFontOfSize(text_size, UIFontWeightSemibold));
        label->setText(top->title());
        label->setTextAlignment(NSTextAlignmentCenter);
        label->setAccessibilityTraits(UIAccessibilityTraitHeader);
        parts.title = strong<UIView>(label.get());
    }
    for (auto* side : {&parts.left, &parts.right})
        for (UIView* view : *side) self->addSubview(view);
    self->addSubview(parts.title);
}

void NavigationBar::layoutSubviews() {
    super<"layoutSubviews">();
    if (!ivars().is_built) build();
    auto* self = this->self();
    auto& parts = ivars();
    const CGFloat width = self->bounds().size.width;
    const CGFloat above = self->frame().origin.y, line = 1 / UIScreen::mainScreen()->scale();
    parts.background->setFrame({{0, -above}, {width, above + height}});
    parts.shadow->setFrame({{0, height}, {width, line}});
    const bool turned = runs_leftwards(self);
    auto place = [&](UIView* view, CGFloat x) {
        const CGSize size = view->bounds().size;
        view->setFrame({{turned ? width - x - size.width : x, std::round((height - size.height) / 2)}, size});
    };
    const UIEdgeInsets safe = self->safeAreaInsets();
    const bool has_back =
        !parts.left.empty() && self->backItem() && !self->topItem()->leftBarButtonItems()->count();
    CGFloat left = safe.left + (has_back ? back_edge : edge), right = width - safe.right - edge;
    for (UIView* view : parts.left) {
        place(view, left);
        left += view->bounds().size.width + gap;
    }
    for (UIView* view : parts.right) {
        const CGFloat its_width = view->bounds().size.width;
        place(view, right - its_width);
        right -= its_width + gap;
    }
    if (!parts.title) return;
    // In the middle where there is room, else as far from it as the buttons want.
    const CGSize wanted = parts.title->sizeThatFits({});
    const CGFloat its_width = std::clamp(wanted.width, 0.0, std::max(0.0, right - left));
    const CGFloat x = std::clamp((width - its_width) / 2, left, std::max(left, right - its_width));
    parts.title->setBounds({{0, 0}, {its_width, std::min(height, wanted.height)}});
    place(parts.title, std::round(x));
}

}  // namespace sim

using namespace objc::definition;
using sim::NavigationBar;

OBJC_CLASS(UINavigationBar, UIView, NavigationBar,
           method<"initWithFrame:", &NavigationBar::initWithFrame>,
           ivar<"_itemStack", &NavigationBar::Ivars::items>,
           ivar<"_barBackgroundView", &NavigationBar::Ivars::background>,
           ivar<"_shadowView", &NavigationBar::Ivars::shadow>,
           ivar<"_leftViews", &NavigationBar::Ivars::left>,
           ivar<"_rightViews", &NavigationBar::Ivars::right>,
           ivar<"_titleView", &NavigationBar::Ivars::title>,
           ivar<"_translucent", &NavigationBar::Ivars::translucent>,
           ivar<"_isBuilt", &NavigationBar::Ivars::is_built>,
           ivar<"_navigationController", &NavigationBar::Ivars::controller>,
           method<"topItem", &NavigationBar::topItem>,
           method<"backItem", &NavigationBar::backItem>,
           method<"items", &NavigationBar::items>,
           method<"isTranslucent", &NavigationBar::isTranslucent>,
           method<"setTranslucent:", &NavigationBar::setTranslucent>,
           method<"sizeThatFits:", &NavigationBar::sizeThatFits>,
           method<"layoutSubviews", &NavigationBar::layoutSubviews>,
           method<"_itemsChanged", &NavigationBar::items_changed>,
           method<"_goBack", &NavigationBar::go_back>)
