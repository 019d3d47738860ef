// The simulator's C interface, over the parts that do the work.
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "interface/answer.h"
#include "interface/boot.h"
#include "interface/executable.h"
#include "interface/library.h"
#include "interface/refusal.h"
#include "interface/touch_phase.h"
#include "phone/host_failures.h"
#include "platform/keyboard.h"
#include "runtime/injection/installing_calls.h"
#include "screen/picture.h"
#include "screen/recording.h"
#include "screen/show.h"
#include "simulator.h"
#include "uikit/controllers/screen.h"
#include "uikit/events/touches.h"
#include "uikit/events/typing.h"
#include "uikit/layout/layout_reports.h"

struct sim_library {
    std::unique_ptr<sim::Library> library;
};

namespace {

using sim::answer;
using sim::last_error;
using sim::object_of;
using sim::Refusal;
using sim::require;
using sim::require_boot;
using sim::touch_phase;

/// Kept for good, like what is loaded.
std::vector<std::unique_ptr<sim_library>>& libraries() {
    static auto* loaded = new std::vector<std::unique_ptr<sim_library>>;
    return *loaded;
}

/// A structure that callers fill: as much of it as they know, the rest zero.
template <class T>
T known_part(const T& given, const char* function, size_t smallest) {
    if (given.size < smallest || given.size > 4096)
        throw Refusal(SIM_MISUSE, std::string(function) + ": the structure's size is " +
                                      std::to_string(given.size) + "; it is sizeof of the structure, " +
                                      std::to_string(sizeof(T)) + " here");
    T known{};
    std::memcpy(&known, &given, std::min(given.size, sizeof(T)));
    const auto* bytes = reinterpret_cast<const unsigned char*>(&given);
    for (size_t i = sizeof(T); i < given.size; ++i)
        if (bytes[i])
            throw Refusal(SIM_MISUSE,
                          std::string(function) + ": the structure has members of a later version set");
    return known;
}

sim::ClaimedArguments claimed(sim_arguments arguments) {
    switch (arguments) {
        case SIM_ARGUMENTS_EXECUTABLE: return sim::ClaimedArguments::executable;
        case SIM_ARGUMENTS_NONE: return sim::ClaimedArguments::none;
        case SIM_ARGUMENTS_NIL: return sim::ClaimedArguments::nil;
    }
    throw Refusal(SIM_MISUSE, "sim_boot: there is no kind " + std::to_string(arguments) + " of arguments");
}

sim::Injection injection(int kind) {
    switch (kind) {
        case SIM_INJECTION_LENIENT: return sim::Injection::lenient;
        case SIM_INJECTION_CLEARING: return sim::Injection::clearing;
        case SIM_INJECTION_STRICT: return sim::Injection::strict;
        case SIM_INJECTION_GUARDED: return sim::Injection::guarded;
    }
    throw Refusal(SIM_MISUSE,
                  "sim_boot: there is no kind " + std::to_string(kind) + " of injection framework");
}

sim::Process process(int kind) {
    switch (kind) {
        case SIM_PROCESS_ARM64: return sim::Process::arm64;
        case SIM_PROCESS_ARM64_ON_A12: return sim::Process::arm64_on_a12;
        case SIM_PROCESS_ARM64E: return sim::Process::arm64e;
    }
    throw Refusal(SIM_MISUSE, "sim_boot: there is no kind " + std::to_string(kind) + " of process");
}

template <class Container>
void insert_all(Container& into, const char* const* names) {
    for (; names && *names; ++names) into.insert(into.end(), *names);
}

sim::BootOptions boot_options(const sim_options& given) {
    const sim_options options = known_part(given, "sim_boot", offsetof(sim_options, executable));
    sim::BootOptions wanted;
    if (options.root) wanted.root = options.root;
    if (options.executable) wanted.executable = options.executable;
    wanted.arguments = claimed(options.arguments);
    if (options.system_version) wanted.device.system_version = options.system_version;
    if (options.screen_width != 0) wanted.device.screen_width = options.screen_width;
    if (options.screen_height != 0) wanted.device.screen_height = options.screen_height;
    if (options.screen_scale != 0) wanted.device.screen_scale = options.screen_scale;
    if (options.language) wanted.device.language = options.language;
    wanted.device.right_to_left = options.right_to_left;
    if (options.text_size) wanted.device.text_size = options.text_size;
    wanted.device.reduce_motion = options.reduce_motion;
    insert_all(wanted.left_out_classes, options.left_out_classes);
    sim::HookLimits& limits = wanted.hook_limits;
    limits.injection = injection(options.injection);
    insert_all(limits.unfound_methods, options.unfound_methods);
    insert_all(limits.methods_without_previous, options.methods_without_previous);
    insert_all(limits.unpatchable_functions, options.unpatchable_functions);
    insert_all(wanted.denied_folders, options.denied_folders);
    wanted.device.process = process(options.process);
    wanted.unsigned_answers = options.unsigned_answers;
    return wanted;
}

void require_scale(double scale, const char* function) {
    if (!(scale >= 0 && scale <= 10))
        throw Refusal(SIM_MISUSE, std::string(function) + ": the scale is " + std::to_string(scale) +
                                      "; it is from 0 to 10 pixels per point");
}

sim_call_kind kind_of(const sim::InstallingCall& call) {
    using Kind = sim::InstallingCall::Kind;
    switch (call.kind) {
        case Kind::hook_message: return SIM_HOOK_MESSAGE;
        case Kind::hook_function: return SIM_HOOK_FUNCTION;
        case Kind::add_method: return SIM_ADD_METHOD;
    }
    __builtin_unreachable();
}

sim_colour colour_of(CGColorRef color) {
    if (!color) return {SIM_COLOUR_NONE, {}};
    const CGFloat* components = CGColorGetComponents(color);
    switch (CGColorSpaceGetModel(CGColorGetColorSpace(color))) {
        case kCGColorSpaceModelMonochrome: return {SIM_COLOUR_GREY, {components[0], components[1]}};
        case kCGColorSpaceModelRGB:
            return {SIM_COLOUR_RGB, {components[0], components[1], components[2], components[3]}};
    }
    throw Refusal(SIM_FAILED, "sim_named_colour: the colour is neither grey nor RGB");
}

/// A picture is drawn for every frame, so a slip of the pen would keep the phone busy for days.
constexpr double longest_recorded_step = 600;

void touch(const char* function, UITouchPhase phase, double x, double y) {
    require_boot(function);
    std::string error;
    if (!sim::move_finger(phase, {x, y}, error))
        throw Refusal(SIM_MISUSE, std::string(function) + ": " + error);
}

template <class Key>
void press(const char* function, Key key) {
    require_boot(function);
    std::string error;
    if (!key(error)) throw Refusal(SIM_NOT_FOUND, std::string(function) + ": " + error);
}

}  // namespace

const char* sim_last_error() { return last_error().c_str(); }

const char* sim_host_failure() {
    static std::string line;
    line = sim::take_host_failure();
    return line.c_str();
}

sim_status sim_prepare(const char* const* kept_back) {
    return answer([&] {
        std::set<std::string, std::less<>> names;
        insert_all(names, kept_back);
        sim::prepare(names);
    });
}

sim_status sim_boot(const sim_options* options) {
    return answer([&] {
        require(options, "sim_boot", "options");
        sim::boot(boot_options(*options));
    });
}

sim_status sim_load(const char* host_path, sim_library** library) {
    return answer([&] {
        require(host_path, "sim_load", "host_path");
        require(library, "sim_load", "library");
        *library = nullptr;
        require_boot("sim_load");
        libraries().push_back(std::make_unique<sim_library>(sim::load_library(host_path)));
        *library = libraries().back().get();
    });
}

sim_status sim_run(const char* device_path, const char* const* arguments, int* exit_status) {
    return answer([&] {
        require(device_path, "sim_run", "device_path");
        require(arguments, "sim_run", "arguments");
        require(exit_status, "sim_run", "exit_status");
        require_boot("sim_run");
        std::vector<std::string> vector;
        for (auto* argument = arguments; *argument; ++argument) vector.emplace_back(*argument);
        *exit_status = sim::run_executable(device_path, vector);
    });
}

sim_status sim_symbol(const sim_library* library, const char* name, void** address) {
    return answer([&] {
        require(library, "sim_symbol", "library");
        require(name, "sim_symbol", "name");
        require(address, "sim_symbol", "address");
        *address = library->library->symbol(name);
        if (!*address)
            throw Refusal(SIM_NOT_FOUND, std::string("sim_symbol: the library exports no ") + name);
    });
}

size_t sim_class_count(const sim_library* library) {
    return library ? library->library->classes().size() : 0;
}

const char* sim_class_name(const sim_library* library, size_t index) {
    return index < sim_class_count(library) ? library->library->classes()[index].c_str() : nullptr;
}

sim_status sim_initialiser_time(const sim_library* library, double* seconds) {
    return answer([&] {
        require(library, "sim_initialiser_time", "library");
        require(seconds, "sim_initialiser_time", "seconds");
        *seconds = library->library->initialiser_seconds();
    });
}

size_t sim_installing_call_count() { return sim::installing_calls().size(); }

sim_status sim_installing_call_at(size_t index, sim_installing_call* call) {
    return answer([&] {
        require(call, "sim_installing_call_at", "call");
        if (index >= sim_installing_call_count())
            throw Refusal(SIM_NOT_FOUND, "sim_installing_call_at: there is no call " + std::to_string(index) +
                                             " of " + std::to_string(sim_installing_call_count()));
        const auto& found = sim::installing_calls()[index];
        *call = {kind_of(found), found.class_name(), found.on_class(),
                 found.name(),   found.types,        found.took_effect};
    });
}

sim_status sim_named_colour(const char* name, sim_colour* colour) {
    return answer([&] {
        require(name, "sim_named_colour", "name");
        require(colour, "sim_named_colour", "colour");
        require_boot("sim_named_colour");
        NSString* text = NSString::stringWithUTF8String(name);
        if (!text) throw Refusal(SIM_MISUSE, "sim_named_colour: the name is not UTF-8");
        *colour = colour_of(UIKBGetNamedColor(text));
    });
}

sim_status sim_show_keyboard(const sim_keyboard* keyboard) {
    return answer([&] {
        require_boot("sim_show_keyboard");
        sim::KeyboardRequest request;
        if (keyboard) {
            const auto wanted = known_part(*keyboard, "sim_show_keyboard", offsetof(sim_keyboard, plane));
            if (wanted.plane) request.plane = wanted.plane;
            if (wanted.pressed_key) request.pressed_key = wanted.pressed_key;
            request.landscape = wanted.landscape;
            if (wanted.return_key) request.return_key = wanted.return_key;
            request.split = wanted.split;
            request.switcher = wanted.switcher;
            request.form_accessory = wanted.form_accessory;
            if (wanted.background) request.background = wanted.background;
            if (wanted.candidates) request.candidates = wanted.candidates;
        }
        std::string error;
        if (!sim::show_keyboard(request, error)) throw Refusal(SIM_NOT_FOUND, "sim_show_keyboard: " + error);
    });
}

sim_status sim_present(void* controller) {
    return answer(
        [&] { sim::present(object_of<UIViewController>(controller, "sim_present", "controller")); });
}

sim_status sim_presented(void** controller) {
    return answer([&] {
        require(controller, "sim_presented", "controller");
        require_boot("sim_presented");
        *controller = sim::presented_on_screen();
    });
}

sim_status sim_touch(int phase, double x, double y) {
    return answer([&] { touch("sim_touch", touch_phase(phase, "sim_touch"), x, y); });
}

sim_status sim_tap(double x, double y) {
    return answer([&] {
        touch("sim_tap", UITouchPhaseBegan, x, y);
        touch("sim_tap", UITouchPhaseEnded, x, y);
    });
}

size_t sim_key_count() { return sim::shown_keys().size(); }

sim_status sim_key_at(size_t index, sim_key* key) {
    return answer([&] {
        require(key, "sim_key_at", "key");
        if (index >= sim_key_count())
            throw Refusal(SIM_NOT_FOUND, "sim_key_at: there is no key " + std::to_string(index) + " of " +
                                             std::to_string(sim_key_count()));
        const sim::ShownKey& shown = sim::shown_keys()[index];
        const auto& [origin, size] = shown.frame;
        *key = {shown.name.c_str(), shown.text.empty() ? nullptr : shown.text.c_str(),
                origin.x,           origin.y,
                size.width,         size.height};
    });
}

sim_status sim_advance_clock(double seconds) {
    return answer([&] {
        require_boot("sim_advance_clock");
        if (!(seconds >= 0 && seconds <= 1e9))
            throw Refusal(SIM_MISUSE, "sim_advance_clock: " + std::to_string(seconds) +
                                          " seconds; time goes forwards, by at most 1e9 at once");
        if (sim::is_recording() && seconds > longest_recorded_step)
            throw Refusal(SIM_MISUSE, "sim_advance_clock: " + std::to_string(seconds) +
                                          " seconds; while the screen is recorded time goes forwards by at "
                                          "most 600 seconds at once");
        std::string error;
        if (!sim::pass_time(seconds, error)) throw Refusal(SIM_FAILED, "sim_advance_clock: " + error);
    });
}

sim_status sim_start_recording(double scale, int frames_per_second) {
    return answer([&] {
        require_boot("sim_start_recording");
        require_scale(scale, "sim_start_recording");
        if (frames_per_second < 1 || frames_per_second > 60)
            throw Refusal(SIM_MISUSE, "sim_start_recording: " + std::to_string(frames_per_second) +
                                          " frames per second; expected 1 to 60");
        if (sim::is_recording())
            throw Refusal(SIM_MISUSE, "sim_start_recording: the screen is being recorded already");
        std::string error;
        if (!sim::start_recording(scale, static_cast<unsigned>(frames_per_second), error))
            throw Refusal(SIM_FAILED, "sim_start_recording: " + error);
    });
}

sim_status sim_stop_recording(const char* host_path) {
    return answer([&] {
        if (!sim::is_recording())
            throw Refusal(SIM_MISUSE, "sim_stop_recording: the screen is not being recorded");
        std::string error;
        if (!host_path)
            sim::discard_recording();
        else if (!sim::stop_recording(host_path, error))
            throw Refusal(SIM_BAD_FILE, "sim_stop_recording: " + error);
    });
}

sim_status sim_type_text(const char* text) {
    return answer([&] {
        require(text, "sim_type_text", "text");
        press("sim_type_text", [&](std::string& error) {
            NSString* typed = NSString::stringWithUTF8String(text);
            if (!typed) throw Refusal(SIM_MISUSE, "sim_type_text: the text is not UTF-8");
            return sim::type_text(typed, error);
        });
    });
}

sim_status sim_delete_backward() {
    return answer([] { press("sim_delete_backward", sim::delete_backward); });
}

sim_status sim_press_return() {
    return answer([] { press("sim_press_return", sim::press_return); });
}

sim_status sim_select_text(size_t location, size_t length) {
    return answer([&] {
        press("sim_select_text",
              [&](std::string& error) { return sim::select_text({location, length}, error); });
    });
}

sim_status sim_take_picture(const char* host_path, double scale) {
    return answer([&] {
        require(host_path, "sim_take_picture", "host_path");
        require_boot("sim_take_picture");
        require_scale(scale, "sim_take_picture");
        std::string error;
        if (!sim::take_picture(host_path, scale, error))
            throw Refusal(SIM_BAD_FILE, "sim_take_picture: " + error);
    });
}

sim_status sim_show_view(void* view) {
    return answer([&] { sim::show_view(object_of<UIView>(view, "sim_show_view", "view")); });
}

sim_status sim_view_on_screen(const char* class_name, void** view) {
    return answer([&] {
        require(class_name, "sim_view_on_screen", "class_name");
        require(view, "sim_view_on_screen", "view");
        require_boot("sim_view_on_screen");
        Class type = objc_getClass(class_name);
        *view = type ? sim::view_on_screen(type) : nullptr;
        if (!*view)
            throw Refusal(SIM_NOT_FOUND,
                          std::string("sim_view_on_screen: there is no ") + class_name + " on the screen");
    });
}

sim_status sim_take_picture_of(void* view, const char* host_path, double scale) {
    return answer([&] {
        UIView* pictured = object_of<UIView>(view, "sim_take_picture_of", "view");
        require(host_path, "sim_take_picture_of", "host_path");
        require_scale(scale, "sim_take_picture_of");
        const CGSize size = pictured->bounds().size;
        if (!(size.width > 0 && size.height > 0))
            throw Refusal(SIM_MISUSE, "sim_take_picture_of: the view's bounds are empty, " +
                                          std::to_string(size.width) + " x " + std::to_string(size.height) +
                                          " points");
        std::string error;
        if (!sim::write_picture(pictured, sim::PictureGround::transparent, scale, host_path, error))
            throw Refusal(SIM_BAD_FILE, "sim_take_picture_of: " + error);
    });
}

size_t sim_layout_report_count() { return sim::layout_reports().size(); }

sim_status sim_layout_report_at(size_t index, sim_layout_report* report) {
    return answer([&] {
        require(report, "sim_layout_report_at", "report");
        if (index >= sim_layout_report_count())
            throw Refusal(SIM_NOT_FOUND, "sim_layout_report_at: there is no report " + std::to_string(index) +
                                             " of " + std::to_string(sim_layout_report_count()));
        const auto& found = sim::layout_reports()[index];
        const bool conflict = found.problem == sim::LayoutReport::Problem::conflict;
        *report = {conflict ? SIM_LAYOUT_CONFLICT : SIM_LAYOUT_AMBIGUITY, found.line.c_str()};
    });
}
