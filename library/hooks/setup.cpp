// The set-up: it runs once, on the loading thread, before the host's own code.
#include "hooks/setup.h"

#include "hooks/authentication.h"
#include "hooks/hook_table.h"
#include "hooks/shared_preferences.h"

namespace hooks {

using namespace objc::literals;

constinit objc::lasting<HCPreferences> sharedPreferences;

namespace {

/// The executable that this process runs, or nil when its argument vector does not say.
NSString* executable_path() {
    auto process_info_class = reinterpret_cast<id>(NSClassFromString("NSProcessInfo"_ns));
    auto* process = objc::send<"processInfo", NSProcessInfo*>(process_info_class);
    NSArray* arguments = process->arguments();
    if (arguments->count() == 0) return nullptr;
    return static_cast<NSString*>(arguments->objectAtIndexedSubscript(0));
}

}  // namespace

void set_up() {
    objc::AutoreleasePool pool;
    if (!signatures_agree()) return;
    NSString* executable = executable_path();
    if (!executable || !accepts_process(executable->UTF8String())) return;
    install(Condition::accepted_process);

    if (!sharedPreferences) sharedPreferences = HCPreferences::sharedInstance();
    if (!sharedPreferences) return;
    const bool theming_on = sharedPreferences->isEnabled();
    const bool caps_visible =
        theming_on && sharedPreferences->isCapsEnabled();  // not asked while theming is off
    for (Condition condition : {Condition::caps_hidden, Condition::themed})
        if (installs(condition, theming_on, caps_visible)) install(condition);
}

}  // namespace hooks
