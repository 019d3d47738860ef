// Reading what a system has.
#include <algorithm>
#include <utility>
#include <vector>

#include "cli/files.h"
#include "cli/terminal.h"
#include "doctor/device_description.h"
#include "doctor/method_types.h"

namespace command {
namespace {

constexpr const char* forms =
    "\"class Name : Superclass\", \"-[Class selector] types\", \"+[Class selector] types\", \"variable Class "
    "name type\", \"function name\", \"system version\", \"unrecorded class Name\", \"unrecorded members "
    "Name\", \"unrecorded methods\", \"unrecorded functions\", \"hook method took effect\" or \"hook method "
    "had no effect\"";

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
bool is_method(const std::string& text) {
    if (text.size() < 6 || (text[0] != '-' && text[0] != '+') || text[1] != '[' || text.back() != ']')
        return false;
    const size_t space = text.find(' ');
    return space != text.npos && is_name(class_of_method(text)) && text[space + 1] != ']' &&
           is_selector(selector_of_method(text));
}

std::string without_margins(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r"), last = text.find_last_not_of(" \t\r");
    return first == text.npos ? "" : text.substr(first, last - first + 1);
}

/// A remark begins with "#" at the beginning or behind a blank: types may have one inside.
std::string without_remark(const std::string& line) {
    for (size_t at = line.find('#'); at != line.npos; at = line.find('#', at + 1))
        if (at == 0 || line[at - 1] == ' ' || line[at - 1] == '\t') return line.substr(0, at);
    return line;
}

/// Takes the first word, or the method in brackets, off the text.
std::string taken_word(std::string& text) {
    const bool method = text.starts_with("-[") || text.starts_with("+[");
    const size_t end = std::min(method ? text.find(']') + 1 : text.find_first_of(" \t"), text.size());
    if (method && end == 0) return std::exchange(text, "");
    std::string word = text.substr(0, end);
    text = without_margins(text.substr(end));
    return word;
}

}  // namespace

/// Takes a description apart, line by line.
class DescriptionReader {
  public:
    DescriptionReader(DeviceDescription& device, std::string file)
        : device_(device),
          file_(std::move(file)) {}

    void read(const std::string& text) {
        for (size_t start = 0; start < text.size(); ++number_) {
            const size_t end = std::min(text.find('\n', start), text.size());
            const std::string line = without_margins(without_remark(text.substr(start, end - start)));
            start = end + 1;
            if (!line.empty() && !read_fact(line)) refuse("found " + in_quotes(line) + "; expected " + forms);
        }
        require_no_circle();
        if (device_.classes_.empty() && device_.functions_.empty())
            throw Unusable(file_, std::string("it names nothing; expected lines such as ") + forms);
    }

  private:
    [[noreturn]] void refuse(const std::string& why) const { refuse_line(number_, why); }
    [[noreturn]] void refuse_line(size_t line, const std::string& why) const {
        throw Unusable(file_ + ":" + std::to_string(line), why);
    }

    bool read_fact(const std::string& line) {
        std::string rest = line;
        const std::string first = taken_word(rest);
        if (first[0] == '-' || first[0] == '+') return read_method(first, rest);
        if (first == "class") return read_class(rest);
        if (first == "variable") return read_variable(rest);
        if (first == "function") return is_name(rest) && (device_.functions_.insert(rest), true);
        if (first == "system") return read_system(rest);
        if (first == "unrecorded") return read_unrecorded(rest);
        return first == "hook" && read_hook(rest);
    }

    bool read_method(const std::string& method, const std::string& types) {
        if (!is_method(method)) return false;
        const std::string selector = selector_of_method(method);
        const std::string plain = plain_types(types);
        if (!plain.empty()) {
            const auto colons = static_cast<size_t>(std::ranges::count(selector, ':'));
            if (arguments_of(plain) != colons)
                refuse("found the types " + in_quotes(types) + " of " + method +
                       "; expected a result, \"@:\" and " + counted(colons, "argument"));
        }
        keep(device_.classes_[class_of_method(method)].methods[method[0] + selector], plain, method);
        return true;
    }

    bool read_class(std::string rest) {
        const std::string name = taken_word(rest);
        if (!is_name(name)) return false;
        std::string superclass;
        if (!rest.empty()) {
            if (taken_word(rest) != ":" || !is_name(rest)) return false;
            superclass = rest;
        }
        std::string& known = device_.classes_[name].superclass;
        if (superclass.empty()) return true;
        if (!known.empty() && known != superclass)
            refuse("found the superclass " + superclass + " of " + name + "; expected " + known +
                   ", as line " + std::to_string(line_of_superclass_[name]) + " says");
        known = superclass;
        line_of_superclass_[name] = number_;
        device_.classes_.try_emplace(superclass);
        return true;
    }

    bool read_variable(std::string rest) {
        const std::string owner = taken_word(rest), name = taken_word(rest);
        if (!is_name(owner) || !is_name(name)) return false;
        keep(device_.classes_[owner].variables[name], plain_types(rest), owner + " " + name);
        return true;
    }

    bool read_system(const std::string& version) {
        if (version.empty()) return false;
        keep(device_.system_, version, "the system", "version");
        return true;
    }

    bool read_unrecorded(std::string rest) {
        const std::string kind = taken_word(rest);
        if (kind == "class" && is_name(rest))
            device_.unrecorded_classes_.insert(rest);
        else if (kind == "methods" && rest.empty())
            device_.has_unrecorded_methods_ = true;
        else if (kind == "members" && is_name(rest))
            device_.classes_[rest].has_unrecorded_members = true;
        else if (kind == "functions" && rest.empty())
            device_.has_unrecorded_functions_ = true;
        else
            return false;
        return true;
    }

    bool read_hook(std::string rest) {
        const std::string target = taken_word(rest);
        if (!is_method(target) && !is_name(target)) return false;
        if (rest == "took effect")
            device_.with_effect_.insert(target);
        else if (rest == "had no effect")
            device_.without_effect_.insert(target);
        else
            return false;
        if (device_.with_effect_.contains(target) && device_.without_effect_.contains(target))
            refuse("found both effects of the hook of " + target + "; expected one");
        return true;
    }

    /// A fact may stand there twice, with and without types, but not in two ways.
    void keep(std::string& known, const std::string& recorded, const std::string& of,
              const std::string& what = "types") const {
        if (!known.empty() && !recorded.empty() && known != recorded)
            refuse("found the " + what + " " + in_quotes(recorded) + " of " + of + "; expected " +
                   in_quotes(known) + ", as before");
        if (known.empty()) known = recorded;
    }

    /// Each class is visited once: chains that were followed to their end are not followed again.
    void require_no_circle() const {
        std::set<std::string> sound;
        for (const auto& [name, line] : line_of_superclass_) {
            std::set<std::string> above;
            for (std::string each = name; !each.empty() && !sound.contains(each);
                 each = device_.classes_.at(each).superclass)
                if (!above.insert(each).second)
                    refuse_line(line_of_superclass_.at(each),
                                "found " + each + " below itself; expected superclasses without a circle");
            sound.merge(above);
        }
    }

    DeviceDescription& device_;
    std::string file_;
    size_t number_ = 1;
    std::map<std::string, size_t> line_of_superclass_;  // where each superclass was recorded
};

DeviceDescription DeviceDescription::parse(const std::string& text, const std::string& file) {
    DeviceDescription device;
    DescriptionReader(device, file).read(text);
    return device;
}

}  // namespace command
