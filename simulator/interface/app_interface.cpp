// The C interface's part about applications: Settings, what leaves the phone, and touches beyond one finger.
#include <map>
#include <memory>
#include <vector>

#include "foundation/bundles.h"
#include "interface/answer.h"
#include "interface/library.h"
#include "interface/touch_phase.h"
#include "phone/file_system.h"
#include "phone/notes.h"
#include "screen/labels.h"
#include "settings/bundle_code.h"
#include "settings/settings_app.h"
#include "uikit/controllers/memory_warning.h"
#include "uikit/events/touches.h"

using namespace sim;

namespace {

/// Kept for good, like what is loaded.
std::map<std::string, std::unique_ptr<Library>>& bundles() {
    static auto* loaded = new std::map<std::string, std::unique_ptr<Library>>;
    return *loaded;
}

bool load_bundle_code(const std::string& device_path, const std::string& bundle, std::string& error) {
    const auto host = host_path(device_path);
    if (!host) {
        error = "the phone has no " + device_path;
        return false;
    }
    if (bundles().contains(device_path)) return true;
    try {
        auto library = load_library(*host);
        for (const std::string& name : library->classes()) put_class_into_bundle(name, bundle);
        bundles()[device_path] = std::move(library);
        return true;
    } catch (const Refusal& refusal) {
        error = refusal.what();
        return false;
    }
}

template <class List>
void require_index(const List& list, size_t index, const char* function, const char* what) {
    if (index >= list.size())
        throw Refusal(SIM_NOT_FOUND, std::string(function) + ": there is no " + what + " " +
                                         std::to_string(index) + " of " + std::to_string(list.size()));
}

/// Kept for as long as the caller may look at them.
std::vector<std::string>& rows() {
    static auto* labels = new std::vector<std::string>;
    return *labels;
}

}  // namespace

sim_status sim_open_settings() {
    return answer([] {
        require_boot("sim_open_settings");
        load_bundles_with(load_bundle_code);
        open_settings();
        rows() = settings_rows();
    });
}

size_t sim_settings_row_count() { return rows().size(); }
const char* sim_settings_row(size_t index) { return index < rows().size() ? rows()[index].c_str() : nullptr; }

sim_status sim_touch_two(int phase, double first_x, double first_y, double second_x, double second_y) {
    return answer([&] {
        require_boot("sim_touch_two");
        std::string error;
        if (!move_fingers(touch_phase(phase, "sim_touch_two"), {{first_x, first_y}, {second_x, second_y}},
                          error))
            throw Refusal(SIM_MISUSE, "sim_touch_two: " + error);
    });
}

sim_status sim_tap_label(const char* label) {
    return answer([&] {
        require(label, "sim_tap_label", "label");
        require_boot("sim_tap_label");
        NSString* text = NSString::stringWithUTF8String(label);
        if (!text) throw Refusal(SIM_MISUSE, "sim_tap_label: the label is not UTF-8");
        std::string error;
        if (!tap_label(text, error)) throw Refusal(SIM_NOT_FOUND, "sim_tap_label: " + error);
    });
}

size_t sim_program_count() { return started_programs().size(); }

sim_status sim_program_at(size_t index, sim_program* program) {
    return answer([&] {
        require(program, "sim_program_at", "program");
        require_index(started_programs(), index, "sim_program_at", "program");
        static auto* arguments = new std::vector<const char*>;
        arguments->clear();
        const StartedProgram& found = started_programs()[index];
        for (const std::string& argument : found.arguments) arguments->push_back(argument.c_str());
        arguments->push_back(nullptr);
        *program = {found.path.c_str(), arguments->data(), found.error};
    });
}

sim_status sim_end_programs_with(int exit_status) {
    return answer([&] {
        if (exit_status < 0 || exit_status > 255)
            throw Refusal(SIM_MISUSE, "sim_end_programs_with: the exit status is " +
                                          std::to_string(exit_status) + "; it is from 0 to 255");
        exit_status_of_programs() = exit_status;
    });
}

size_t sim_opened_address_count() { return opened_addresses().size(); }
const char* sim_opened_address(size_t index) {
    return index < opened_addresses().size() ? opened_addresses()[index].c_str() : nullptr;
}

size_t sim_shared_item_count() { return shared_items().size(); }
sim_status sim_shared_item_at(size_t index, sim_shared_item* item) {
    return answer([&] {
        require(item, "sim_shared_item_at", "item");
        require_index(shared_items(), index, "sim_shared_item_at", "item");
        *item = {shared_items()[index].kind.c_str(), shared_items()[index].content.c_str()};
    });
}

sim_status sim_warn_of_memory() {
    return answer([] {
        require_boot("sim_warn_of_memory");
        warn_of_memory();
    });
}
