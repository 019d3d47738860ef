#include "pane/screens/editor/HuecraftSettingsColorPicker.h"

#include <algorithm>

#include "objc/class.h"
#include "objc/fast_enumeration.h"
#include "objc/string.h"
#include "readability/colour.h"

namespace {

using namespace objc::literals;
using objc::strong;

/// As many as the picker shows, and counts on.
constexpr NSUInteger recent_count = 6;

/// The library's panel, and the part of it that the sliders are in; widest on a phone that is held upright.
constexpr CGFloat panel_height = 445, content_height = 300, widest = 424, margin = 5;

struct Picker : objc::Implements<Picker, HuecraftSettingsColorPicker> {
    struct Ivars {
        strong<UIColor> first;
        /// The height of the part with the sliders, which the library fixes.
        strong<NSLayoutConstraint> height;
    };

    void setFirstColor(UIColor* colour) { ivars().first = colour; }

    void viewDidLoad() {
        UIView* page = self()->view();
        const CGRect all = page->frame();
        const auto [width, height] = all.size;
        // The library makes its panel for the page as it is then, and does not turn it.
        page->setFrame({{0, 0}, {std::min({width, height, widest}), std::max(width, height)}});
        super<"viewDidLoad">();
        page->setFrame(all);
        HCModalView* modal = self()->modal();
        for (UIView* each : {modal->panelView(), modal->shadowView()}) each->setAutoresizingMask(0);
        modal->setFrame({{0, 0}, {std::max(width, height), std::max(width, height)}});
        objc::for_each<NSLayoutConstraint>(
            modal->contentView()->constraints(), [&](NSLayoutConstraint* each) {
                if (each->firstAttribute() == NSLayoutAttributeHeight && !each->secondItem())
                    ivars().height = each;
            });
        if (ivars().first) self()->setInitialColor(ivars().first);
    }

    /// In the middle, both its buttons on the screen: where the panel has no room the sliders scroll.
    void viewDidLayoutSubviews() {
        place_panel();
        // The library asks how much there is to scroll.
        self()->modal()->layoutIfNeeded();
        super<"viewDidLayoutSubviews">();
    }

    void place_panel() {
        UIView *page = self()->view(), *panel = self()->modal()->panelView(),
               *shadow = self()->modal()->shadowView();
        const CGSize all = page->bounds().size;
        const UIEdgeInsets safe = page->safeAreaInsets();
        const CGFloat top = safe.top + margin, bottom = all.height - safe.bottom - margin;
        const CGFloat width = panel->bounds().size.width, height = std::min(panel_height, bottom - top);
        const CGRect place{
            {(all.width - width) / 2, std::clamp((all.height - height) / 2, top, bottom - height)},
            {width, height}};
        if (panel->frame() == place) return;
        panel->setFrame(place);
        shadow->setFrame(place);
        shadow->layer()->setShadowPath(
            UIBezierPath::bezierPathWithRoundedRect(shadow->bounds(), panel->layer()->cornerRadius())
                ->CGPath());
        if (ivars().height) ivars().height->setConstant(content_height - (panel_height - height));
    }

    /// The library takes the lists as the file has them, immutable and of any length.
    void grabRecentColorData() {
        super<"grabRecentColorData">();
        NSMutableArray* colours = NSMutableArray::arrayWithCapacity(recent_count);
        if (auto* found = as<NSArray>(self()->recentColors()))
            objc::for_each<NSObject>(found, [&](NSObject* each) {
                if (!as<NSString>(each)) return;
                colours->addObject(each);
                if (colours->count() > recent_count) colours->removeObjectAtIndex(0);
            });
        while (colours->count() < recent_count) colours->insertObject("#00000000"_ns, 0);
        auto* content = as<NSDictionary>(self()->recentColorDictionary());
        const auto all = content ? content->mutableCopy() : NSMutableDictionary::alloc()->initWithCapacity(1);
        all->setObject(colours, "Colors"_ns);
        self()->setRecentColorDictionary(all);
        self()->setRecentColors(colours);
    }

    /// A text that was typed and not returned counts; the library would hand over the colour before it.
    void selectButtonPressed() {
        NSString* typed = self()->hexTextField()->text();
        const char* hex = typed ? typed->UTF8String() : nullptr;
        if (!hex || !readability::colour_of(hex)) return self()->shakeWrong();
        self()->updateToColor(HCCITool::colorFromHexString(typed));
        super<"selectButtonPressed">();
    }
};

}  // namespace

using namespace objc::definition;

OBJC_CLASS_OF_WEAK_SUPERCLASS(HuecraftSettingsColorPicker, HCColorPickerController, Picker,
                              ivar<"_firstColor", &Picker::Ivars::first>,
                              method<"setFirstColor:", &Picker::setFirstColor>,
                              ivar<"_contentHeight", &Picker::Ivars::height>,
                              method<"viewDidLoad", &Picker::viewDidLoad>,
                              method<"viewDidLayoutSubviews", &Picker::viewDidLayoutSubviews>,
                              method<"grabRecentColorData", &Picker::grabRecentColorData>,
                              method<"selectButtonPressed", &Picker::selectButtonPressed>)
