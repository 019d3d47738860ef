// Checks of the dylib or the executable in a package.
#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <sstream>

#include "arm64e/comparison.h"
#include "cli/terminal.h"
#include "loader/fault.h"
#include "loader/fixups/bind_opcodes.h"
#include "loader/fixups/rebase.h"
#include "loader/fixups/threaded.h"
#include "loader/format/command_names.h"
#include "loader/format/exports.h"
#include "loader/format/slice.h"
#include "loader/format/versions.h"
#include "loader/rules/code_signature.h"
#include "loader/rules/rules.h"
#include "loader/rules/system_libraries.h"
#include "package/checks.h"
#include "package/promised.h"

namespace command {
namespace {

using Names = std::set<std::string>;
using macho::version_text;

constexpr const char* dynamic_linker = "/usr/lib/dyld";
constexpr uint32_t signature_version = 0x20200;
constexpr uint32_t minimum_version = macho::packed_version(12);
constexpr const char* target = "arm64-ios";

/// What is expected of an image.
struct Promise {
    macho::FileType type;
    const char *what, *name, *signed_as;
    size_t largest;
    const char *stubs, *imports;  ///< the stubs' folder, and what they say
    const char *export_list, *exports;
    const char* install_name;
};

const Promise dylib{.type = macho::FileType::dylib,
                    .what = "dylib",
                    .name = "the dylib",
                    .signed_as = "HuecraftiOS12.dylib",
                    .largest = 160 << 10,
                    .stubs = "device/stubs",
                    .imports = promised_imports,
                    .export_list = "device/exports.txt",
                    .exports = promised_exports,
                    .install_name = "/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib"};
const Promise settings_pane{.type = macho::FileType::dylib,
                            .what = "pane",
                            .name = "the pane",
                            .signed_as = "HuecraftSettings",
                            .largest = 200 << 10,
                            .stubs = "pane/stubs",
                            .imports = promised_imports_of_pane,
                            .export_list = "pane/exports.txt",
                            .exports = promised_exports_of_pane,
                            .install_name = settings_path};
const Promise executable{.type = macho::FileType::executable,
                         .what = "executable",
                         .name = "the executable",
                         .signed_as = "huecraft-describe",
                         .largest = 96 << 10,
                         .stubs = "describe/stubs",
                         .imports = promised_imports_of_describe,
                         .export_list = "the list of executables",
                         .exports = "__mh_execute_header",
                         .install_name = nullptr};

/// What each library offers to the device, by install name.
std::map<std::string, Names> offered_imports(const char* stubs) {
    std::map<std::string, Names> offers;
    for (const YAML::Node& stub : YAML::LoadAll(stubs)) {
        Names& names = offers[stub["install-name"].as<std::string>()];
        for (const YAML::Node& group : stub["exports"]) {
            const auto targets = group["targets"].as<std::vector<std::string>>();
            if (std::ranges::find(targets, target) == targets.end()) continue;
            for (const char* symbols : {"symbols", "weak-symbols"})
                for (const YAML::Node& symbol : group[symbols]) names.insert(symbol.as<std::string>());
            for (const YAML::Node& name : group["objc-classes"])
                for (const char* kind : {"_OBJC_CLASS_$_", "_OBJC_METACLASS_$_"})
                    names.insert(kind + name.as<std::string>());
        }
    }
    return offers;
}

Names listed_exports(const char* list) {
    Names names;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.substr(0, line.find('#')));
        for (std::string name; words >> name;) names.insert(name);
    }
    return names;
}

class ImageChecks {
  public:
    ImageChecks(const std::string& bytes, const Promise& promise,
                macho::Process process = macho::Process::arm64, std::string prefix = {})
        : promise_(promise),
          process_(process),
          prefix_(std::move(prefix)),
          file_({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, promise.name) {}

    Checks all() {
        check("slice", [this](Check& check) { slice(check); });
        check("fix-ups", [this](Check& check) { fix_ups(check); });
        check_of_layout("system", &ImageChecks::system);
        if (promise_.type == macho::FileType::dylib)
            check_of_layout("install name", &ImageChecks::name);
        else
            check_of_layout("start", &ImageChecks::start);
        check_of_layout("library versions", &ImageChecks::library_versions);
        check_of_layout("imports", &ImageChecks::imports);
        check_of_layout("exports", &ImageChecks::exports);
        check_of_layout("signature", &ImageChecks::signature);
        check(std::string(promise_.what) + " size", [this](Check& check) {
            check.found = std::to_string(file_.size()) + " bytes";
            if (file_.size() > promise_.largest)
                check.faults.push_back("found " + check.found + ", expected at most " +
                                       std::to_string(promise_.largest));
        });
        return std::move(checks_);
    }

  private:
    void check(const std::string& name, const std::function<void(Check&)>& work) {
        Check one{.name = prefix_ + name, .found = {}, .faults = {}};
        collect(one, [&] { work(one); });
        checks_.push_back(std::move(one));
    }

    static void collect(Check& check, const std::function<void()>& work) {
        try {
            work();
        } catch (const macho::Fault& fault) {
            check.faults.push_back("found " + one_line(fault.what(), 300));
        }
    }

    /// What cannot be checked has not passed.
    void check_of_layout(const std::string& name, void (ImageChecks::*work)(Check&)) {
        check(name, [&](Check& check) {
            if (layout_) return (this->*work)(check);
            check.faults.push_back(std::string("not checked, since the ") + promise_.what +
                                   " cannot be read");
        });
    }

    void slice(Check& check) {
        if (macho::is_fat(file_))
            check.faults.push_back("found a file of several slices, expected the arm64 slice alone");
        collect(check, [this] { macho::check_slices(file_); });
        slice_ = macho::choose_slice(file_, macho::Cpu::arm64, promise_.type, process_);
        check.found =
            process_ == macho::Process::arm64e ? "arm64e, without bits of later systems" : "arm64 alone";
    }

    void fix_ups(Check& check) {
        if (!slice_) return check.faults.push_back("not checked, since there is no arm64 slice");
        macho::Layout layout = macho::read_layout(*slice_);
        macho::check_structure(*slice_, layout);
        if (layout.arm64e) {
            const auto pointers = macho::read_threaded(*slice_, layout).pointers;
            check.found = "threaded, " + counted(pointers.size(), "pointer");
        } else {
            const auto rebases = macho::read_rebases(part(layout.rebase, "the rebase table"), layout);
            check.found = "classic, " + counted(rebases.size(), "rebased pointer");
        }
        layout_ = std::move(layout);
    }

    void system(Check& check) {
        for (const macho::BuildVersion& build : layout_->build_versions) {
            const std::string found =
                macho::platform_text(build.platform) + " " + version_text(build.minimum_system);
            check.found += (check.found.empty() ? "" : ", ") + found;
            // The loader does not look at the minimum; the package promises it.
            if (build.platform == macho::PLATFORM_IOS && build.minimum_system != minimum_version)
                check.faults.push_back(macho::name_of_command(build.command) + ": found " + found +
                                       " as the oldest, expected iOS " + version_text(minimum_version));
        }
        collect(check, [this] { macho::check_platform(*layout_); });
    }

    void name(Check& check) {
        check.found = layout_->install_name;
        if (check.found != promise_.install_name)
            check.faults.push_back("found " + in_quotes(check.found) + ", expected \"" +
                                   promise_.install_name + "\"");
    }

    /// How the system gets it going.
    void start(Check& check) {
        check.found = "position-independent, by LC_MAIN and " + std::string(dynamic_linker);
        if (!layout_->position_independent)
            check.faults.push_back("found code for one place alone, expected the header's flag MH_PIE");
        if (layout_->dynamic_linker != dynamic_linker)
            check.faults.push_back("found the dynamic linker " + in_quotes(layout_->dynamic_linker) +
                                   ", expected \"" + dynamic_linker + "\"");
    }

    /// The stubs say what is linked with, and this what the system has: a stub may be wrong.
    void library_versions(Check& check) {
        for (const macho::Dependency& library : layout_->libraries) {
            const std::optional<macho::OfferedLibrary> offered = macho::system_library(library.install_name);
            if (!offered || library.compatibility_version <= offered->compatibility_version) continue;
            check.faults.push_back(macho::name_of_command(library.command) + " asks for version " +
                                   version_text(library.compatibility_version) + " of " +
                                   one_line(library.install_name) + ", expected at most " +
                                   version_text(offered->compatibility_version));
        }
        check.found = "of the " + std::to_string(layout_->libraries.size()) +
                      " libraries, none later than the system's";
    }

    void imports(Check& check) {
        const auto offers = offered_imports(promise_.imports);
        const std::string stubs = promise_.stubs;
        for (const macho::Dependency& library : layout_->libraries)
            if (!offers.contains(library.install_name))
                check.faults.push_back("links with " + one_line(library.install_name) + ", which " + stubs +
                                       " has not");
        std::set<std::pair<std::string, std::string>> taken;
        for (const macho::BindRow& row : bound())
            taken.emplace(std::string(row.symbol),
                          row.ordinal > 0
                              ? layout_->libraries.at(static_cast<size_t>(row.ordinal - 1)).install_name
                              : "");
        for (const auto& [symbol, library] : taken) {
            const auto offer = offers.find(library);
            if (offer == offers.end() || !offer->second.contains(symbol))
                check.faults.push_back("imports " + one_line(symbol) + " from " +
                                       (library.empty() ? "wherever it is" : one_line(library)) + ", which " +
                                       stubs + " does not list");
        }
        if (taken.empty()) check.faults.push_back("imports nothing: that cannot be the library");
        check.found = std::to_string(taken.size()) + ", as " + stubs + " lists them";
    }

    std::vector<macho::BindRow> bound() const {
        if (layout_->arm64e) return macho::read_threaded(*slice_, *layout_).rows;
        std::vector<macho::BindRow> all;
        using macho::BindTable;
        for (const auto& [range, table] : {std::pair{layout_->bind, BindTable::regular},
                                           {layout_->weak_bind, BindTable::weak},
                                           {layout_->lazy_bind, BindTable::lazy}})
            std::ranges::copy(macho::read_binds(part(range, "a bind table"), table, *layout_),
                              std::back_inserter(all));
        return all;
    }

    void exports(Check& check) {
        const Names promised = listed_exports(promise_.exports);
        const std::string list = promise_.export_list;
        Names offered;
        for (const auto& [name, where] : macho::read_exports(part(layout_->exports, "the export trie")))
            offered.insert(name);
        for (const std::string& name : offered)
            if (!promised.contains(name))
                check.faults.push_back("exports " + one_line(name) + ", which " + list + " does not list");
        for (const std::string& name : promised)
            if (!offered.contains(name))
                check.faults.push_back("does not export " + name + ", which " + list + " lists");
        check.found = std::to_string(offered.size()) + ", as " + list + " has them";
    }

    /// As installers of the time sign: nobody's, but not marked so, which the system's own check rejects.
    void signature(Check& check) {
        const macho::CodeSignature signature = macho::read_signature(*slice_, *layout_);
        const auto expect = [&](const std::string& what, const std::string& found,
                                const std::string& expected) {
            if (found != expected)
                check.faults.push_back("found " + what + " " + found + ", expected " + expected);
        };
        std::string hashes;
        for (const macho::CodeDirectory& directory : signature.directories)
            hashes += (hashes.empty() ? "" : ", ") + std::string(directory.hash_name());
        expect("CodeDirectories of", hashes, "SHA-1, SHA-256");
        for (const macho::CodeDirectory& directory : signature.directories) {
            const std::string of = std::string(directory.hash_name()) + " CodeDirectory";
            expect(of + " version", macho::hex(directory.version), macho::hex(signature_version));
            expect(of + " flags", macho::hex(directory.flags), macho::hex(0));
            expect(of + " identifier", in_quotes(directory.identifier), in_quotes(promise_.signed_as));
            collect(check, [&] { macho::verify_requirements(directory, signature); });
            collect(check, [&] { macho::verify_pages(directory, *slice_); });
        }
        check.found = hashes + ", " + std::to_string(signature.strongest().page_count()) +
                      " page hashes of each recomputed";
    }

    macho::Bytes part(macho::FileRange range, std::string_view name) const {
        return slice_->part(range.offset, range.size, name);
    }

    const Promise& promise_;
    macho::Process process_;
    std::string prefix_;
    macho::Bytes file_;
    std::optional<macho::Bytes> slice_;
    std::optional<macho::Layout> layout_;
    Checks checks_;
};

/// The slices of a fat file, in its order: arm64 and arm64e, nothing else.
std::vector<std::string> slices_of(const std::string& bytes, const Promise& promise) {
    const macho::Bytes file({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()}, promise.name);
    if (!macho::is_fat(file)) macho::refuse("a file of one slice, expected arm64 and arm64e");
    macho::check_slices(file);
    std::vector<std::string> slices;
    std::string found;
    for (const macho::FatArch& arch : macho::read_fat_archs(file)) {
        found += (found.empty() ? "" : ", ") + arch.processor();
        slices.push_back(bytes.substr(arch.offset, arch.size));
    }
    if (found != "arm64, arm64e") macho::refuse(found + ", expected arm64, arm64e");
    return slices;
}

Checks checks_of_two_slices(const std::string& bytes, const Promise& promise) {
    Checks checks{{.name = "slices", .found = "arm64 and arm64e", .faults = {}}};
    std::vector<std::string> slices;
    try {
        slices = slices_of(bytes, promise);
    } catch (const macho::Fault& fault) {
        checks.front().faults.push_back("found " + one_line(fault.what(), 300));
        return checks;
    }
    std::ranges::move(ImageChecks(slices[0], promise, macho::Process::arm64, "arm64: ").all(),
                      std::back_inserter(checks));
    std::ranges::move(ImageChecks(slices[1], promise, macho::Process::arm64e, "arm64e: ").all(),
                      std::back_inserter(checks));

    Check same{.name = "one code",
               .found = "every byte of code and every pointer; signed is what others call",
               .faults = {}};
    try {
        const auto data = [](const std::string& slice) { return arm64e::Data(slice.begin(), slice.end()); };
        arm64e::compare(data(slices[0]), data(slices[1]));
    } catch (const macho::Fault& fault) {
        same.faults.push_back("found " + one_line(fault.what(), 300));
    }
    checks.push_back(std::move(same));
    return checks;
}

}  // namespace

Checks checks_of_dylib(const std::string& bytes, bool for_a12) {
    return for_a12 ? checks_of_two_slices(bytes, dylib) : ImageChecks(bytes, dylib).all();
}
Checks checks_of_pane(const std::string& bytes, bool for_a12) {
    return for_a12 ? checks_of_two_slices(bytes, settings_pane) : ImageChecks(bytes, settings_pane).all();
}
Checks checks_of_executable(const std::string& bytes) { return ImageChecks(bytes, executable).all(); }

}  // namespace command
