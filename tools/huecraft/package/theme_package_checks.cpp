// Checks of a package of themes.
#include <algorithm>

#include "cli/files.h"
#include "cli/terminal.h"
#include "package/checks.h"
#include "package/control_fields.h"
#include "package/theme_package.h"
#include "themes/findings.h"
#include "themes/theme.h"

namespace command {
namespace {

using Kind = PackagedFile::Kind;

std::string folder_of(const std::string& id) { return std::string(packaged_themes) + "/" + id; }

bool is_theme(const PackagedFile& file, const std::string& id) {
    return file.kind == Kind::file && file.path == folder_of(id) + "/" + file.name() &&
           file.name().ends_with(".plist") && file.name() != ".plist";
}

Check layout(const Package& package, const std::string& id) {
    Check check{.name = "layout", .found = {}, .faults = faults_of_frame(package)};
    auto& faults = check.faults;
    for (const PackagedFile& file : package.control) {
        const bool script = file.path == "/postinst" || file.path == "/prerm";
        if (file.path != "/" && file.path != "/control" && !script)
            faults.push_back("found " + one_line(file.path) +
                             " for the installer, expected control, postinst and prerm alone");
        if (script && file.mode != 0755)
            faults.push_back("found mode " + octal(file.mode) + " at " + file.path + ", expected 0755");
    }
    size_t themes = 0;
    std::vector<std::string> paths;
    for (const PackagedFile& file : package.data) {
        const std::string path = one_line(file.path, 300);
        paths.push_back(file.path);
        themes += is_theme(file, id);
        const bool above = file.kind == Kind::folder &&
                           (folder_of(id) + "/").starts_with(file.path == "/" ? "/" : file.path + "/");
        if (!above && !is_theme(file, id))
            faults.push_back("found " + path + ", which has no place in a package of themes");
        const unsigned mode = file.kind == Kind::folder ? 0755 : 0644;
        if (file.mode != mode)
            faults.push_back("found mode " + octal(file.mode) + " at " + path + ", expected " + octal(mode));
        if (!file.of_root) faults.push_back("found another owner than root at " + path);
    }
    std::ranges::sort(paths);
    if (const auto twice = std::ranges::adjacent_find(paths); twice != paths.end())
        faults.push_back("found " + one_line(*twice, 300) + " twice");
    if (themes == 0) faults.push_back("found no theme in " + folder_of(id));
    check.found = counted(themes, "theme") + " in " + folder_of(id);
    return check;
}

Check control(const ControlFields& fields) {
    Check check{.name = "control", .found = {}, .faults = fields.faults};
    auto& faults = check.faults;
    auto require = [&](const char* name, const std::string& fault) {
        if (!fault.empty()) faults.push_back(std::string(name) + ": " + fault);
    };
    require("Package", fault_of_id(fields.value("Package")));
    require("Version", fault_of_version(fields.value("Version")));
    for (const char* name : {"Name", "Maintainer", "Description"})
        require(name, fault_of_line(fields.value(name)));
    for (const auto& [name, value] :
         {std::pair{"Architecture", "iphoneos-arm"}, {"Depends", "com.quillmoth.huecraftios12"}})
        if (fields.value(name) != value)
            faults.push_back(std::string(name) + ": found " + fields.found(name) + ", expected \"" + value +
                             "\"");
    check.found = one_line(fields.value("Package")) + " " + one_line(fields.value("Version"));
    return check;
}

/// A script is what keeps a user's files, so it is known to the byte.
Check scripts(const Package& package, const std::string& id) {
    Check check{.name = "scripts", .found = "a user's themes are never replaced", .faults = {}};
    for (const auto& [path, expected] :
         {std::pair{"/postinst", script_after_installing(id)}, {"/prerm", script_before_removing(id)}}) {
        const auto file = std::ranges::find(package.control, path, &PackagedFile::path);
        if (file == package.control.end())
            check.faults.push_back(std::string("found no ") + (path + 1));
        else if (file->contents != expected)
            check.faults.push_back(std::string("found another ") + (path + 1) + " than huecraft pack writes");
    }
    return check;
}

Check themes(const Package& package, const Workshop& workshop, const std::string& id) {
    Check check{.name = "themes", .found = {}, .faults = {}};
    size_t sound = 0;
    for (const PackagedFile& file : package.data) {
        if (!is_theme(file, id)) continue;
        const std::string name = one_line(file.name());
        try {
            on_the_phone(name, [&] {
                for (const Finding& finding : findings_in_values(load_theme(workshop, name, file.contents)))
                    if (finding.severity == Finding::Severity::error)
                        check.faults.push_back(name + ": " + finding.key + ": found " + finding.found +
                                               ", expected " + finding.expected);
            });
            ++sound;
        } catch (const Unusable& unusable) {
            check.faults.push_back(name + ": " + unusable.what());
        }
    }
    check.found = sound == 1 ? "it loads" : "all " + std::to_string(sound) + " load";
    return check;
}

}  // namespace

Checks checks_of_theme_package(const Package& package, const Workshop& workshop) {
    const ControlFields fields = control_fields_of(package);
    const std::string id = fields.value("Package");
    return {layout(package, id), control(fields), scripts(package, id), themes(package, workshop, id)};
}

}  // namespace command
