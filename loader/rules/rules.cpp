// The rules that are not of structure: versions of libraries, and page hashes.
#include "loader/rules/rules.h"

#include "loader/fault.h"
#include "loader/format/versions.h"
#include "loader/rules/code_signature.h"

namespace macho {
namespace {

/// A library that is made for iOS 12 or later is not asked for its version any more.
constexpr uint32_t kFirstSystemWithoutVersions = packed_version(12);

void check_libraries(const Layout& layout, const LibraryLookup& libraries) {
    for (const auto& [install_name, wanted] : layout.libraries) {
        const std::optional<OfferedLibrary> offered = libraries(install_name);
        if (!offered || offered->minimum_system >= kFirstSystemWithoutVersions ||
            wanted <= offered->compatibility_version)
            continue;
        refuse("LC_LOAD_DYLIB " + install_name + ": incompatible library version (found " +
               version_text(wanted) + ", expected at most " + version_text(offered->compatibility_version) +
               ", which the library has)");
    }
}

}  // namespace

void hold_to(const Rules& rules, const Bytes& slice, const Layout& layout) {
    if (rules.structure) check_structure(slice, layout);
    if (rules.signature) verify_pages(read_signature(slice, layout).strongest(), slice);
    if (rules.libraries) check_libraries(layout, rules.libraries);
}

}  // namespace macho
