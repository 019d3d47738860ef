#include "loader/rules/rules.h"

#include <algorithm>

#include "loader/fault.h"
#include "loader/format/command_names.h"
#include "loader/format/versions.h"
#include "loader/rules/code_signature.h"

namespace macho {
namespace {

/// A library that is made for iOS 12 or later is not asked for its version any more.
constexpr uint32_t kFirstSystemWithoutVersions = packed_version(12);

void check_libraries(Layout& layout, const LibraryLookup& libraries) {
    for (Dependency& library : layout.libraries) {
        const std::optional<OfferedLibrary> offered = libraries(library.install_name);
        if (!offered || offered->minimum_system >= kFirstSystemWithoutVersions ||
            library.compatibility_version <= offered->compatibility_version)
            continue;
        library.left_out = library.is_weak();
        if (library.left_out) continue;
        refuse(name_of_command(library.command) + " " + library.install_name +
               ": incompatible library version (found " + version_text(library.compatibility_version) +
               ", expected at most " + version_text(offered->compatibility_version) +
               ", which the library has)");
    }
}

}  // namespace

void check_platform(const Layout& layout) {
    const uint32_t expected = layout.cpu == Cpu::x86_64 ? PLATFORM_IOSSIMULATOR : PLATFORM_IOS;
    if (std::ranges::find(layout.build_versions, expected, &BuildVersion::platform) !=
        layout.build_versions.end())
        return;
    if (layout.build_versions.empty())
        refuse("LC_BUILD_VERSION: no platform (found nothing, expected " + platform_text(expected) + ")");
    const BuildVersion& found = layout.build_versions.front();
    refuse(name_of_command(found.command) + ": built for another platform (found " +
           platform_text(found.platform) + ", expected " + platform_text(expected) + ")");
}

void hold_to(const Rules& rules, const Bytes& slice, Layout& layout) {
    if (rules.structure) check_structure(slice, layout);
    if (rules.platform) check_platform(layout);
    if (rules.signature) verify_pages(read_signature(slice, layout).strongest(), slice);
    if (rules.libraries) check_libraries(layout, rules.libraries);
}

}  // namespace macho
