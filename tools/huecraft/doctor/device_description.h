// What a system has, as a file says it: classes, methods, instance variables, functions.
#pragma once
#include <map>
#include <set>
#include <string>

#include "compatibility/judgement.h"

namespace command {

using compatibility::class_of_method;
using compatibility::Presence;
using compatibility::selector_of_method;

/// A method or a variable: whether it is there, its types ("" where they are not recorded), and the class
/// that declares it.
struct Member {
    Presence presence = Presence::missing;
    std::string types, owner;
};

/// What is recorded of one class by itself.
struct ClassRecord {
    std::string superclass;  // "" where it is not recorded
    /// "-selector" or "+selector" with its types.
    std::map<std::string, std::string> methods;
    /// The name with its type.
    std::map<std::string, std::string> variables;
    /// It may have methods and variables that are not recorded.
    bool has_unrecorded_members = false;
};

/// A text of one fact to a line, in any order, as docs/command.md says. What a superclass has, its subclasses
/// have.
class DeviceDescription {
  public:
    /// Throws Unusable, whose file is "file:line".
    static DeviceDescription parse(const std::string& text, const std::string& file);

    /// The version, or "".
    const std::string& system() const { return system_; }
    Presence class_named(const std::string& name) const;
    /// "-[Class selector]" or "+[Class selector]", of the class or one above it.
    Member method(const std::string& method) const;
    /// The class's own, whatever it inherits.
    Member own_method(const std::string& method) const;
    Member variable(const std::string& class_name, const std::string& variable) const;
    Presence function(const std::string& name) const;
    /// Whether the report says that the library's hook of this target had no effect there.
    bool had_no_effect(const std::string& target) const { return without_effect_.contains(target); }

    /// Every class that is named.
    const std::map<std::string, ClassRecord>& classes() const { return classes_; }
    const std::set<std::string>& functions() const { return functions_; }
    bool may_have_more_methods(const std::string& class_name) const;
    bool may_have_more_variables(const std::string& class_name) const;

  private:
    friend class DescriptionReader;
    template <class Find>
    Member in_chain(const std::string& class_name, bool is_open, Find find) const;

    std::string system_;
    std::map<std::string, ClassRecord> classes_;
    std::set<std::string> functions_, unrecorded_classes_, with_effect_, without_effect_;
    bool has_unrecorded_methods_ = false, has_unrecorded_functions_ = false;
};

}  // namespace command
