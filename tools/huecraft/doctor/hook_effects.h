// What users would see on a system that lacks what a hook is about.
#pragma once
#include <string>
#include <vector>

namespace command {

/// One sentence for a row of the hook table, by its target.
const std::string& effect_without(const std::string& row_target);

/// Throws unless there is a sentence for each of these, which are all, and for nothing else.
void require_effects_of(const std::vector<std::string>& row_targets);

/// What hooks, backdrops and the preview look up by name beside the table.
struct LookUp {
    enum class Kind { class_name, class_method, variable } kind;
    std::string class_name;
    /// Of a method "+[Class selector]", of a variable its name; of a class nothing.
    std::string member;
    /// Where the class is missing. Of a variable nothing: the class's rows say it.
    std::string without_class;
    /// Where the class is there, and not its member.
    std::string without_member;
    /// Of a method: the types with which it is called.
    std::string types = {};
};
const std::vector<LookUp>& look_ups();

}  // namespace command
