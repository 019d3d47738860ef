// Reading what a system has.
#include "doctor/device_description.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

constexpr const char* forms =
    "\"class Name : Superclass\", \"-[Class selector]\", \"+[Class selector]\", \"variable Class name\" or "
    "\"function name\"";

bool is_name(const std::string& text) {
    constexpr const char* letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_$.0123456789";
    return !text.empty() && text.find_first_not_of(letters) == text.npos &&
           !(text[0] >= '0' && text[0] <= '9');
}

bool is_selector(std::string text) {
    if (text.find(':') != text.npos && text.back() != ':') return false;
    std::erase(text, ':');
    return text.empty() || is_name(text);
}

/// "-[Class selector]", with one space.
bool is_method(const std::string& line) {
    if (line.size() < 6 || (line[0] != '-' && line[0] != '+') || line[1] != '[' || line.back() != ']')
        return false;
    const size_t space = line.find(' ');
    return space != line.npos && is_name(class_of_method(line)) && line[space + 1] != ']' &&
           is_selector(selector_of_method(line));
}

std::vector<std::string> words_of(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> words;
    for (std::string word; in >> word;) words.push_back(word);
    return words;
}

std::string without_remark_and_margins(std::string line) {
    line.resize(std::min(line.find('#'), line.size()));
    const size_t first = line.find_first_not_of(" \t\r"), last = line.find_last_not_of(" \t\r");
    return first == line.npos ? "" : line.substr(first, last - first + 1);
}

}  // namespace

std::string class_of_method(const std::string& method) { return method.substr(2, method.find(' ') - 2); }

std::string selector_of_method(const std::string& method) {
    const size_t start = method.find(' ') + 1;
    return method.substr(start, method.size() - start - 1);
}

DeviceDescription DeviceDescription::parse(const std::string& text, const std::string& file) {
    DeviceDescription device;
    std::map<std::string, size_t> told_at;  // the line that told a superclass
    size_t number = 0;
    const auto at = [&](size_t line) { return file + ":" + std::to_string(line); };
    std::istringstream lines(text);
    for (std::string raw; std::getline(lines, raw);) {
        ++number;
        const std::string line = without_remark_and_margins(raw);
        if (line.empty()) continue;
        const std::vector<std::string> words = words_of(line);
        const bool all_names = std::all_of(words.begin() + 1, words.end(), [](const std::string& word) {
            return word == ":" || is_name(word);
        });
        if (is_method(line)) {
            device.superclasses_.try_emplace(class_of_method(line));
            device.methods_.insert(line);
        } else if (words[0] == "class" && all_names &&
                   (words.size() == 2 || (words.size() == 4 && words[2] == ":")) && words[1] != ":") {
            const std::string superclass = words.size() == 4 ? words[3] : "";
            std::string& known = device.superclasses_[words[1]];
            if (!superclass.empty() && !known.empty() && known != superclass)
                throw Unusable(at(number), "found the superclass " + superclass + " of " + words[1] +
                                               "; expected " + known + ", as line " +
                                               std::to_string(told_at[words[1]]) + " says");
            if (superclass.empty()) continue;
            known = superclass;
            told_at[words[1]] = number;
            device.superclasses_.try_emplace(superclass);
        } else if (words[0] == "variable" && all_names && words.size() == 3 && line.find(':') == line.npos) {
            device.superclasses_.try_emplace(words[1]);
            device.variables_.insert(words[1] + " " + words[2]);
        } else if (words[0] == "function" && all_names && words.size() == 2 && words[1] != ":") {
            device.functions_.insert(words[1]);
        } else {
            throw Unusable(at(number), "found " + in_quotes(line) + "; expected " + forms);
        }
    }
    for (const auto& [name, line] : told_at) {
        std::set<std::string> above{name};
        for (std::string each = device.superclasses_[name]; !each.empty(); each = device.superclasses_[each])
            if (!above.insert(each).second)
                throw Unusable(at(line),
                               "found " + name + " below itself; expected superclasses without a circle");
    }
    if (device.superclasses_.empty() && device.functions_.empty())
        throw Unusable(file, std::string("it names nothing; expected lines such as ") + forms);
    return device;
}

template <class Found>
bool DeviceDescription::in_chain(const std::string& class_name, Found found) const {
    for (std::string each = class_name; !each.empty();) {
        if (found(each)) return true;
        const auto known = superclasses_.find(each);
        if (known == superclasses_.end()) return false;
        each = known->second;
    }
    return false;
}

bool DeviceDescription::has_method(const std::string& method) const {
    const std::string rest = " " + selector_of_method(method) + "]";
    return in_chain(class_of_method(method), [&](const std::string& each) {
        return methods_.contains(method.substr(0, 2) + each + rest);
    });
}

bool DeviceDescription::has_variable(const std::string& class_name, const std::string& variable) const {
    return in_chain(class_name,
                    [&](const std::string& each) { return variables_.contains(each + " " + variable); });
}

}  // namespace command
