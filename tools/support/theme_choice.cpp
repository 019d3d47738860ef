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

}  // namespace tools
