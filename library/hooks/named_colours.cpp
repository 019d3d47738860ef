// The replacement of the named-colour lookup.
#include "hooks/named_colours.h"

#include "model/HCPreferences.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"

namespace hooks {

using namespace objc::literals;

namespace {

/// This hook's own reference to the store: it is at work in processes where the set-up stopped.
constinit objc::lasting<HCPreferences> namedColorPreferences;

constinit CGColorRef (*previous_named_color)(NSString*) = nullptr;

CGColorRef named_color(NSString* name) {
    if (!namedColorPreferences) namedColorPreferences = HCPreferences::sharedInstance();
    if (!namedColorPreferences->isEnabled()) return previous_named_color(name);
    if (name->isEqualToString("UIKBColorClear"_ns)) return UIColor::clearColor()->CGColor();
    if (name->isEqualToString("UIKBColorText"_ns)) return namedColorPreferences->getTextColor()->CGColor();
    if (name->isEqualToString("UIKBColorHighlight"_ns))
        return namedColorPreferences->getHighlightColor()->CGColor();
    return previous_named_color(name);
}

}  // namespace

void hook_named_colors() {
    if (!&UIKBGetNamedColor) return;
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(&named_color),
                   reinterpret_cast<void**>(&previous_named_color));
}

}  // namespace hooks
