// The record of what a library installed.
#include "runtime/installing_calls.h"

#include <utility>

namespace sim {
namespace {

std::deque<InstallingCall>& calls() {
    static auto* made = new std::deque<InstallingCall>;  // never destroyed: readable until the process has ended
    return *made;
}

}  // namespace

InstallingCall method_call(InstallingCall::Kind kind, Class owner, SEL selector, const char* types,
                           bool took_effect) {
    InstallingCall call{kind, {}, false, sel_getName(selector), {}, took_effect};
    if (owner) {
        call.class_name = class_getName(owner);
        call.on_class = class_isMetaClass(owner);
    }
    if (types) call.types = types;
    return call;
}

void record(InstallingCall call) { calls().push_back(std::move(call)); }

const std::deque<InstallingCall>& installing_calls() { return calls(); }

}  // namespace sim
