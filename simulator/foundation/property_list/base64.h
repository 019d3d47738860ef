// Base64, as property lists hold their data.
#pragma once
#include <string>
#include <string_view>

#include "foundation/raw_bytes.h"

namespace sim::plist {

/// The bytes. Characters of other alphabets are stepped over, as the device does.
RawBytes decoded_base64(std::string_view text);

/// The text in one line.
std::string base64_of(std::string_view bytes);

}  // namespace sim::plist
