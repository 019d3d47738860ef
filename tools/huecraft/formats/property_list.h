// Property lists in their three forms.
#pragma once
#include <string>
#include <vector>

#include "platform/foundation.h"

namespace command {

enum class Form { open_step = 1, xml = 100, binary = 200 };

std::string name_of(Form form);

struct PropertyList {
    id root = nullptr;  // autoreleased
    Form form{};
};

/// Throws Unusable, naming the file, for what is not a property list.
PropertyList parse_property_list(const std::string& bytes, const std::string& file);

/// What a form does not carry, and what was written instead: "_ImageAlpha: the number 0.5 became the text
/// \"0.5\"".
using Losses = std::vector<std::string>;

/// The list in the form. What the form has no place for is kept as text, and named in `losses`. Throws
/// Unusable, naming the file, for what cannot be written at all.
std::string written_property_list(id root, Form form, const std::string& file, Losses& losses);

}  // namespace command
