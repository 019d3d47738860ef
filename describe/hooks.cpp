// A hook took effect where the implementation of its method lies in the library.
#include "describe/hooks.h"

#include "describe/subjects.h"
#include "describe/system.h"
#include "objc/strong.h"
#include "platform/coregraphics.h"
#include "platform/foundation.h"
#include "platform/uikit.h"

namespace describe {
namespace {

using namespace objc::literals;
using hooks::Condition;

constexpr const char* library_path = "/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib";
constexpr const char* any_export_of_the_library = "kGradientLeft";
constexpr unsigned longest_wait = 60;  // seconds
constexpr unsigned longest_path = 1024;

/// The image that an address lies in, by where its file is in memory; null where there is none.
const void* image_at(const void* address) {
    DynamicSymbol found{};
    return address && dladdr(address, &found) ? found.file_address : nullptr;
}

/// A message of the system's in one line that holds no remark.
struct OneLine {
    char text[400];

    explicit OneLine(const char* message) {
        size_t end = 0;
        for (; message && *message && end + 1 < sizeof text; ++message) {
            const char c = *message;
            text[end++] = c < ' ' || c > '~' || c == '#' ? ' ' : c;
        }
        text[end] = 0;
    }
};

template <class... Reason>
void unseen(const Output& out, Reason... reason) {
    out.line("hooks unseen: ", reason...);
}

/// The library's preference store, of which nothing is reported but the two switches.
id preferences() {
    return objc::send<"sharedInstance", id>(reinterpret_cast<id>(objc_lookUpClass("HCPreferences")));
}

Method method_named(std::string_view name) {
    char class_name[256], selector[256];
    const size_t space = name.find(' ');
    name.substr(2, space - 2).copy(class_name, sizeof class_name - 1);
    class_name[space - 2] = 0;
    const std::string_view rest = name.substr(space + 1, name.size() - space - 2);
    rest.copy(selector, sizeof selector - 1);
    selector[rest.size()] = 0;
    Class owner = objc_lookUpClass(class_name);
    if (!owner) return nullptr;
    if (name[0] == '+') owner = object_getClass(reinterpret_cast<id>(owner));
    return class_getInstanceMethod(owner, sel_registerName(selector));
}

const char* fate_of(const HookedMethod& row, const void* library_image) {
    if (row.condition == Condition::caps_hidden && objc::send<"isCapsEnabled", bool>(preferences()))
        return "unwanted ";  // the theme shows key caps
    Method method = method_named(row.name);
    const bool installed =
        method && image_at(reinterpret_cast<const void*>(method_getImplementation(method))) == library_image;
    return installed ? "installed " : "missing ";
}

/// A replaced function is known by what it answers: the theme's two colours.
bool answers_theme_colours(const char* function) {
    const auto named_color = reinterpret_cast<CGColorRef (*)(NSString*)>(dlsym(any_library, function));
    if (!named_color) return false;
    const auto is_theme_color = [&](NSString* name, UIColor* color) {
        return CGColorEqualToColor(named_color(name), color->CGColor());
    };
    return is_theme_color("UIKBColorText"_ns, objc::send<"getTextColor", UIColor*>(preferences())) &&
           is_theme_color("UIKBColorHighlight"_ns, objc::send<"getHighlightColor", UIColor*>(preferences()));
}

}  // namespace

void write_hooks_seen_here(const Output& out, const char* claimed) {
    objc::AutoreleasePool pool;
    if (!hooks::accepts_process(claimed))
        return unseen(out, "the library does nothing in a process of this path");
    if (!NSFileManager::defaultManager()->fileExistsAtPath(NSString::stringWithUTF8String(library_path)))
        return unseen(out, "the library is not installed");
    alarm(longest_wait);  // whatever the library does here, the report comes to its end
    void* library = dlopen(library_path, now);
    if (!library) return unseen(out, "the library cannot be loaded: ", OneLine(dlerror()).text);
    const void* library_image = image_at(dlsym(library, any_export_of_the_library));
    if (!library_image || !preferences()) return unseen(out, "what is installed is not the library");
    if (!objc::send<"isEnabled", bool>(preferences())) return unseen(out, "theming is off");
    for (const HookedMethod& row : hooked_methods()) out.line("hook ", fate_of(row, library_image), row.name);
    for (const char* function : described_functions())
        out.line("hook ", answers_theme_colours(function) ? "installed " : "missing ", function);
    alarm(0);
}

void write_hooks_seen_elsewhere(const Output& out, const char* claimed, char* const environment[]) {
    char path[longest_path];
    unsigned size = sizeof path;
    if (_NSGetExecutablePath(path, &size) != 0) return unseen(out, "the path of this command is too long");
    char* const arguments[] = {const_cast<char*>(claimed), const_cast<char*>("--hooks"), nullptr};
    int process = 0, status = 0;
    if (posix_spawn(&process, path, nullptr, nullptr, arguments, environment) != 0)
        return unseen(out, "no process could be started");
    if (waitpid(process, &status, 0) != process || status != 0) {
        const int signal = status & 0x7f;
        const char digits[] = {static_cast<char>('0' + signal / 10), static_cast<char>('0' + signal % 10), 0};
        unseen(out, "the process that loads the library stopped, by signal ", digits);
    }
}

}  // namespace describe
