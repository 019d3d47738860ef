// The two initializers: they run once each, on the loading thread, before the host's own code.
#include "hooks/setup.h"

#include "hooks/hook_table.h"
#include "hooks/shared_preferences.h"
#include "platform/keyboard.h"
#include "platform/substrate.h"

extern "C" Class NSClassFromString(NSString* name);

namespace hooks {

using namespace objc::literals;

constinit objc::lasting<HCPreferences> sharedPreferences;

namespace {

/// The executable that this process runs, or nil when its argument vector tells nothing.
NSString* executable_path() {
    auto process_info_class = reinterpret_cast<id>(NSClassFromString("NSProcessInfo"_ns));
    auto* process = objc::send<"processInfo", NSProcessInfo*>(process_info_class);
    NSArray* arguments = process->arguments();
    if (arguments->count() == 0) return nullptr;
    return static_cast<NSString*>(arguments->objectAtIndexedSubscript(0));
}

/// The named-colour hook's own reference to the store: it is at work in processes where the set-up stopped.
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

void set_up() {
    objc::AutoreleasePool pool;
    NSString* executable = executable_path();
    if (!executable || !accepts_process(executable->UTF8String())) return;
    install(Condition::accepted_process);

    if (!sharedPreferences) sharedPreferences = HCPreferences::sharedInstance();
    if (!sharedPreferences) return;
    const bool theming_on = sharedPreferences->isEnabled();
    if (!theming_on) return;
    const bool caps_visible = sharedPreferences->isCapsEnabled();
    for (Condition condition : {Condition::caps_hidden, Condition::themed})
        if (installs(condition, theming_on, caps_visible)) install(condition);
}

void hook_named_colors() {
    if (!&UIKBGetNamedColor) return;
    MSHookFunction(reinterpret_cast<void*>(&UIKBGetNamedColor), reinterpret_cast<void*>(&named_color),
                   reinterpret_cast<void**>(&previous_named_color));
}

}  // namespace hooks
