// The border of an arm64e process: what its system does with the addresses of functions that libraries built
// for the device hand over, and with those that it returns to them. The simulator itself, and what is built
// for Linux, has them as they are.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "objc/runtime.h"

namespace sim {

/// From now on addresses are authenticated. With `unsigned_answers`, the runtime answers without signatures.
void authenticate_addresses(bool unsigned_answers);

/// The function that stands at the border for that import; null where nothing is authenticated, or has to be.
void* border_function(std::string_view symbol);

/// Code there hands over signed addresses, in the blocks that it makes, too.
void note_authenticating_image(const void* start, size_t size);
bool is_in_authenticating_image(const void* address);

/// The address without its signature, which must be the one for the field that it stands in (null: for none).
/// Any other stops the process with `what`, where the device's would stop at the call.
IMP authenticated(IMP function, const void* field, const std::string& what);
IMP signed_for(IMP function, const void* field);

}  // namespace sim
