// The honest stop: what the model of the phone does not do ends the process and says what it was.
#pragma once
#include <string_view>

namespace sim {

/// Stops the process with the class, the selector and the reason on stderr. For methods that the model has
/// but whose given arguments or state it does not cover; a method it lacks altogether raises by itself.
[[noreturn]] void not_modelled(std::string_view class_name, std::string_view selector, std::string_view why);

/// The same for a function of the system.
[[noreturn]] void not_modelled(std::string_view function, std::string_view why);

}  // namespace sim
