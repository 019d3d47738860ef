// The pane's classes, as the runtime describes them.
#include <regex>

#include "settings_page.h"

namespace test {
namespace {

using PaneClasses = SettingsPage;

// As key-value coding and a debugger look for it: _name.
TEST_F(PaneClasses, NameTheirVariablesAsTheSystemsDo) {
    open();
    for (const char* name :
         {"HuecraftSettingsController", "HuecraftSettingsEditor", "HuecraftSettingsCropper",
          "HuecraftSettingsColorPicker", "HuecraftSettingsCompatibilityController"}) {
        Class described = objc_lookUpClass(name);
        ASSERT_NE(described, nullptr) << name;
        unsigned count = 0;
        Ivar* all = class_copyIvarList(described, &count);
        for (unsigned i = 0; i < count; ++i) {
            const std::string variable = ivar_getName(all[i]), type = ivar_getTypeEncoding(all[i]);
            EXPECT_TRUE(std::regex_match(variable, std::regex("_[a-z][A-Za-z]*"))) << name << " " << variable;
            EXPECT_TRUE(std::regex_match(type, std::regex(R"(@|@"\w+"|[Bcdqi]|\^?\{\w+=[\w={}]*\})")))
                << name << " " << variable << " " << type;
        }
        std::free(all);
    }
}

}  // namespace
}  // namespace test
