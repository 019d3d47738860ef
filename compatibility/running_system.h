// The system that this process runs on, as judge_hook and judge_look_up ask a system.
#pragma once
#include "compatibility/judgement.h"
#include "compatibility/seen_hooks.h"

namespace compatibility {

/// As it is without the library, whether that is loaded or not.
class RunningSystem {
  public:
    struct Member {
        Presence presence = Presence::missing;
        std::string types = {};
    };

    Presence class_named(const std::string& name) const;
    Member method(const std::string& method) const;
    Member own_method(const std::string& method) const;
    Member variable(const std::string& class_name, const std::string& variable) const;
    Presence function(const std::string& name) const;
    bool had_no_effect(const std::string& target) const;

  private:
    SeenHooks seen_;
};

}  // namespace compatibility
