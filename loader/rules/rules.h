// What the device's loader refuses, although it could run here. docs/loader.md lists the rules.
#pragma once
#include <functional>
#include <optional>
#include <string_view>

#include "loader/format/bytes.h"
#include "loader/format/layout.h"
#include "loader/rules/system_libraries.h"

namespace macho {

/// What is loaded under an install name; nothing where that is not known.
using LibraryLookup = std::function<std::optional<OfferedLibrary>(std::string_view install_name)>;

/// The rules that an image is held to: all of them, unless a caller that damages images on purpose leaves
/// some out.
struct Rules {
    bool slices = true;                        ///< of a fat file: their places
    bool structure = true;                     ///< load commands, segments, and what __LINKEDIT holds
    bool platform = true;                      ///< iOS on arm64, its simulator on x86-64
    bool signature = true;                     ///< every page's hash
    LibraryLookup libraries = system_library;  ///< their versions; none are compared without it
};

/// For images that are damaged on purpose: what is left are the loader's own checks.
inline Rules no_rules() {
    return {.slices = false, .structure = false, .platform = false, .signature = false, .libraries = {}};
}

/// A Fault that names the load command says which rule the image breaks. Weak libraries that are too old are
/// left out of the layout.
void hold_to(const Rules& rules, const Bytes& slice, Layout& layout);

/// A fat file's slices, all of them; nothing for any other file.
void check_slices(const Bytes& file);
void check_structure(const Bytes& slice, const Layout& layout);
void check_platform(const Layout& layout);

}  // namespace macho
