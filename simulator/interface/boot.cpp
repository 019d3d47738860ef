#include "interface/boot.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <utility>

#include "foundation/bundles.h"
#include "foundation/corrections.h"
#include "interface/leak_checking.h"
#include "interface/refusal.h"
#include "objc/class.h"
#include "objc/pointer_signature.h"
#include "objc/string.h"
#include "phone/file_system.h"
#include "runtime/class_registration.h"
#include "runtime/injection/authentication.h"
#include "runtime/references/reference_counting.h"
#include "uikit/geometry_values.h"
#include "uikit/scrolling/index_paths.h"
#include "uikit/surroundings/accessibility.h"
#include "uikit/surroundings/text_styles.h"

namespace sim {
namespace {

// The one thing that happens before boot: constant strings must be objects whenever code runs that uses them.
[[gnu::constructor]] void adopt_constant_strings() { objc::adopt_strings(); }

constexpr std::string_view home_screen = "SpringBoard";

bool booted = false, is_ready = false;

/// The names of the system's classes that are registered before boot.
std::set<std::string, std::less<>>& prepared_classes() {
    static std::set<std::string, std::less<>> names;
    return names;
}

Device& booted_device() {
    static Device device;
    return device;
}

/// The folder's real path.
std::string checked_root(const std::string& folder) {
    if (folder.empty())
        throw Refusal(SIM_MISUSE, "no root folder is given: it plays the device's file system");
    std::unique_ptr<char, decltype(&std::free)> real(realpath(folder.c_str(), nullptr), &std::free);
    struct stat status;
    if (!real || stat(real.get(), &status) != 0)
        throw Refusal(SIM_NOT_FOUND, "the root folder does not exist: " + folder);
    if (!S_ISDIR(status.st_mode))
        throw Refusal(SIM_BAD_FILE, "the root is a file and not a folder: " + folder);
    if (access(real.get(), R_OK | X_OK) != 0)
        throw Refusal(SIM_BAD_FILE, "the root folder is not readable: " + folder);
    // A root of "/" would give the device the whole host.
    if (std::string_view(real.get()) == "/")
        throw Refusal(SIM_MISUSE, "the root folder is the host's own root");
    return real.get();
}

void check(const Device& device) {
    for (double length : {device.screen_width, device.screen_height})
        if (!(length >= 1 && length <= 10000 && length == std::floor(length)))
            throw Refusal(SIM_MISUSE, "the screen is " + std::to_string(device.screen_width) + " x " +
                                          std::to_string(device.screen_height) +
                                          " points; each side is a whole number from 1 to 10000");
    const double scale = device.screen_scale;
    if (scale != 1 && scale != 2 && scale != 3)
        throw Refusal(SIM_MISUSE, "the screen scale is " + std::to_string(scale) + "; it is 1, 2 or 3");
    if (!is_text_size(device.text_size))
        throw Refusal(SIM_MISUSE, "the text size is \"" + device.text_size +
                                      "\"; it is the end of a content size category's name, such as \"L\" or "
                                      "\"AccessibilityXL\"");
    if (device.language.empty() ||
        device.language.find_first_not_of(
            "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-") != std::string::npos)
        throw Refusal(SIM_MISUSE, "the language is \"" + device.language +
                                      "\"; it is a tag such as \"en\" or \"zh-Hans\"");
    if (device.system_version.empty() ||
        device.system_version.find_first_not_of("0123456789.") != std::string::npos ||
        device.system_version.starts_with('.') || device.system_version.ends_with('.') ||
        device.system_version.find("..") != std::string::npos)
        throw Refusal(SIM_MISUSE, "the system version is \"" + device.system_version +
                                      "\"; it is numbers with dots between them, such as \"12.4\"");
}

void check_process(const BootOptions& options) {
    const bool authenticated = options.device.process == Process::arm64e;
    if (authenticated && !objc::processor_authenticates())
        throw Refusal(SIM_MISUSE,
                      "this machine's processor does not authenticate addresses, as an arm64e process needs");
    if (!authenticated && options.unsigned_answers)
        throw Refusal(SIM_MISUSE, "answers without signatures are of an arm64e process alone");
}

bool is_platform_class(std::string_view name) {
    for (auto* record = __start_objc_classes; record != __stop_objc_classes; ++record)
        if ((*record)->name == name) return true;
    return false;
}

void check_method(const std::string& name) {
    const size_t space = name.find(' ');
    if (!(name.starts_with("-[") || name.starts_with("+[")) || !name.ends_with(']') || space == name.npos ||
        space + 2 >= name.size() || name.find(' ', space + 1) != name.npos)
        throw Refusal(SIM_MISUSE, "cannot hide \"" + name +
                                      "\" from hooks: a method is written -[Class selector] or +[Class "
                                      "selector]");
    const std::string owner = name.substr(2, space - 2);
    if (!is_platform_class(owner))
        throw Refusal(SIM_NOT_FOUND, "cannot hide " + name + " from hooks: the model has no class " + owner);
}

bool is_wanted(const BootOptions& options, std::string_view class_name) {
    // The home screen's class is part of its executable, and so of no other process.
    if (class_name == home_screen && !options.executable.ends_with("/SpringBoard")) return false;
    return !options.left_out_classes.contains(class_name);
}

void check(const BootOptions& options) {
    if (!options.executable.starts_with('/') || options.executable.find('\0') != std::string::npos)
        throw Refusal(SIM_MISUSE, "the executable is \"" + options.executable +
                                      "\"; it is a path of the device and begins with /");
    check(options.device);
    check_process(options);
    for (const std::string& name : options.left_out_classes) {
        if (!is_platform_class(name))
            throw Refusal(SIM_NOT_FOUND,
                          "cannot leave out " + name + ": the model has no class of this name");
        if (prepared_classes().contains(name))
            throw Refusal(SIM_MISUSE, "cannot leave out " + name + ": it is prepared, and was not kept back");
    }
    const HookLimits& limits = options.hook_limits;
    for (const Names* names : {&limits.unfound_methods, &limits.methods_without_previous})
        for (const std::string& name : *names) check_method(name);
    for (const std::string& folder : options.denied_folders)
        if (!folder.starts_with('/') || folder.ends_with('/') || folder.find("/.") != folder.npos)
            throw Refusal(SIM_MISUSE, "cannot deny \"" + folder +
                                          "\": a folder is named by its whole path, such as "
                                          "/var/mobile/Library/Preferences");
    for (const std::string& name : limits.unpatchable_functions)
        if (!is_hookable_function(name))
            throw Refusal(SIM_NOT_FOUND, "cannot keep " + name +
                                             " from being patched: the model has no function of this name "
                                             "that can be");
    for (auto* record = __start_objc_classes; record != __stop_objc_classes; ++record)
        if (is_wanted(options, (*record)->name) && !prepared_classes().contains((*record)->name) &&
            objc_lookUpClass((*record)->name))
            throw Refusal(SIM_MISUSE,
                          std::string("the class ") + (*record)->name +
                              " exists already; a class that the caller brings is to be left out");
}

/// What no option decides of a boot: what the runtime and Foundation lack, and differ in.
void get_ready() {
    if (std::exchange(is_ready, true)) return;
    install_reference_counting();
    correct_foundation();
    add_geometry_to_values();
    add_items_to_index_paths();
    add_accessibility_to_objects();
}

}  // namespace

const Device& device() { return booted_device(); }

bool is_booted() { return booted; }

void prepare(const std::set<std::string, std::less<>>& kept_back) {
    if (booted || is_ready) throw Refusal(SIM_MISUSE, "the phone is prepared once, and before it is on");
    for (const std::string& name : kept_back)
        if (!is_platform_class(name))
            throw Refusal(SIM_NOT_FOUND,
                          "cannot keep back " + name + ": the model has no class of this name");
    LeakCheckingOff off;
    ask_for_encodings();
    get_ready();
    const ManyClasses many;
    objc::register_classes(
        [&](std::string_view name) { return name != home_screen && !kept_back.contains(name); });
    for (auto* record = __start_objc_classes; record != __stop_objc_classes; ++record)
        if (objc_lookUpClass((*record)->name)) prepared_classes().insert((*record)->name);
}

// The order matters: Foundation first, then what the runtime lacks, before objects are made that need it; the
// corrections before anything reads a file; the system's classes last.
void boot(const BootOptions& options) {
    if (booted) throw Refusal(SIM_MISUSE, "the phone is on already: one boot per process");
    const std::string root = checked_root(options.root);
    check(options);
    booted = true;

    LeakCheckingOff off;
    booted_device() = options.device;
    ask_for_encodings();
    start_foundation(options.executable, options.arguments);
    limit_hooks(options.hook_limits);
    if (options.device.process == Process::arm64e) authenticate_addresses(options.unsigned_answers);
    mount_root(root);
    deny_folders(options.denied_folders);
    objc_autoreleasePoolPush();  // the main thread's outermost pool, which is never drained
    get_ready();
    correct_bundles(options.device.language);
    // Foundation looks for its settings when they are first wanted, in many places; now these are the
    // phone's.
    objc::send<"standardUserDefaults", id>(reinterpret_cast<id>(objc_getClass("NSUserDefaults")));
    const ManyClasses many;
    objc::register_classes([&](std::string_view name) {
        return is_wanted(options, name) && !prepared_classes().contains(name);
    });
}

}  // namespace sim
