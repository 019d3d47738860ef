// huecraft doctor: what the library would find on a system, and what users would see where something is
// missing.
#include <algorithm>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "doctor/device_description.h"
#include "doctor/hook_effects.h"
#include "doctor/hook_rows.h"
#include "formats/value.h"

namespace command {
namespace {

/// A row of the table, or something that is looked up, on a system.
struct Diagnosis {
    std::string target, how;
    /// What is wrong, and what users see then; empty where all is well.
    std::string reason, effect;

    bool is_well() const { return reason.empty(); }
    Json in_json() const {
        Json json{{"target", target}, {"how", how}, {"wouldInstall", is_well()}};
        if (!is_well()) {
            json["reason"] = reason;
            json["effect"] = effect;
        }
        return json;
    }
};

Diagnosis diagnosis_of(const HookRow& row, const DeviceDescription& device) {
    Diagnosis found{row.target,
                    row.how == HookRow::How::added      ? "added"
                    : row.how == HookRow::How::function ? "function replaced"
                                                        : "replaced",
                    "", ""};
    const std::string& effect = effect_without(row.target);
    if (row.how == HookRow::How::function) {
        if (device.function(row.target) != Presence::there) found.reason = "there is no such function";
    } else if (device.class_named(class_of_method(row.target)) != Presence::there) {
        found.reason = "there is no class " + class_of_method(row.target);
    } else if (row.how == HookRow::How::replaced) {
        if (device.method(row.target).presence != Presence::there)
            found.reason = "the class has no such method";
    } else if (device.own_method(row.target).presence == Presence::there) {
        found.reason = "the class has such a method already, which stays";
    }
    if (!found.is_well()) found.effect = effect;
    return found;
}

Diagnosis diagnosis_of(const LookUp& wanted, const DeviceDescription& device) {
    using enum LookUp::Kind;
    const bool is_class = wanted.kind == class_name, is_variable = wanted.kind == variable;
    Diagnosis found{is_class      ? wanted.class_name
                    : is_variable ? wanted.class_name + " " + wanted.member
                                  : wanted.member,
                    is_class      ? "class looked up"
                    : is_variable ? "variable read"
                                  : "method called",
                    "", ""};
    if (device.class_named(wanted.class_name) != Presence::there) {
        // Nothing reads a variable of a class that is not there: its hooks are not either.
        if (is_variable) return found;
        found.reason = "there is no class " + wanted.class_name;
        found.effect = wanted.without_class;
    } else if (is_variable && device.variable(wanted.class_name, wanted.member).presence != Presence::there) {
        found.reason = "the class has no such variable";
        found.effect = wanted.without_member;
    } else if (wanted.kind == class_method && device.method(wanted.member).presence != Presence::there) {
        found.reason = "the class has no such method";
        found.effect = wanted.without_member;
    }
    return found;
}

template <class Wanted>
std::vector<Diagnosis> diagnoses(const std::vector<Wanted>& all, const DeviceDescription& device) {
    std::vector<Diagnosis> found;
    for (const Wanted& one : all) found.push_back(diagnosis_of(one, device));
    return found;
}

size_t count_well(const std::vector<Diagnosis>& all) {
    return static_cast<size_t>(std::ranges::count_if(all, &Diagnosis::is_well));
}

void print(const Diagnosis& one, const char* well, const std::string& number) {
    std::printf("  %3s %s %s\n", number.c_str(),
                one.is_well() ? toned(Tone::good, well).c_str() : toned(Tone::bad, "missing ").c_str(),
                one.target.c_str());
    if (!one.is_well()) std::printf("        %s: %s\n", one.reason.c_str(), one.effect.c_str());
}

void print(const std::string& file, const std::vector<Diagnosis>& rows, const std::vector<Diagnosis>& found) {
    std::printf("%s: %zu of %s would be installed, and %zu of %s would be found\n",
                toned(Tone::strong, one_line(file, 4096)).c_str(), count_well(rows),
                counted(rows.size(), "hook").c_str(), count_well(found),
                counted(found.size(), "thing").c_str());
    for (size_t i = 0; i < rows.size(); ++i) print(rows[i], "installs", std::to_string(i + 1));
    std::printf("looked up beside the hooks:\n");
    for (const Diagnosis& one : found) print(one, "found   ", "");
}

Json in_json(const std::vector<Diagnosis>& all) {
    Json list = Json::array();
    for (const Diagnosis& one : all) list.push_back(one.in_json());
    return list;
}

struct Doctor {
    std::string file;
    bool json = false, describe = false;

    Status operator()() const {
        if (describe)
            return in_workshop([](const Workshop& workshop) {
                std::fputs(simulated_description(workshop).c_str(), stdout);
                return Status::fine;
            });
        const std::string source =
            file.empty() ? (data_folder() / "devices" / "simulated-12.4.txt").string() : file;
        const DeviceDescription device = DeviceDescription::parse(read_input(source, "description"), source);
        return in_workshop([&](const Workshop& workshop) {
            const std::vector<HookRow> table = installed_hook_rows(workshop);
            std::vector<std::string> targets;
            for (const HookRow& row : table) targets.push_back(row.target);
            require_effects_of(targets);
            const auto rows = diagnoses(table, device);
            const auto found = diagnoses(look_ups(), device);
            const size_t missing = rows.size() - count_well(rows) + found.size() - count_well(found);
            if (json)
                std::fputs(printed({{"device", source},
                                    {"hooks", command::in_json(rows)},
                                    {"lookUps", command::in_json(found)},
                                    {"summary",
                                     {{"hooks", rows.size()},
                                      {"wouldInstall", count_well(rows)},
                                      {"lookUps", found.size()},
                                      {"wouldBeFound", count_well(found)}}}})
                               .c_str(),
                           stdout);
            else
                print(source, rows, found);
            return missing ? Status::finding : Status::fine;
        });
    }
};

}  // namespace

void add_doctor(CLI::App& command, Request& request) {
    auto options = std::make_shared<Doctor>();
    CLI::App* sub = add_subcommand(
        command, request, "doctor",
        "Say which hooks would be installed on a system, and what would stay unthemed", options);
    CLI::Option* file =
        sub->add_option("FILE", options->file, "The system's description; the simulated iOS 12.4 without it")
            ->type_name("");
    CLI::Option* describe =
        sub->add_flag("--describe", options->describe, "Print the description of the simulated system");
    add_json(sub, options->json);
    describe->excludes(file)->excludes(sub->get_option("--json"));
    sub->footer(
        "A description has a fact to a line, in any order; \"#\" begins a remark:\n"
        "  class UIKBEdgeEffect : NSObject\n"
        "  -[UIKBEdgeEffect edges]\n"
        "  +[UIKBGradient gradientWithName:]\n"
        "  variable UIKeyboardPredictionCell m_activeView\n"
        "  function UIKBGetNamedColor\n"
        "Subclasses have what their superclasses have.\n\n"
        "Examples:\n"
        "  huecraft doctor\n"
        "  huecraft doctor iphone-12.5.txt\n"
        "  huecraft doctor --json iphone-12.5.txt | jq .summary");
}

}  // namespace command
