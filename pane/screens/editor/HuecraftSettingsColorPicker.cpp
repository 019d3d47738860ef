#include "pane/screens/editor/HuecraftSettingsColorPicker.h"

#include "objc/class.h"
#include "objc/fast_enumeration.h"
#include "objc/string.h"
#include "readability/colour.h"

namespace {

using namespace objc::literals;
using objc::strong;

/// As many as the picker shows, and counts on.
constexpr NSUInteger recent_count = 6;

struct Picker : objc::Implements<Picker, HuecraftSettingsColorPicker> {
    struct Ivars {
        strong<UIColor> first;
    };

    void setFirstColor(UIColor* colour) { ivars().first = colour; }

    void viewDidLoad() {
        super<"viewDidLoad">();
        if (ivars().first) self()->setInitialColor(ivars().first);
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
                              method<"viewDidLoad", &Picker::viewDidLoad>,
                              method<"grabRecentColorData", &Picker::grabRecentColorData>,
                              method<"selectButtonPressed", &Picker::selectButtonPressed>)
