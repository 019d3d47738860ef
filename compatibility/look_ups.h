// What hooks, backdrops and the preview look up by name beside the hook table.
#pragma once
#include <span>

namespace compatibility {

struct LookUp {
    enum class Kind { class_name, class_method, variable } kind;
    const char* class_name;
    /// Of a method "+[Class selector]", of a variable its name; of a class nothing.
    const char* member;
    /// What users see where the class is missing. Of a variable nothing: the class's rows say it.
    const char* without_class;
    /// Where the class is there, and not its member.
    const char* without_member;
    /// Of a method: the types with which it is called.
    const char* types = "";
};
std::span<const LookUp> look_ups();

}  // namespace compatibility
