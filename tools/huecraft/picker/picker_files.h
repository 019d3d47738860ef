// The files that a colour picker meets on the phone, from the user's and back to them.
#pragma once
#include <string>

#include "cli/workshop.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "model/HuecraftConfig.h"
#include "objc/strong.h"

namespace command {

/// What the user gives; empty for nothing.
struct PickerFiles {
    /// A folder that plays a device's file system.
    std::string device;
    /// The recent colours' file, in place of the device's.
    std::string recent;

    /// Copies what the picker reads to the phone. Throws Unusable.
    void lend(const Workshop& workshop) const;
    /// The recent colours back to where they came from, if they have changed.
    void take_back(const Workshop& workshop) const;
    /// Where the recent colours come from; empty for nowhere.
    std::string recent_file() const;
};

/// What the phone's file of recent colours holds.
struct RecentColours {
    /// "no file", "no property list", "#FF0000, #00FF00".
    std::string words;
    Json json;
};
RecentColours recent_colours(const Workshop& workshop, const std::string& name);

/// Switches Eclipse, the extension that darkens the Settings app, on.
void install_eclipse(const Workshop& workshop);

/// A theme of which the picker changes one colour.
class EditedTheme {
  public:
    /// `key` is "text" or "highlight". Throws Unusable for what is not a theme, or has no name to be saved
    /// under.
    EditedTheme(const Workshop& workshop, std::string file, const std::string& key);

    /// nil when the theme has none.
    UIColor* colour() const;
    void set_colour(UIColor* colour);
    bool has_changed() const { return changed_; }
    /// The key's name in the theme's file, and what it holds.
    std::string key() const;
    id stored() const;
    /// Saves it with the library's own class, and writes that file in place of the user's.
    void save(const Workshop& workshop) const;

  private:
    std::string file_;
    bool highlight_, changed_ = false;
    std::string contents_;
    Form form_;
    objc::strong<HuecraftConfig> config_;
};

}  // namespace command
