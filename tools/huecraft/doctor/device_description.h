// What a system has, as a file says it: classes, methods, instance variables, functions.
#pragma once
#include <map>
#include <set>
#include <string>

namespace command {

/// A text of one fact to a line, in any order; "#" begins a remark:
///
///     class UIKBEdgeEffect : NSObject
///     -[UIKBEdgeEffect edges]
///     +[UIKBGradient gradientWithName:]
///     variable UIKeyboardPredictionCell m_activeView
///     function UIKBGetNamedColor
///
/// A superclass may be left out, and so may the class of a method or variable that is named. What a
/// superclass has, its subclasses have.
class DeviceDescription {
  public:
    /// Throws Unusable, whose file is "file:line".
    static DeviceDescription parse(const std::string& text, const std::string& file);

    bool has_class(const std::string& name) const { return superclasses_.contains(name); }
    /// "-[Class selector]" or "+[Class selector]".
    bool has_method(const std::string& method) const;
    /// The class's own, whatever it inherits.
    bool has_own_method(const std::string& method) const { return methods_.contains(method); }
    bool has_variable(const std::string& class_name, const std::string& variable) const;
    bool has_function(const std::string& name) const { return functions_.contains(name); }

  private:
    template <class Found>
    bool in_chain(const std::string& class_name, Found found) const;

    std::map<std::string, std::string> superclasses_;  // an empty one is not told
    std::set<std::string> methods_, variables_, functions_;
};

/// The class in "-[Class selector]", and the selector.
std::string class_of_method(const std::string& method);
std::string selector_of_method(const std::string& method);

}  // namespace command
