#include "interface/answer.h"

namespace sim {

std::string& last_error() {
    static std::string line;
    return line;
}

sim_status refuse(sim_status status, std::string message) {
    for (char& c : message)
        if (c == '\n' || c == '\r') c = ' ';
    last_error() = std::move(message);
    return status;
}

namespace {

std::string description(id object) {
    auto* text = object ? static_cast<NSObject*>(object)->description() : nullptr;
    const char* utf8 = text ? text->UTF8String() : nullptr;
    return utf8 ? utf8 : "(no description)";
}

}  // namespace

std::string name_and_reason(id raised) {
    auto* exception = static_cast<NSObject*>(raised);
    if (!exception->isKindOfClass(objc_getClass("NSException")))
        return std::string("an object was thrown: ") + object_getClassName(raised);
    return description(exception->send<"name", id>()) + ": " + description(exception->send<"reason", id>());
}

}  // namespace sim
