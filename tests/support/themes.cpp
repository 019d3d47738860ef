// Theme and preference files for tests.
#include "support/themes.h"

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

void arrange_theme(const Phone& phone, bool enabled, std::string_view more_of_theme) {
    phone.write(preference_file,
                property_list(std::string("<dict><key>_Enabled</key>") + (enabled ? "<true/>" : "<false/>") +
                              "<key>_Config</key><string>Meadow.plist</string></dict>"));
    phone.write(std::string(theme_folder) + "Meadow.plist", theme(more_of_theme));
}

}  // namespace test
