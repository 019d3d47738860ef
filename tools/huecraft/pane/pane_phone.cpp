#include "pane/pane_phone.h"

#include <algorithm>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/moderation.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "package/package.h"
#include "photos/decoding.h"
#include "support/text.h"

namespace command {
namespace {

namespace fs = std::filesystem;

constexpr const char *preferences = "var/mobile/Library/Preferences",
                     *photos = "var/mobile/Media/DCIM/100APPLE";
const std::string preference_file = std::string(preferences) + "/com.quillmoth.huecraftios12.plist",
                  themes = std::string(preferences) + "/HuecraftConfiguration";

/// The files of a folder, without what is in folders of its own; none when there is no folder.
std::vector<fs::path> files_in(const fs::path& folder) {
    std::vector<fs::path> found;
    if (fs::is_directory(folder))
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.is_regular_file()) found.push_back(entry.path().filename());
    std::ranges::sort(found);
    return found;
}

}  // namespace

fs::path pane_image(const std::string& named) {
    return named.empty() ? beside_the_command("HuecraftSettings.so") : fs::path(named);
}

void lay_out(const Workshop& workshop, const std::vector<std::string>& packages, const fs::path& image) {
    std::vector<std::string> files = packages;
    if (files.empty())
        for (const char* name : {"library.deb", "settings.deb"}) files.push_back(beside_the_command(name));
    for (const std::string& file : files)
        for (const PackagedFile& installed :
             open_package(read_input(file, "package", largest_input), file).data)
            if (installed.kind == PackagedFile::Kind::file)
                put(workshop.device / installed.path.substr(1), installed.contents);
    const fs::path place = workshop.device / (settings_path + 1);
    if (!fs::exists(place))
        throw Unusable(joined(files), "no settings pane is inside; expected " + std::string(settings_path) +
                                          " in one of the packages");
    put(place, read_input(image, "settings pane", largest_input));
    // What restarts the home screen, as jailbroken phones have it. It is noted, never run.
    put(workshop.device / "usr/bin/sbreload", "");
}

void lend_device(const Workshop& workshop, const std::string& device) {
    require_folder(device);
    for (const std::string& folder : {std::string(preferences), themes, std::string(photos)})
        for (const fs::path& name : files_in(fs::path(device) / folder))
            put(workshop.device / folder / name,
                read_input(fs::path(device) / folder / name, "file of the device", largest_input));
}

void take_back_device(const Workshop& workshop, const std::string& device) {
    const fs::path to(device);
    for (const fs::path& folder : {to, workshop.device})
        for (const fs::path& name : files_in(folder / themes))
            take_back(workshop.device / themes / name, to / themes / name);
    take_back(workshop.device / preference_file, to / preference_file);
}

void add_photo(const Workshop& workshop, const std::string& file) {
    const std::string bytes = read_input(file, "photo", largest_input);
    require_picture(bytes, file);
    put(workshop.device / photos / fs::path(file).filename(), bytes);
}

std::string preferences_in_words(const Workshop& workshop) {
    const fs::path file = workshop.device / preference_file;
    if (!fs::exists(file)) return "no file";
    const std::string bytes = read_input(file);
    require_moderate(bytes, file);
    auto* content = as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
        data_of(bytes), NSPropertyListSerialization::immutable, nullptr, nullptr));
    if (!content) return "not a property list";
    auto* enabled = as<NSNumber>(content->objectForKey(tools::text("_Enabled")));
    auto* chosen = as<NSString>(content->objectForKey(tools::text("_Config")));
    return (enabled && enabled->boolValue() ? "on" : "off") +
           (chosen ? ", " + one_line(tools::utf8(chosen)) : "");
}

std::vector<std::string> themes_of_user(const Workshop& workshop) {
    std::vector<std::string> names;
    for (const fs::path& name : files_in(workshop.device / themes)) names.push_back(name);
    return names;
}

}  // namespace command
