// Type encodings, taken apart and compared.
#pragma once
#include <optional>
#include <string>
#include <vector>

namespace command {

/// The types without offsets and qualifiers: "v24@0:8d16" becomes "v@:d".
std::string plain_types(std::string types);

/// The number of arguments behind the receiver and the selector; nothing where these are not the types of a
/// method.
std::optional<size_t> arguments_of(const std::string& plain_types);

}  // namespace command
