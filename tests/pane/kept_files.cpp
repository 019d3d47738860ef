#include "kept_files.h"

#include <algorithm>

#include "objc/fast_enumeration.h"

namespace test {

std::vector<std::string> texts_in(NSArray* array) {
    std::vector<std::string> all;
    objc::for_each<NSString>(array, [&](NSString* one) { all.push_back(utf8(one)); });
    return all;
}

std::vector<std::string> names_in(const Phone& phone, const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(phone.host(folder)))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    return names;
}

void put_theme(const Phone& phone, const std::string& file, const std::string& name) {
    std::string content = theme();
    content.replace(content.find("Meadow"), 6, name);
    content.replace(content.find("#FF0000"), 7, "#400000");  // green can be read on it
    phone.write(in_themes(file), content);
}

}  // namespace test
