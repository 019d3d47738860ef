#include "doctor/differences.h"

#include "doctor/method_types.h"

namespace command {
namespace {

using enum Difference::Kind;
using Members = std::map<std::string, std::string>;

std::string in_brackets(const std::string& owner, const std::string& method) {
    return method.substr(0, 1) + "[" + owner + " " + method.substr(1) + "]";
}

/// Whether both are a pointer to an object, of whatever class, or are passed alike.
bool same_types(const std::string& one, const std::string& other) {
    return one.empty() || other.empty() || one == other || compatibility::pass_alike(one, other);
}

class Comparison {
  public:
    Comparison(const DeviceDescription& now, const DeviceDescription& before) : now_(now), before_(before) {}

    std::vector<Difference> all(const std::set<std::string>& watched) {
        for (const std::string& name : watched) compare_presence(name);
        for (const auto& [name, facts] : before_.classes()) {
            const auto same = now_.classes().find(name);
            if (same == now_.classes().end()) continue;
            const std::string &above = same->second.superclass, &above_before = facts.superclass;
            if (!above.empty() && !above_before.empty() && above != above_before)
                found_.push_back({changed, "class " + name, above, above_before});
        }
        compare_members(&ClassRecord::methods, &DeviceDescription::may_have_more_methods, in_brackets);
        compare_members(&ClassRecord::variables, &DeviceDescription::may_have_more_variables,
                        [](const std::string& owner, const std::string& name) {
                            return "variable " + owner + " " + name;
                        });
        for (const std::string& name : watched)
            compare_presence(name, now_.function(name), before_.function(name));
        return found_;
    }

  private:
    /// Of a class that is watched, and may be a function's name as well.
    void compare_presence(const std::string& name) {
        const Presence now = now_.class_named(name), before = before_.class_named(name);
        if (now == Presence::missing && before == Presence::there)
            found_.push_back({gone, "class " + name, "", ""});
        if (now == Presence::there && before == Presence::missing)
            found_.push_back({added, "class " + name, "", ""});
    }
    void compare_presence(const std::string& function, Presence now, Presence before) {
        if (now == Presence::missing && before == Presence::there)
            found_.push_back({gone, "function " + function, "", ""});
        if (now == Presence::there && before == Presence::missing)
            found_.push_back({added, "function " + function, "", ""});
    }

    template <class Name>
    void compare_members(Members ClassRecord::* kind,
                         bool (DeviceDescription::*may_have_more)(const std::string&) const, Name named) {
        for (const auto& [owner, facts] : before_.classes()) {
            const auto same = now_.classes().find(owner);
            if (same == now_.classes().end()) continue;
            const Members &members = same->second.*kind, &members_before = facts.*kind;
            for (const auto& [member, types] : members_before)
                if (const auto found = members.find(member); found != members.end()) {
                    if (!same_types(found->second, types))
                        found_.push_back({changed, named(owner, member), found->second, types});
                } else if (!(now_.*may_have_more)(owner)) {
                    found_.push_back({gone, named(owner, member), "", ""});
                }
            if ((before_.*may_have_more)(owner)) continue;
            for (const auto& [member, types] : members)
                if (!members_before.contains(member)) found_.push_back({added, named(owner, member), "", ""});
        }
    }

    const DeviceDescription &now_, &before_;
    std::vector<Difference> found_;
};

}  // namespace

std::string Difference::in_words() const {
    switch (kind) {
        case gone: return "gone     " + what;
        case added: return "new      " + what;
        case changed: return "changed  " + what + ": " + now + ", was " + before;
    }
    return what;
}

std::vector<Difference> differences(const DeviceDescription& now, const DeviceDescription& before,
                                    const std::set<std::string>& watched) {
    return Comparison(now, before).all(watched);
}

}  // namespace command
