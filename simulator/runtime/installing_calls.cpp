// The record of what a library installed.
#include "runtime/installing_calls.h"

namespace sim {
namespace {

std::deque<InstallingCall>& calls() {
    static auto* made =
        new std::deque<InstallingCall>;  // never destroyed: readable until the process has ended
    return *made;
}

}  // namespace

InstallingCall method_call(InstallingCall::Kind kind, Class owner, SEL selector, const char* types,
                           bool took_effect) {
    return {.kind = kind,
            .class_name = owner ? class_getName(owner) : nullptr,
            .on_class = owner && class_isMetaClass(owner),
            .name = sel_getName(selector),
            .types = types,
            .took_effect = took_effect};
}

void record(const InstallingCall& call) { calls().push_back(call); }

const std::deque<InstallingCall>& installing_calls() { return calls(); }

}  // namespace sim
