#include "laid_out_packages.h"

#include <fstream>

namespace test {
namespace {

namespace fs = std::filesystem;

void put(const Phone& phone, const fs::path& file, const std::string& folder, const std::string& name) {
    phone.make_folder("/" + folder);
    fs::copy_file(file, phone.host("/" + folder + "/" + name), fs::copy_options::overwrite_existing);
}

}  // namespace

void lay_out_packages(const Phone& phone, const fs::path& pane) {
    std::ifstream list(PANE_FILES);
    std::string mode, file, folder;
    while (std::getline(list, mode) && std::getline(list, file) && std::getline(list, folder))
        put(phone, file, folder, fs::path(file).filename());
    put(phone, pane, "Library/PreferenceBundles/HuecraftSettings.bundle", "HuecraftSettings");
    phone.make_folder("/Library/PreferenceBundles/Huecraft.bundle");
    fs::copy(LIBRARY_BUNDLE, phone.host("/Library/PreferenceBundles/Huecraft.bundle"),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    phone.make_folder("/var/mobile/Library/Preferences");
}

}  // namespace test
