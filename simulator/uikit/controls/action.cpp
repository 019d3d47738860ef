#include "uikit/controls/action.h"

#include <algorithm>
#include <string_view>

#include "runtime/not_modelled.h"

namespace sim {

void perform_action(id target, SEL action, id sender, UIEvent* event) {
    const std::string_view name = sel_getName(action);
    const IMP method = objc_msg_lookup(target, action);
    switch (std::count(name.begin(), name.end(), ':')) {
        case 0: return reinterpret_cast<void (*)(id, SEL)>(method)(target, action);
        case 1: return reinterpret_cast<void (*)(id, SEL, id)>(method)(target, action, sender);
        case 2:
            return reinterpret_cast<void (*)(id, SEL, id, UIEvent*)>(method)(target, action, sender, event);
        default: not_modelled("UIControl", name, "an action with more than two arguments");
    }
}

}  // namespace sim
