// The values of property lists, distinguished and put into words.
#pragma once
#include <nlohmann/json.hpp>
#include <string>

#include "platform/foundation.h"

namespace command {

using Json = nlohmann::ordered_json;

enum class Kind { none, text, boolean, whole, real, data, date, list, dictionary, other };

Kind kind_of(id value);

/// "a text", "a whole number"; "nothing" for nil.
std::string name_of(Kind kind);

/// The value in a few words: quoted text, a number, "yes", "1234 bytes", the first entries of a list.
std::string in_words(id value);

/// Data as the number of its bytes, which JSON has no form for.
Json json_of(id value);

/// As JSON prints it, with what was complained of as "errors"; what is not UTF-8 is replaced.
std::string printed(Json json);
/// Whether that was done in this process.
bool json_was_printed();

/// The number of a value of one of the three kinds of numbers, or of a text.
double number_of(id value);

/// What was raised, for someone who cannot see the phone: without the addresses of its objects.
std::string exception_in_words(id raised);

/// What is said where the memory that a child of the command may have does not suffice.
inline constexpr const char* out_of_memory = "it takes more memory than any theme, photo or package should";
/// The text without addresses.
std::string without_addresses(const std::string& text);

std::string bytes_of(NSData* data);
NSData* data_of(const std::string& bytes);

}  // namespace command
