#include "package/control_fields.h"

#include <algorithm>
#include <sstream>

#include "cli/terminal.h"

namespace command {

std::string ControlFields::value(const std::string& name) const {
    const auto found = values.find(name);
    return found == values.end() ? "" : found->second;
}

std::string ControlFields::found(const std::string& name) const {
    return values.contains(name) ? in_quotes(values.at(name)) : "no such field";
}

ControlFields control_fields_of(const Package& package) {
    ControlFields fields;
    const auto file = std::ranges::find(package.control, "/control", &PackagedFile::path);
    if (file == package.control.end()) {
        fields.faults.push_back("found no description for the installer");
        return fields;
    }
    std::string* last = nullptr;
    std::istringstream lines(file->contents);
    for (std::string line; std::getline(lines, line);) {
        const size_t colon = line.find(':');
        if (line.starts_with(' ') && last) {  // goes on with the field before it
            *last += line;
            continue;
        }
        const std::string value =
            colon == line.npos ? ""
                               : line.substr(std::min(line.find_first_not_of(' ', colon + 1), line.size()));
        const auto [place, is_new] = fields.values.emplace(line.substr(0, colon), value);
        if (!is_new) fields.faults.push_back("found the field " + in_quotes(place->first) + " twice");
        last = &place->second;
    }
    return fields;
}

}  // namespace command
