#include "hook_table.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "support/phone.h"

namespace demo {

using namespace tools;
namespace {

const char* what(const sim_installing_call& call) {
    switch (call.kind) {
        case SIM_HOOK_MESSAGE: return call.on_class ? "class method" : "method";
        case SIM_HOOK_FUNCTION: return "function";
        case SIM_ADD_METHOD: return "added method";
    }
    return "?";
}

}  // namespace

void print_hook_table() {
    std::printf("%4s  %-13s %-36s %-40s %s\n", "", "what", "class", "selector or function", "took effect");
    for (size_t index = 0; index < sim_installing_call_count(); ++index) {
        sim_installing_call call;
        require(sim_installing_call_at(index, &call), "reading the hook table");
        const char* owner = call.class_name                  ? call.class_name
                            : call.kind == SIM_HOOK_FUNCTION ? ""
                                                             : "(no such class)";
        std::printf("%4zu  %-13s %-36s %-40s %s\n", index + 1, what(call), owner, call.name,
                    call.took_effect ? "yes" : "no");
    }
}

}  // namespace demo
