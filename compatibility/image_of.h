// Where addresses lie, and what functions there are.
#pragma once

namespace compatibility {

/// The image that an address lies in, by where its file is in memory; null where there is none.
const void* image_of(const void* address);

/// A function of whatever image; null where there is none.
void* function_named(const char* name);
inline bool is_there(const char* function) { return function_named(function) != nullptr; }

}  // namespace compatibility
