#include "runtime/not_modelled.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace sim {
namespace {

[[noreturn]] void stop(const std::string& what, std::string_view why) {
    std::fprintf(stderr, "not modelled: %s: %.*s\n", what.c_str(), static_cast<int>(why.size()), why.data());
    std::fflush(stderr);
    std::abort();
}

}  // namespace

void not_modelled(std::string_view class_name, std::string_view selector, std::string_view why) {
    stop(std::string(class_name) + " " + std::string(selector), why);
}

void not_modelled(std::string_view function, std::string_view why) { stop(std::string(function), why); }

}  // namespace sim
