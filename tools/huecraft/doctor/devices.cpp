#include "doctor/devices.h"

#include <algorithm>

#include "cli/files.h"
#include "cli/workshop.h"

namespace command {
namespace {

/// Numbers by their value; a beta before what it became, and a name without a number last.
std::pair<std::vector<int>, std::string> age(const std::string& name) {
    std::vector<int> numbers;
    size_t at = 0;
    while (at < name.size() && name[at] >= '0' && name[at] <= '9') {
        numbers.push_back(std::atoi(name.c_str() + at));
        at = name.find_first_not_of("0123456789", at);
        if (at == name.npos || name[at] != '.') break;
        ++at;
    }
    if (numbers.empty()) numbers.push_back(1000);
    std::string rest = at < name.size() ? name.substr(at) : "";
    return {numbers, rest == "-beta" ? "" : "~" + rest};
}

}  // namespace

std::vector<std::string> described_systems() {
    std::vector<std::string> all;
    for (const auto& entry : std::filesystem::directory_iterator(data_folder() / "devices"))
        if (const std::string name = entry.path().filename().string();
            name.ends_with(".txt") && (name.starts_with("simulated-") || (name[0] >= '0' && name[0] <= '9')))
            all.push_back(name.substr(0, name.size() - 4));
    std::ranges::sort(all, {}, age);
    return all;
}

std::filesystem::path description_file(const std::string& system) {
    return data_folder() / "devices" / (system + ".txt");
}

DeviceDescription description_of_system(const std::string& system) {
    const auto all = described_systems();
    if (std::ranges::find(all, system) == all.end()) {
        std::string known;
        for (const std::string& each : all) known += (known.empty() ? "" : ", ") + each;
        throw Unusable("--system " + system, "no such system is described; expected one of " + known);
    }
    return description_in_file(description_file(system).string());
}

DeviceDescription description_in_file(const std::string& file) {
    return DeviceDescription::parse(read_input(file, "description", largest_description), file);
}

}  // namespace command
