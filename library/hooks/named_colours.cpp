#include "hooks/named_colours.h"

#include "model/HCPreferences.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"

namespace hooks {

using namespace objc::literals;

namespace {

/// This hook's own reference to the store: it is at work in processes where the set-up stopped.
constinit objc::lasting<HCPreferences> namedColourPreferences;

constinit CGColorRef (*previous_named_colour)(NSString*) = nullptr;

CGColorRef named_colour(NSString* name) {
    if (!namedColourPreferences) namedColourPreferences = HCPreferences::sharedInstance();
    if (!namedColourPreferences->isEnabled()) return previous_named_colour(name);
    if (name->isEqualToString("UIKBColorClear"_ns)) return UIColor::clearColor()->CGColor();
    if (name->isEqualToString("UIKBColorText"_ns)) return namedColourPreferences->getTextColor()->CGColor();
    if (name->isEqualToString("UIKBColorHighlight"_ns))
        return namedColourPreferences->getHighlightColor()->CGColor();
    return previous_named_colour(name);
}

}  // namespace

void hook_named_colours() {
    if (!&UIKBGetNamedColor) return;
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(&named_colour),
                   reinterpret_cast<void**>(&previous_named_colour));
}

}  // namespace hooks
