#include "support/theme_choice.h"

#include "support/phone.h"
#include "support/text.h"

namespace tools {

void choose_theme(const std::string& file_name) {
    id values[] = {NSNumber::numberWithBool(!file_name.empty()), text(file_name)};
    id keys[] = {text("_Enabled"), text("_Config")};
    NSDictionary* preferences = NSDictionary::dictionaryWithObjects(values, keys, 2);
    const char* path = "/var/mobile/Library/Preferences/com.quillmoth.huecraftios12.plist";
    if (!preferences->writeToFile(text(path), true)) throw Failure(std::string("cannot write ") + path);
}

void require_theme() {
    id store = objc::send<"sharedInstance", id>(reinterpret_cast<id>(objc_getClass("HCPreferences")));
    if (!objc::send<"isEnabled", bool>(store))
        throw Failure("the library could not read the phone's theme or preferences");
}

}  // namespace tools
