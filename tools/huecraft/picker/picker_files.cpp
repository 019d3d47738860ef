#include "picker/picker_files.h"

#include "cli/files.h"
#include "formats/moderation.h"
#include "formats/property_list.h"
#include "objc/fast_enumeration.h"
#include "support/text.h"
#include "themes/theme.h"
#include "themes/theme_saving.h"

namespace command {
namespace {

namespace fs = std::filesystem;

constexpr const char* recent_place = "var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist";
constexpr const char* eclipse_library = "Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib";
constexpr const char* eclipse_preferences = "var/mobile/Library/Preferences/com.hvelden.eclipse.plist";
/// All that the picker reads.
constexpr const char* read_by_the_picker[] = {recent_place, eclipse_library, eclipse_preferences,
                                              "Library/PreferenceBundles/Huecraft.bundle/copy.png",
                                              "Library/PreferenceBundles/Huecraft.bundle/paste.png"};

}  // namespace

std::string PickerFiles::recent_file() const {
    if (!recent.empty()) return recent;
    return device.empty() ? "" : (fs::path(device) / recent_place).string();
}

void PickerFiles::lend(const Workshop& workshop) const {
    if (!device.empty()) {
        require_folder(device);
        for (const char* place : read_by_the_picker)
            if (const fs::path file = fs::path(device) / place; fs::exists(file))
                put(workshop.device / place, read_input(file, "file of the device"));
    }
    if (!recent.empty()) {
        const std::string contents = read_input(recent, "file of recent colours");
        require_moderate(contents, recent);
        put(workshop.device / recent_place, contents);
    }
}

void PickerFiles::take_back(const Workshop& workshop) const {
    const fs::path written = workshop.device / recent_place;
    if (fs::exists(written)) command::take_back(written, recent_file());
}

RecentColours recent_colours(const Workshop& workshop, const std::string& name) {
    const fs::path file = workshop.device / recent_place;
    if (!fs::exists(file)) return {"no file", nullptr};
    const std::string bytes = read_input(file);
    require_moderate(bytes, name);
    id root = NSPropertyListSerialization::propertyListWithData(
        data_of(bytes), NSPropertyListSerialization::immutable, nullptr, nullptr);
    require_moderate(root, name);
    auto* dictionary = as<NSDictionary>(root);
    if (!dictionary) return {root ? "no dictionary, but " + in_words(root) : "no property list", nullptr};
    id list = dictionary->objectForKey(tools::text("Colors"));
    auto* colours = as<NSArray>(list);
    if (!colours) return {"no list, but " + in_words(list), json_of(list)};
    RecentColours found{"", Json::array()};
    objc::for_each<NSObject>(colours, [&](NSObject* each) {
        found.words += (found.words.empty() ? "" : ", ") + in_words(each);
        found.json.push_back(json_of(each));
    });
    if (found.words.empty()) found.words = "none";
    return found;
}

void install_eclipse(const Workshop& workshop) {
    put(workshop.device / eclipse_library, "");
    put(workshop.device / eclipse_preferences, "{ enabled = 1; \"EnabledApps-com.apple.Preferences\" = 1; }");
}

// ---- The theme ------------------------------------------------------------------------------------------

EditedTheme::EditedTheme(const Workshop& workshop, std::string file, const std::string& key)
    : file_(std::move(file)),
      highlight_(key == "highlight"),
      contents_(read_input(file_)),
      form_(parse_property_list(contents_, file_).form),
      config_(load_theme(workshop, file_, contents_).config) {
    if (!config_->getConfigName())
        throw Unusable(file_,
                       "the theme has no name (_ConfigName), and the library saves no theme without one");
}

UIColor* EditedTheme::colour() const {
    return highlight_ ? config_->getHighlightColor() : config_->getTextColor();
}

void EditedTheme::set_colour(UIColor* colour) {
    highlight_ ? config_->setHighlightColor(colour) : config_->setTextColor(colour);
    changed_ = true;
}

std::string EditedTheme::key() const {
    return name_of(highlight_ ? ThemeKey::highlight_colour : ThemeKey::text_colour);
}

id EditedTheme::stored() const { return config_->asPlist()->objectForKey(tools::text(key())); }

void EditedTheme::save(const Workshop& workshop) const {
    const std::string name = config_->getConfigName()->UTF8String();
    save_theme(
        config_,
        {.name = name, .output = file_, .form = form_ == Form::binary ? form_ : Form::xml, .force = true},
        file_, workshop);
}

}  // namespace command
