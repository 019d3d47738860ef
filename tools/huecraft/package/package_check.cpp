// huecraft package-check: opens a package for the device again, and verifies what is inside.
#include <algorithm>
#include <cstdio>
#include <utility>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "cli/workshop.h"
#include "formats/value.h"
#include "package/checks.h"
#include "support/phone.h"

namespace command {
namespace {

struct PackageCheck {
    std::vector<std::string> files;
    bool json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            tools::boot(workshop.device, tools::settings);
            objc::AutoreleasePool pool;
            Json all = Json::array();
            const Status status = for_each_file(files, [&](const std::string& file) {
                const Package package = open_package(read_input(file, "package", largest_input), file);
                const Checks checks = checks_of(package, workshop);
                json ? all.push_back(in_json(file, checks)) : print(file, checks);
                return faulty(checks) ? Status::finding : Status::fine;
            });
            if (json) std::fputs(printed({{"files", all}}).c_str(), stdout);
            return status;
        });
    }

  private:
    mutable bool library_is_loaded = false;

    Checks checks_of(const Package& package, const Workshop& workshop) const {
        if (package.is_of_themes()) {
            if (!std::exchange(library_is_loaded, true)) tools::load(library());
            return checks_of_theme_package(package, workshop);
        }
        Checks checks = checks_of_package(package);
        const std::string& image = package.image().contents;
        std::ranges::move(package.is_of_describe()   ? checks_of_executable(image)
                          : package.is_of_settings() ? checks_of_pane(image, package.is_for_a12())
                                                     : checks_of_dylib(image, package.is_for_a12()),
                          std::back_inserter(checks));
        return checks;
    }

    static size_t faulty(const Checks& checks) {
        return static_cast<size_t>(
            std::ranges::count_if(checks, [](const Check& check) { return !check.faults.empty(); }));
    }

    static void print(const std::string& file, const Checks& checks) {
        const size_t failed = faulty(checks);
        const std::string verdict =
            failed ? std::to_string(failed) + " of " + counted(checks.size(), "check") + " failed"
                   : "sound; " + counted(checks.size(), "check") + " passed";
        std::printf("%s: %s\n", toned(Tone::strong, one_line(file, 4096)).c_str(),
                    toned(failed ? Tone::bad : Tone::good, verdict).c_str());
        for (const Check& check : checks) {
            const bool passed = check.faults.empty();
            std::printf(
                "  %s %s: %s\n", toned(passed ? Tone::good : Tone::bad, passed ? "ok" : "not ok").c_str(),
                check.name.c_str(), passed ? check.found.c_str() : joined(check.faults, "; ").c_str());
        }
    }

    static Json in_json(const std::string& file, const Checks& checks) {
        Json list = Json::array();
        for (const Check& check : checks)
            list.push_back({{"name", check.name},
                            {"passed", check.faults.empty()},
                            {"found", check.faults.empty() ? Json(check.found) : Json(nullptr)},
                            {"faults", check.faults}});
        return {{"file", file}, {"passed", faulty(checks) == 0}, {"checks", list}};
    }
};

}  // namespace

void add_package_check(CLI::App& command, Request& request) {
    auto options = std::make_shared<PackageCheck>();
    const Subcommand sub = add_subcommand(command, request, "package-check",
                                          "Open packages for the device and verify what is inside", options);
    sub.add_option("PACKAGES", options->files, "The packages").required().type_name("FILE");
    add_json(sub, options->json);
    sub.footer(
        "Held against the lists of exports and imports that the command was built with. Nothing is "
        "installed\n"
        "or run.\n\n"
        "Examples:\n"
        "  huecraft package-check com.quillmoth.huecraftios12_0.1.0_iphoneos-arm.deb\n"
        "  huecraft package-check --json *.deb | jq '.files[].passed'");
}

}  // namespace command
