// The replacement of the named-colour lookup.
#include "hooks/named_colours.h"

#include "hooks/authentication.h"
#include "model/HCPreferences.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"

namespace hooks {

using namespace objc::literals;

namespace {

/// This hook's own reference to the store: it is at work in processes where the set-up stopped.
constinit objc::lasting<HCPreferences> namedColorPreferences;

constinit objc::Handed<CGColorRef(NSString*)> previous_named_color{};

CGColorRef named_color(NSString* name) {
    if (!namedColorPreferences) namedColorPreferences = HCPreferences::sharedInstance();
    if (!namedColorPreferences->isEnabled()) return objc::take_back(previous_named_color)(name);
    if (name->isEqualToString("UIKBColorClear"_ns)) return UIColor::clearColor()->CGColor();
    if (name->isEqualToString("UIKBColorText"_ns)) return namedColorPreferences->getTextColor()->CGColor();
    if (name->isEqualToString("UIKBColorHighlight"_ns))
        return namedColorPreferences->getHighlightColor()->CGColor();
    return objc::take_back(previous_named_color)(name);
}

/// On the newer processors no framework is known to patch this function: it is left alone unless it is
/// wanted.
bool is_wanted() {
    if (!objc::authenticates_addresses()) return true;
    objc::AutoreleasePool pool;
    return HCPreferences::sharedInstance()->isEnabled();
}

}  // namespace

void hook_named_colors() {
    if (!&UIKBGetNamedColor || !signatures_agree() || !is_wanted()) return;
    MSHookFunction(objc::hand_over(&UIKBGetNamedColor), objc::hand_over(&named_color), &previous_named_color);
}

}  // namespace hooks
