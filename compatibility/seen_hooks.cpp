#include "compatibility/seen_hooks.h"

#include <string_view>

#include "compatibility/image_of.h"
#include "compatibility/method_named.h"
#include "compatibility/subjects.h"
#include "objc/object.h"
#include "objc/string.h"
#include "platform/coregraphics.h"
#include "platform/foundation.h"
#include "platform/uikit.h"

namespace compatibility {
namespace {

using namespace objc::literals;

constexpr std::string_view only_in_the_home_screen = "-[SpringBoard ";

const void* address_of(Method method) {
    return reinterpret_cast<const void*>(method_getImplementation(method));
}

/// The library's preference store, of which nothing is reported but the two switches.
id preferences() {
    return objc::send<"sharedInstance", id>(reinterpret_cast<id>(objc_lookUpClass("HCPreferences")));
}

}  // namespace

SeenHooks::SeenHooks() {
    if (Method known = method_named("+[HCPreferences sharedInstance]"))
        library_ = image_of(address_of(known));
    if (!preferences()) library_ = nullptr;
    if (!library_)
        why_unseen_ = "the library is not loaded";
    else if (!objc::send<"isEnabled", bool>(preferences()))
        why_unseen_ = "theming is off";
}

bool SeenHooks::is_the_librarys(Method method) const {
    return library_ && method && image_of(address_of(method)) == library_;
}

Effect SeenHooks::of_method(const HookedMethod& row) const {
    if (row.condition == Condition::caps_hidden && objc::send<"isCapsEnabled", bool>(preferences()))
        return Effect::not_wanted;
    Method method = method_named(row.name);
    if (!method && std::string_view(row.name).starts_with(only_in_the_home_screen)) return Effect::not_here;
    return is_the_librarys(method) ? Effect::took : Effect::none;
}

Effect SeenHooks::of_function(const char* name) const {
    const auto named_color = reinterpret_cast<CGColorRef (*)(NSString*)>(function_named(name));
    if (!named_color) return Effect::none;
    const auto is_theme_color = [&](NSString* color_name, UIColor* color) {
        return CGColorEqualToColor(named_color(color_name), color->CGColor());
    };
    const bool took =
        is_theme_color("UIKBColorText"_ns, objc::send<"getTextColor", UIColor*>(preferences())) &&
        is_theme_color("UIKBColorHighlight"_ns, objc::send<"getHighlightColor", UIColor*>(preferences()));
    return took ? Effect::took : Effect::none;
}

void write_hooks(const Output& out, const SeenHooks& seen) {
    if (seen.why_unseen()) return out.line("# hooks not seen: ", seen.why_unseen());
    const auto write = [&](const char* target, Effect effect) {
        switch (effect) {
            case Effect::took: return out.line("hook ", target, " took effect");
            case Effect::none: return out.line("hook ", target, " had no effect");
            case Effect::not_wanted:
                return out.line("# not wanted, since the theme shows key caps: hook ", target);
            case Effect::not_here:
                return out.line("# not seen, since only the home screen has the class: hook ", target);
        }
    };
    for (const HookedMethod& row : hooked_methods()) write(row.name, seen.of_method(row));
    for (const char* function : described_functions()) write(function, seen.of_function(function));
}

}  // namespace compatibility
