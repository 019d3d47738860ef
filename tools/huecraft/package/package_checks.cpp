// Checks of a package, apart from the dylib or the executable in it.
#include <algorithm>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "objc/fast_enumeration.h"
#include "package/checks.h"
#include "package/control_fields.h"
#include "support/text.h"

namespace command {
namespace {

using Kind = PackagedFile::Kind;

const std::string libraries = "/Library/MobileSubstrate/DynamicLibraries";
const std::string dylib_path = libraries + "/HuecraftiOS12.dylib",
                  filter_path = libraries + "/HuecraftiOS12.plist";
const std::string bundle = "/Library/PreferenceBundles/Huecraft.bundle";
constexpr const char* folders[] = {"/",
                                   "/Library",
                                   "/Library/MobileSubstrate",
                                   "/Library/MobileSubstrate/DynamicLibraries",
                                   "/Library/PreferenceBundles",
                                   "/Library/PreferenceBundles/Huecraft.bundle"};
// What the library reads at its plain name; pictures for finer screens lie beside them.
constexpr const char* pictures[] = {"PreviewKeyboardBackground.png",
                                    "PreviewKeyboardText.png",
                                    "PreviewKeyboardHighlight.png",
                                    "PreviewKeyboardKeyCaps.png",
                                    "copy.png",
                                    "paste.png"};
constexpr const char* folders_of_describe[] = {"/", "/usr", "/usr/bin"};
const std::string settings_bundle = "/Library/PreferenceBundles/HuecraftSettings.bundle",
                  settings_entry = "/Library/PreferenceLoader/Preferences/HuecraftSettings.plist";
constexpr size_t largest_package = 250 << 10, largest_package_of_settings = 350 << 10;
/// A package for the A12 has its image twice, in two slices.
constexpr size_t more_for_a12 = 200 << 10;

/// What users have, and a package must never bring along or replace: settings and themes.
bool is_preference(const PackagedFile& file) {
    return file.kind != Kind::folder && (file.path.find("/Preferences/") != file.path.npos ||
                                         file.path.find("/HuecraftConfiguration/") != file.path.npos ||
                                         (file.path.ends_with(".plist") && file.path != filter_path));
}

/// The entry, and in the bundle: what describes it, the binary, icons, texts, and themes that are only read.
bool has_its_place_in_settings(const PackagedFile& file) {
    if (file.kind == PackagedFile::Kind::folder)
        return file.path == "/" || settings_entry.starts_with(file.path + "/") ||
               settings_bundle == file.path || settings_bundle.starts_with(file.path + "/") ||
               file.path == settings_bundle + "/Themes" ||
               (file.path.starts_with(settings_bundle + "/") && file.path.ends_with(".lproj"));
    if (file.path == settings_entry) return true;
    if (!file.path.starts_with(settings_bundle + "/")) return false;
    const std::string inside = file.path.substr(settings_bundle.size() + 1);
    const bool deeper = inside.find('/') != inside.npos;
    if (!deeper) return inside == "HuecraftSettings" || inside == "Info.plist" || inside.ends_with(".png");
    return inside == "Themes/" + file.name() ? inside.ends_with(".plist")
                                             : inside.ends_with(".lproj/Localizable.strings");
}

bool has_its_place_in_describe(const PackagedFile& file) {
    return file.kind == Kind::folder
               ? std::ranges::find(folders_of_describe, file.path) != std::end(folders_of_describe)
               : file.path == describe_path;
}

bool has_its_place(const PackagedFile& file) {
    if (file.kind == Kind::folder) return std::ranges::find(folders, file.path) != std::end(folders);
    return file.path == dylib_path || file.path == filter_path ||
           (file.path.ends_with(".png") && file.path == bundle + "/" + file.name());
}

Check layout(const Package& package) {
    Check check{.name = "layout", .found = {}, .faults = faults_of_frame(package)};
    auto& faults = check.faults;
    for (const PackagedFile& file : package.control)
        if (file.path != "/" && file.path != "/control")
            faults.push_back("found " + one_line(file.path) + " for the installer, expected control alone");

    std::vector<std::string> paths;
    size_t files = 0;
    for (const PackagedFile& file : package.data) {
        paths.push_back(file.path);
        files += file.kind == Kind::file;
        const std::string path = one_line(file.path, 200);
        if (!package.is_of_settings() && is_preference(file)) continue;  // reported by a check of its own
        if (file.kind == Kind::other)
            faults.push_back("found " + path + ", which is neither file nor folder");
        else if (!(package.is_of_describe()   ? has_its_place_in_describe(file)
                   : package.is_of_settings() ? has_its_place_in_settings(file)
                                              : has_its_place(file)))
            faults.push_back("found " + path + ", which has no place in the package");
        const unsigned mode = file.kind == Kind::folder || file.path == describe_path ? 0755 : 0644;
        if (file.mode != mode)
            faults.push_back("found mode " + octal(file.mode) + " at " + path + ", expected " + octal(mode));
        if (!file.of_root) faults.push_back("found another owner than root at " + path);
    }
    std::ranges::sort(paths);
    if (const auto twice = std::ranges::adjacent_find(paths); twice != paths.end())
        faults.push_back("found " + one_line(*twice, 200) + " twice");

    std::vector<std::string> needed{describe_path};
    if (package.is_of_settings()) {
        needed = {settings_path, settings_entry};
        for (const char* name : {"Info.plist", "icon.png", "icon@2x.png", "icon@3x.png"})
            needed.push_back(settings_bundle + "/" + name);
    } else if (!package.is_of_describe()) {
        needed = {dylib_path, filter_path};
        for (const char* picture : pictures) needed.push_back(bundle + "/" + picture);
    }
    for (const std::string& path : needed)
        if (!std::ranges::binary_search(paths, path)) faults.push_back("found no " + path);
    check.found = counted(files, "file") + ", each in its place";
    return check;
}

Check preferences(const Package& package) {
    Check check{.name = "preferences", .found = "none inside", .faults = {}};
    for (const PackagedFile& file : package.data)
        if (is_preference(file))
            check.faults.push_back("found " + one_line(file.path, 200) +
                                   ", expected no file of settings or themes: those are the user's");
    return check;
}

// --- The description for the installer ---

bool is_version(const std::string& text) {
    return !text.empty() && text.front() >= '0' && text.front() <= '9' &&
           text.find_first_not_of("0123456789.-+~") == text.npos;
}

Check control(const Package& package) {
    const ControlFields fields = control_fields_of(package);
    Check check{.name = "control", .found = {}, .faults = fields.faults};
    auto& faults = check.faults;
    if (fields.values.empty()) return check;
    const bool describe = package.is_of_describe(), settings = package.is_of_settings(),
               for_a12 = package.is_for_a12();
    const std::string library = "com.quillmoth.huecraftios12";
    const std::string needs = describe   ? ""
                              : settings ? library + ", preferenceloader, "
                                         : "mobilesubstrate, ";
    const std::string ordinary = library + (describe ? ".describe" : settings ? ".settings" : "");
    std::vector<std::pair<const char*, std::string>> expected{
        {"Package", ordinary + (for_a12 ? ".a12" : "")},
        {"Architecture", "iphoneos-arm"},
        {"Depends", needs + "firmware (>= 12.0), firmware (<< 13.0)"},
    };
    // One stands in the other's place: both have the same files.
    if (for_a12)
        for (const char* field : {"Provides", "Conflicts", "Replaces"})
            expected.emplace_back(field, ordinary);
    for (const auto& [name, value] : expected)
        if (fields.value(name) != value)
            faults.push_back(std::string(name) + ": found " + fields.found(name) + ", expected \"" + value +
                             "\"");
    if (!is_version(fields.value("Version")))
        faults.push_back("Version: found " + fields.found("Version") + ", expected a number");
    for (const char* name : {"Maintainer", "Description"})
        if (fields.value(name).empty())
            faults.push_back(std::string(name) + ": found nothing, expected a text");
    // Someone with an unsupported device must learn it before the installation.
    for (const char* word : {for_a12 ? "EXPERIMENTAL" : "Not supported", "A12", "arm64e",
                             "Nothing of this package was run on a device"})
        if (fields.value("Description").find(word) == std::string::npos)
            faults.push_back("Description: expected to find \"" + std::string(word) + "\"");
    check.found = "version " + one_line(fields.value("Version")) + ", iphoneos-arm, iOS 12";
    return check;
}

// --- The filter: into which processes the library is loaded ---

/// The value of the dictionary's only key, which must be this one.
id only_value(id dictionary, const char* key, const std::string& where, Check& check) {
    if (kind_of(dictionary) != command::Kind::dictionary) {
        check.faults.push_back(where + ": found " + name_of(kind_of(dictionary)) + ", expected a dictionary");
        return nullptr;
    }
    auto* content = static_cast<NSDictionary*>(dictionary);
    id value = content->objectForKey(tools::text(key));
    if (!value) check.faults.push_back(where + ": found no key \"" + key + "\"");
    objc::for_each<NSString>(content, [&](NSString* other) {
        if (tools::utf8(other) != key)
            check.faults.push_back(where + ": found the key " + in_quotes(tools::utf8(other)) +
                                   ", expected \"" + key + "\" alone");
    });
    return value;
}

Check filter(const Package& package) {
    Check check{.name = "filter", .found = "com.apple.UIKit alone", .faults = {}};
    const PackagedFile* file = package.installed(filter_path);
    if (!file) {
        check.faults.push_back("found no " + filter_path);
        return check;
    }
    try {
        id root = parse_property_list(file->contents, filter_path).root;
        id inner = only_value(root, "Filter", "the filter file", check);
        id bundles = inner ? only_value(inner, "Bundles", "Filter", check) : nullptr;
        if (!bundles) return check;
        auto* list = static_cast<NSArray*>(bundles);
        id only =
            kind_of(bundles) == command::Kind::list && list->count() == 1 ? list->objectAtIndex(0) : nullptr;
        if (kind_of(only) != command::Kind::text ||
            tools::utf8(static_cast<NSString*>(only)) != "com.apple.UIKit")
            check.faults.push_back("Bundles: found " + in_words(only ? only : bundles) +
                                   ", expected com.apple.UIKit alone");
    } catch (const Unusable& unusable) {
        check.faults.push_back("found a file that cannot be read: " + std::string(unusable.what()));
    }
    return check;
}

/// Unpacked, and without the pictures of the preview: what the code and its surroundings weigh at most.
Check size(const Package& package) {
    size_t bytes = 0;
    for (const auto* files : {&package.control, &package.data})
        for (const PackagedFile& file : *files)
            if (!file.name().starts_with("PreviewKeyboard")) bytes += file.contents.size();
    Check check{.name = "package size",
                .found = std::to_string(package.size) +
                         " bytes; unpacked and without the preview's pictures " + std::to_string(bytes),
                .faults = {}};
    const size_t largest = (package.is_of_settings() ? largest_package_of_settings : largest_package) +
                           (package.is_for_a12() ? more_for_a12 : 0);
    if (bytes > largest)
        check.faults.push_back("found " + std::to_string(bytes) +
                               " bytes unpacked and without the preview's pictures, expected at most " +
                               std::to_string(largest));
    return check;
}

}  // namespace

Checks checks_of_package(const Package& package) {
    if (package.is_of_describe())
        return {layout(package), preferences(package), control(package), size(package)};
    if (package.is_of_settings()) return {layout(package), control(package), size(package)};
    return {layout(package), preferences(package), control(package), filter(package), size(package)};
}

}  // namespace command
