// Names that people give, as names of files. Without the system's classes.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace pane {

/// The name without what a file's name cannot have or hides it: / \ ? % * | " < > : and control characters,
/// dots and blanks at its beginning, blanks at its end. Not longer than `longest_stem` bytes of UTF-8, cut
/// between characters; empty when nothing is left.
std::u16string stem_of(std::u16string_view name);

/// A file's name may have 255 bytes; the ending, a number and what is written beside it need some.
constexpr size_t longest_stem = 200;

}  // namespace pane
