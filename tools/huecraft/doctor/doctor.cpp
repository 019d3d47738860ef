// huecraft doctor: what the library would find on a system, and what users would see where something is
// missing.
#include <algorithm>
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "doctor/devices.h"
#include "doctor/diagnosis.h"
#include "doctor/differences.h"
#include "doctor/model.h"
#include "formats/value.h"

namespace command {
namespace {

/// So many differences of a kind are printed; JSON has them all.
constexpr size_t most_printed = 40;

/// The system that the simulator models.
constexpr const char* modelled_system = "12.4";

void print(const Diagnosis& one, const char* well, const std::string& number) {
    const auto word = [&] {
        switch (one.verdict) {
            case Diagnosis::Verdict::well: return toned(Tone::good, well);
            case Diagnosis::Verdict::missing: return toned(Tone::bad, "missing ");
            case Diagnosis::Verdict::differs: return toned(Tone::bad, "differs ");
            case Diagnosis::Verdict::unrecorded: return toned(Tone::warning, "unknown ");
        }
        return std::string();
    };
    std::printf("  %3s %s %s\n", number.c_str(), word().c_str(), one.target.c_str());
    if (one.verdict == Diagnosis::Verdict::unrecorded)
        std::printf("        %s\n", one.reason.c_str());
    else if (one.is_wrong())
        std::printf("        %s: %s\n", one.reason.c_str(), one.effect.c_str());
}

/// "; 1 differs, 2 are not recorded", where there are such.
std::string exceptions(const Examination& one) {
    const size_t differing = one.count(Diagnosis::Verdict::differs),
                 unrecorded = one.count(Diagnosis::Verdict::unrecorded);
    std::string text;
    if (differing) text += "; " + std::to_string(differing) + (differing == 1 ? " differs" : " differ");
    if (unrecorded)
        text += "; " + std::to_string(unrecorded) + (unrecorded == 1 ? " was" : " were") + " not recorded";
    return text;
}

void print(const Examination& one) {
    std::printf("%s: %zu of %s would be installed, and %zu of %s would be found%s\n",
                toned(Tone::strong, one_line(one.device, 4096)).c_str(), count_found(one.rows),
                counted(one.rows.size(), "hook").c_str(), count_found(one.looked_up),
                counted(one.looked_up.size(), "thing").c_str(), exceptions(one).c_str());
    for (size_t i = 0; i < one.rows.size(); ++i) print(one.rows[i], "installs", std::to_string(i + 1));
    std::printf("looked up beside the hooks:\n");
    for (const Diagnosis& found : one.looked_up) print(found, "found   ", "");
}

/// A line for each system; then what is wrong with which.
void print(const std::vector<Examination>& all) {
    std::printf("%-16s %-10s %s\n", "system", "hooks", "looked up");
    for (const Examination& one : all) {
        const auto share = [](const std::vector<Diagnosis>& part) {
            return std::to_string(count_found(part)) + " of " + std::to_string(part.size());
        };
        std::string line = share(one.looked_up);
        if (const std::string more = exceptions(one); !more.empty())
            line += std::string(10 - std::min<size_t>(line.size(), 9), ' ') + more.substr(2);
        std::printf("%-16s %-10s %s\n", one.device.c_str(), share(one.rows).c_str(), line.c_str());
    }
    const auto print_wrong = [&](std::vector<Diagnosis> Examination::* part, bool numbered) {
        for (size_t i = 0; i < (all.front().*part).size(); ++i) {
            std::string reason, effect, systems;
            for (const Examination& one : all) {
                const Diagnosis& found = (one.*part)[i];
                if (!found.is_wrong()) continue;
                systems += (systems.empty() ? "" : ", ") + one.device;
                if (reason.find(found.reason) == reason.npos)
                    reason += (reason.empty() ? "" : "; ") + found.reason;
                effect = found.effect;
            }
            if (systems.empty()) continue;
            std::printf(
                "%s%s\n        %s: %s\n        %s\n",
                numbered ? ("  " + std::string(i < 9 ? "  " : " ") + std::to_string(i + 1) + " ").c_str()
                         : "      ",
                (all.front().*part)[i].target.c_str(), systems.c_str(), reason.c_str(), effect.c_str());
        }
    };
    print_wrong(&Examination::rows, true);
    print_wrong(&Examination::looked_up, false);
}

struct Doctor {
    std::string file, against;
    std::vector<std::string> systems;
    bool json = false, describe = false, model = false;

    Status operator()() const {
        if (describe)
            return in_workshop([](const Workshop& workshop) {
                std::fputs(simulated_description(workshop).c_str(), stdout);
                return Status::fine;
            });
        if (model)
            return in_workshop([](const Workshop& workshop) {
                const DeviceDescription system = description_of_system(modelled_system);
                for (const std::string& line : model_differences(simulated_classes(workshop), system))
                    std::printf("%s\n", line.c_str());
                return Status::fine;
            });
        std::vector<std::pair<std::string, DeviceDescription>> devices;
        if (!file.empty()) devices.emplace_back(file, description_in_file(file));
        for (const std::string& system : systems) devices.emplace_back(system, description_of_system(system));
        if (devices.empty())
            for (const std::string& system : described_systems())
                if (system.starts_with("12")) devices.emplace_back(system, description_of_system(system));
        if (!against.empty() && devices.size() != 1)
            throw Unusable("--against " + against,
                           "expected one description to compare, a file's or a system's");
        return in_workshop([&](const Workshop& workshop) {
            const std::vector<HookRow> table = installed_hook_rows(workshop);
            std::vector<std::string> targets;
            for (const HookRow& row : table) targets.push_back(row.target);
            require_effects_of(targets);
            return against.empty() ? examine(devices, table)
                                   : compare(devices[0].first, devices[0].second, table);
        });
    }

  private:
    Status examine(const std::vector<std::pair<std::string, DeviceDescription>>& devices,
                   const std::vector<HookRow>& table) const {
        std::vector<Examination> all;
        for (const auto& [name, device] : devices) all.emplace_back(name, device, table);
        if (json && all.size() == 1) {
            std::fputs(printed(all[0].in_json()).c_str(), stdout);
        } else if (json) {
            Json list = Json::array();
            for (const Examination& one : all) list.push_back(one.in_json());
            std::fputs(printed({{"systems", list}}).c_str(), stdout);
        } else if (all.size() == 1) {
            print(all[0]);
        } else {
            print(all);
        }
        return std::ranges::all_of(all, &Examination::is_well) ? Status::fine : Status::finding;
    }

    /// The system that is meant by --against, or the file.
    DeviceDescription other() const {
        const auto all = described_systems();
        return std::ranges::find(all, against) == all.end() ? description_in_file(against)
                                                            : description_of_system(against);
    }

    Status compare(const std::string& name, const DeviceDescription& device,
                   const std::vector<HookRow>& table) const {
        std::set<std::string> watched;
        for (const HookRow& row : table)
            watched.insert(row.how == HookRow::How::function ? row.target : class_of_method(row.target));
        for (const compatibility::LookUp& one : compatibility::look_ups()) watched.insert(one.class_name);
        const auto found = differences(device, other(), watched);
        if (json) {
            Json list = Json::array();
            for (const Difference& one : found) {
                using enum Difference::Kind;
                list.push_back({{"kind", one.kind == gone    ? "gone"
                                         : one.kind == added ? "new"
                                                             : "changed"},
                                {"what", one.what}});
                if (one.kind == changed) list.back().update({{"now", one.now}, {"before", one.before}});
            }
            std::fputs(printed({{"device", name}, {"against", against}, {"differences", list}}).c_str(),
                       stdout);
        } else {
            std::printf("%s against %s: %s\n", toned(Tone::strong, one_line(name, 4096)).c_str(),
                        one_line(against, 4096).c_str(), counted(found.size(), "difference").c_str());
            for (const auto kind :
                 {Difference::Kind::gone, Difference::Kind::changed, Difference::Kind::added}) {
                size_t printed = 0, all = 0;
                for (const Difference& one : found) {
                    if (one.kind != kind) continue;
                    if (++all <= most_printed) ++printed, std::printf("  %s\n", one.in_words().c_str());
                }
                if (all > printed) std::printf("  … and %zu more; --json has them all\n", all - printed);
            }
        }
        return found.empty() ? Status::fine : Status::finding;
    }
};

}  // namespace

void add_doctor(CLI::App& command, Request& request) {
    auto options = std::make_shared<Doctor>();
    const Subcommand sub = add_subcommand(
        command, request, "doctor",
        "Say which hooks would be installed on a system, and what would stay unthemed", options);
    const Option file = sub.add_option("FILE", options->file,
                                       "A system's description; all of iOS 12 that is known without it")
                            .type_name("");
    const Option system =
        sub.add_option("--system", options->systems,
                       "A system whose description comes along, such as 12.4; may be repeated")
            .type_name("VERSION")
            .allow_extra_args(false);
    const Option against = sub.add_option("--against", options->against,
                                          "Say what differs from that system, or from another file's")
                               .type_name("VERSION");
    const Option describe =
        sub.add_flag("--describe", options->describe, "Print the description of the simulated system");
    const Option model =
        sub.add_flag("--model", options->model,
                     "Print what the simulator's classes have otherwise than those of the real iOS 12.4");
    const Option json = add_json(sub, options->json);
    describe.excludes(file).excludes(system).excludes(against).excludes(json);
    model.excludes(file).excludes(system).excludes(against).excludes(describe).excludes(json);
    system.excludes(file);
    sub.footer(
        "A description has a fact to a line, in any order; \"#\" begins a remark:\n"
        "  system 12.4\n"
        "  class UIKBEdgeEffect : NSObject\n"
        "  -[UIKBEdgeEffect edges] Q@:\n"
        "  +[UIKBGradient gradientWithName:] @@:@\n"
        "  variable UIKeyboardPredictionCell m_activeView @\"UIView\"\n"
        "  function UIKBGetNamedColor\n"
        "  unrecorded class SpringBoard\n"
        "Subclasses have what their superclasses have. Types may be left out.\n\n"
        "Examples:\n"
        "  huecraft doctor\n"
        "  huecraft doctor --system 12.1.1\n"
        "  huecraft doctor iphone-12.5.txt\n"
        "  huecraft doctor iphone-12.5.txt --against 12.4\n"
        "  huecraft doctor --json iphone-12.5.txt | jq .summary");
}

}  // namespace command
