// What a description tells of a system, when it is asked.
#include "doctor/device_description.h"

namespace command {

std::string class_of_method(const std::string& method) { return method.substr(2, method.find(' ') - 2); }

std::string selector_of_method(const std::string& method) {
    const size_t start = method.find(' ') + 1;
    return method.substr(start, method.find(']') - start);
}

namespace {

Member found_in(const std::map<std::string, std::string>& members, const std::string& name,
                const std::string& owner) {
    const auto found = members.find(name);
    return found == members.end() ? Member() : Member{Presence::there, found->second, owner};
}

}  // namespace

bool DeviceDescription::has_unrecorded_methods(const std::string& class_name) const {
    if (has_unrecorded_methods_ || unrecorded_classes_.contains(class_name)) return true;
    const auto known = classes_.find(class_name);
    return known != classes_.end() && known->second.has_unrecorded_methods;
}

Presence DeviceDescription::class_named(const std::string& name) const {
    if (classes_.contains(name)) return Presence::there;
    return unrecorded_classes_.contains(name) ? Presence::unrecorded : Presence::missing;
}

/// Asks the class, then those above it.
template <class Member_of>
Member DeviceDescription::in_chain(const std::string& class_name, Member_of member_of) const {
    Member found;
    for (std::string each = class_name; !each.empty();) {
        const auto known = classes_.find(each);
        Member here = known == classes_.end() ? Member() : member_of(each, known->second);
        if (here.presence == Presence::there) return here;
        if (here.presence == Presence::unrecorded || unrecorded_classes_.contains(each))
            found.presence = Presence::unrecorded;
        if (known == classes_.end()) break;
        each = known->second.superclass;
    }
    return found;
}

Member DeviceDescription::method(const std::string& method) const {
    const std::string key = method[0] + selector_of_method(method);
    return in_chain(class_of_method(method), [&](const std::string& name, const ClassRecord& facts) {
        Member found = found_in(facts.methods, key, name);
        if (found.presence == Presence::missing && has_unrecorded_methods(name))
            found.presence = Presence::unrecorded;
        return found;
    });
}

Member DeviceDescription::own_method(const std::string& method) const {
    const std::string owner = class_of_method(method);
    Member found;
    if (const auto known = classes_.find(owner); known != classes_.end())
        found = found_in(known->second.methods, method[0] + selector_of_method(method), owner);
    if (found.presence == Presence::missing && has_unrecorded_methods(owner))
        found.presence = Presence::unrecorded;
    return found;
}

Member DeviceDescription::variable(const std::string& class_name, const std::string& variable) const {
    return in_chain(class_name, [&](const std::string& name, const ClassRecord& facts) {
        return found_in(facts.variables, variable, name);
    });
}

Presence DeviceDescription::function(const std::string& name) const {
    if (functions_.contains(name)) return Presence::there;
    return has_unrecorded_functions_ ? Presence::unrecorded : Presence::missing;
}

}  // namespace command
