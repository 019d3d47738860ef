#include "support/themes.h"

#include "support/runtime.h"

namespace test {

std::string property_list(std::string_view root) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + std::string(root) +
           "</plist>\n";
}

std::string theme(std::string_view more) {
    return property_list(
        "<dict><key>_ConfigName</key><string>Meadow</string>"
        "<key>_TextColor</key><string>#00FF00</string>"
        "<key>_HighlightColor</key><string>#FF8000</string>"
        "<key>_BackgroundType</key><integer>2</integer>"
        "<key>_Colors</key><array><string>#000000</string><string>#FF0000</string></array>"
        "<key>_GradientDirection</key><integer>7</integer>" +
        std::string(more) + "</dict>");
}

namespace {
void write_preferences(const Phone& phone, bool enabled, const std::string& theme_file) {
    phone.write(preference_file,
                property_list(std::string("<dict><key>_Enabled</key>") + (enabled ? "<true/>" : "<false/>") +
                              "<key>_Config</key><string>" + theme_file + "</string></dict>"));
}
}  // namespace

void arrange_theme(const Phone& phone, bool enabled, std::string_view more_of_theme) {
    write_preferences(phone, enabled, "Meadow.plist");
    phone.write(std::string(theme_folder) + "Meadow.plist", theme(more_of_theme));
}

void arrange_theme_of(const Phone& phone, std::string_view xml_of_dictionary) {
    write_preferences(phone, true, "Made.plist");
    phone.write(std::string(theme_folder) + "Made.plist",
                property_list("<dict>" + std::string(xml_of_dictionary) + "</dict>"));
}

id active_theme() {
    return variable<id>(objc::send<"sharedInstance", id>(class_named("HCPreferences")), "configCache");
}

void recolour_theme(UIColor* text, UIColor* highlight) {
    objc::send<"setTextColor:">(active_theme(), text);
    objc::send<"setHighlightColor:">(active_theme(), highlight);
}

}  // namespace test
