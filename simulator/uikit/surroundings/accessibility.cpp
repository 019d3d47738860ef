// What VoiceOver says of objects: kept beside them, and for labels and buttons their text unless something
// else was set.
#include "uikit/surroundings/accessibility.h"

#include "objc/string.h"
#include "platform/controls.h"
#include "platform/navigation.h"
#include "platform/tables.h"
#include "runtime/method_replacement.h"

namespace sim {
namespace {

using namespace objc::literals;

/// One key for each property: its address.
struct Key {
    const char* name;
};
constexpr Key label_key{"label"}, value_key{"value"}, hint_key{"hint"}, identifier_key{"identifier"},
    traits_key{"traits"}, element_key{"element"};

constexpr uintptr_t copy_policy = 0x303;

NSNumber* number(UIAccessibilityTraits value) {
    return NSNumber::class_send<"numberWithUnsignedLongLong:", NSNumber*>(
        static_cast<unsigned long long>(value));
}

/// What is said of an object of whom nothing was set.
NSString* own_text(id object) {
    if (auto* label = as<UILabel>(object)) return label->text();
    if (auto* button = as<UIButton>(object)) return button->currentTitle();
    if (auto* item = as<UIBarButtonItem>(object)) return item->title();
    if (auto* cell = as<UITableViewCell>(object)) return cell->textLabel()->text();
    return nullptr;
}

struct Spoken : NSObject {
    template <const Key& Property>
    id kept() {
        return objc_getAssociatedObject(this, &Property);
    }
    template <const Key& Property>
    void keep(id value) {
        objc_setAssociatedObject(this, &Property, value, copy_policy);
    }
    NSString* label() {
        NSString* set = static_cast<NSString*>(kept<label_key>());
        return set ? set : own_text(this);
    }
    bool is_element() {
        if (auto* set = static_cast<NSNumber*>(kept<element_key>())) return set->boolValue();
        return as<UILabel>(this) || as<UIControl>(this);
    }
    void set_is_element(bool is) { keep<element_key>(NSNumber::numberWithBool(is)); }
    uint64_t traits() {
        if (auto* set = static_cast<NSNumber*>(kept<traits_key>()))
            return set->send<"unsignedLongLongValue", unsigned long long>();
        return as<UIButton>(this) ? UIAccessibilityTraitButton : UIAccessibilityTraitNone;
    }
    void set_traits(uint64_t traits) { keep<traits_key>(number(traits)); }
};

}  // namespace

void add_accessibility_to_objects() {
    add_methods(NSObject::class_object(),
                {new_method<"accessibilityLabel", &Spoken::label>(),
                 new_method<"setAccessibilityLabel:", &Spoken::keep<label_key>>(),
                 new_method<"accessibilityValue", &Spoken::kept<value_key>>(),
                 new_method<"setAccessibilityValue:", &Spoken::keep<value_key>>(),
                 new_method<"accessibilityHint", &Spoken::kept<hint_key>>(),
                 new_method<"setAccessibilityHint:", &Spoken::keep<hint_key>>(),
                 new_method<"accessibilityIdentifier", &Spoken::kept<identifier_key>>(),
                 new_method<"setAccessibilityIdentifier:", &Spoken::keep<identifier_key>>(),
                 new_method<"isAccessibilityElement", &Spoken::is_element>(),
                 new_method<"setIsAccessibilityElement:", &Spoken::set_is_element>(),
                 new_method<"accessibilityTraits", &Spoken::traits>(),
                 new_method<"setAccessibilityTraits:", &Spoken::set_traits>()});
}

}  // namespace sim

// The bits are public.
extern "C" {
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitNone = 0;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitButton = 1;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitImage = 1 << 2;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitSelected = 1 << 3;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitNotEnabled = 1 << 8;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitUpdatesFrequently = 1 << 9;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitAdjustable = 1 << 12;
[[gnu::visibility("default")]] UIAccessibilityTraits UIAccessibilityTraitHeader = 1 << 16;
}
