#include "hooks/named_colours.h"

#include "hooks/authentication.h"
#include "model/HCPreferences.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"

namespace hooks {

using namespace objc::literals;

namespace {

/// This hook's own reference to the store: it is at work in processes where the set-up stopped.
constinit objc::lasting<HCPreferences> namedColourPreferences;

constinit objc::Handed<CGColorRef(NSString*)> previous_named_colour{};

CGColorRef named_colour(NSString* name) {
    if (!namedColourPreferences) namedColourPreferences = HCPreferences::sharedInstance();
    if (!namedColourPreferences->isEnabled()) return objc::take_back(previous_named_colour)(name);
    if (name->isEqualToString("UIKBColorClear"_ns)) return UIColor::clearColor()->CGColor();
    if (name->isEqualToString("UIKBColorText"_ns)) return namedColourPreferences->getTextColor()->CGColor();
    if (name->isEqualToString("UIKBColorHighlight"_ns))
        return namedColourPreferences->getHighlightColor()->CGColor();
    return objc::take_back(previous_named_colour)(name);
}

/// On the newer processors no framework is known to patch this function: it is left alone unless it is
/// wanted.
bool is_wanted() {
    if (!objc::authenticates_addresses()) return true;
    objc::AutoreleasePool pool;
    return HCPreferences::sharedInstance()->isEnabled();
}

}  // namespace

void hook_named_colours() {
    if (!&UIKBGetNamedColor || !signatures_agree() || !is_wanted()) return;
    MSHookFunction(objc::hand_over(&UIKBGetNamedColor), objc::hand_over(&named_colour),
                   &previous_named_colour);
}

}  // namespace hooks
