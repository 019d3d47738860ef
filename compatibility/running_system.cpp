#include "compatibility/running_system.h"

#include <cstdlib>

#include "compatibility/image_of.h"
#include "compatibility/method_named.h"

namespace compatibility {
namespace {

/// A part of the home screen's own executable: no other process can say whether there is one.
constexpr const char* class_of_the_home_screen = "SpringBoard";

std::string plain(const char* types) {
    std::string text = types ? types : "";
    objc::make_plain(text.data());
    text.resize(std::char_traits<char>::length(text.c_str()));
    return text;
}

}  // namespace

Presence RunningSystem::class_named(const std::string& name) const {
    if (objc_lookUpClass(name.c_str())) return Presence::there;
    return name == class_of_the_home_screen ? Presence::unrecorded : Presence::missing;
}

// A method that the library replaced keeps its types.
RunningSystem::Member RunningSystem::method(const std::string& method) const {
    Method found = method_named(method);
    if (!found) return {};
    return {Presence::there, plain(method_getTypeEncoding(found))};
}

RunningSystem::Member RunningSystem::own_method(const std::string& method) const {
    Class owner = objc_lookUpClass(class_of_method(method).c_str());
    if (owner && method[0] == '+') owner = object_getClass(reinterpret_cast<id>(owner));
    unsigned count = 0;
    Method* all = owner ? class_copyMethodList(owner, &count) : nullptr;
    Member member;
    for (unsigned i = 0; i < count; ++i)
        if (sel_getName(method_getName(all[i])) == selector_of_method(method) &&
            !seen_.is_the_librarys(all[i]))
            member = {Presence::there, plain(method_getTypeEncoding(all[i]))};
    std::free(all);
    return member;
}

RunningSystem::Member RunningSystem::variable(const std::string& class_name,
                                              const std::string& variable) const {
    Class owner = objc_lookUpClass(class_name.c_str());
    Ivar found = owner ? class_getInstanceVariable(owner, variable.c_str()) : nullptr;
    if (!found) return {};
    return {Presence::there, plain(ivar_getTypeEncoding(found))};
}

Presence RunningSystem::function(const std::string& name) const {
    return is_there(name.c_str()) ? Presence::there : Presence::missing;
}

bool RunningSystem::had_no_effect(const std::string& target) const {
    if (seen_.why_unseen()) return false;
    for (const HookedMethod& row : hooked_methods())
        if (row.name == target) return seen_.of_method(row) == Effect::none;
    return seen_.of_function(target.c_str()) == Effect::none;
}

}  // namespace compatibility
