// What a description records of a system, when it is asked.
#include "doctor/device_description.h"

namespace command {

bool DeviceDescription::may_have_more_variables(const std::string& class_name) const {
    const auto known = classes_.find(class_name);
    return unrecorded_classes_.contains(class_name) ||
           (known != classes_.end() && known->second.has_unrecorded_members);
}

bool DeviceDescription::may_have_more_methods(const std::string& class_name) const {
    return has_unrecorded_methods_ || may_have_more_variables(class_name);
}

Presence DeviceDescription::class_named(const std::string& name) const {
    if (classes_.contains(name)) return Presence::there;
    return unrecorded_classes_.contains(name) ? Presence::unrecorded : Presence::missing;
}

/// Asks the class, then those above it. What hooks find in a superclass is recorded also where not all of it
/// is; so only a class of which nothing is recorded, or the asked class itself, leaves the answer open.
template <class Find>
Member DeviceDescription::in_chain(const std::string& class_name, bool is_open, Find find) const {
    for (std::string each = class_name; !each.empty();) {
        if (unrecorded_classes_.contains(each)) is_open = true;
        const auto known = classes_.find(each);
        if (known == classes_.end()) break;
        if (const auto [members, name] = find(known->second); members->contains(name))
            return {Presence::there, members->at(name), each};
        each = known->second.superclass;
    }
    return {is_open ? Presence::unrecorded : Presence::missing, "", ""};
}

Member DeviceDescription::own_method(const std::string& method) const {
    const std::string owner = class_of_method(method);
    if (const auto known = classes_.find(owner); known != classes_.end())
        if (const auto found = known->second.methods.find(method[0] + selector_of_method(method));
            found != known->second.methods.end())
            return {Presence::there, found->second, owner};
    return {may_have_more_methods(owner) ? Presence::unrecorded : Presence::missing, "", ""};
}

Member DeviceDescription::method(const std::string& method) const {
    const std::string owner = class_of_method(method), name = method[0] + selector_of_method(method);
    return in_chain(owner, may_have_more_methods(owner),
                    [&](const ClassRecord& facts) { return std::pair(&facts.methods, name); });
}

Member DeviceDescription::variable(const std::string& class_name, const std::string& variable) const {
    return in_chain(class_name, may_have_more_variables(class_name),
                    [&](const ClassRecord& facts) { return std::pair(&facts.variables, variable); });
}

Presence DeviceDescription::function(const std::string& name) const {
    if (functions_.contains(name)) return Presence::there;
    return has_unrecorded_functions_ ? Presence::unrecorded : Presence::missing;
}

}  // namespace command
