// The Objective-C metadata of a Mach-O file, as the disassembler prints it.
#include "objc_metadata_text.h"

#include <sstream>

namespace contract {

Classes parse_metadata(const std::string& printed) {
    Classes classes;
    ClassFacts facts;
    std::string class_name, part, row_name;
    char side = '-';
    bool in_classes = false, is_protocol = false;
    auto finish = [&] {
        if (!class_name.empty()) classes[class_name] = facts;
        facts = {};
        class_name.clear();
        side = '-';
        part.clear();
    };
    std::istringstream lines(printed);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string key, address, value;
        words >> key >> address;
        std::getline(words >> std::ws, value);
        if (line.starts_with("Contents of")) {
            finish();
            in_classes = line.find("__objc_classlist") != std::string::npos;
        } else if (!in_classes) {
            continue;
        } else if (line.starts_with("Meta Class")) {
            side = '+';
            part.clear();
        } else if (!line.starts_with(" ") && !line.starts_with("\t")) {
            finish();  // the address of the next class
        } else if (key == "superclass" && side == '-') {
            facts.superclass = value.substr(value.rfind('$') + 2);
        } else if (key == "baseMethods" || key == "ivars" || key == "baseProperties" ||
                   key == "baseProtocols") {
            part = key;
        } else if (part == "baseProtocols") {
            // A protocol's own name stands first; then follow those of its methods and properties.
            if (key.starts_with("list[")) is_protocol = true;
            if (key != "name" || !is_protocol) continue;
            if (side == '-') facts.protocols.push_back(value);
            is_protocol = false;
        } else if (key == "name" && part.empty()) {
            class_name = value;
        } else if (key == "name") {
            row_name = value;
        } else if (key == "types" && part == "baseMethods") {
            facts.methods.insert(side + row_name + " " + value);
        } else if (key == "type" && part == "ivars") {
            facts.variables.push_back(row_name + " " + value);
        } else if (key == "attributes" && part == "baseProperties") {
            facts.properties.push_back(row_name + " " + value);
        }
    }
    finish();
    return classes;
}

}  // namespace contract
