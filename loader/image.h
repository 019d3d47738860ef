// A Mach-O dylib or main executable for iOS, loaded into this process.
#pragma once
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "loader/error.h"
#include "loader/fixups/binding.h"
#include "loader/format/layout.h"
#include "loader/mapping.h"
#include "loader/rules/rules.h"

namespace macho {

/// A loaded image: mapped, fixed up, bound, and known to the unwinder. Its code can be called through
/// symbol() at once, but Objective-C needs import_classes first, and C++ run_initialisers after that.
///
/// Destroying an image unmaps it, unless something of it has got into the process: once its classes are
/// imported or its initialisers have run, it stays for good, as on the device.
class Image {
  public:
    /// Loads the dylib at `path`, or its slice for this processor. Throws Error.
    static Image load(const std::filesystem::path& path, const Resolver& resolver, const Rules& rules = {});
    /// The same with a file's bytes, which are not needed afterwards. `name` is for messages.
    static Image load_bytes(std::span<const uint8_t> file, std::string name, const Resolver& resolver,
                            const Rules& rules = {}, FileType type = FileType::dylib,
                            Process process = Process::arm64);

    Image(Image&&) noexcept;
    Image& operator=(Image&&) = delete;
    ~Image();

    /// The file's name without its folder.
    const std::string& name() const { return name_; }
    const Layout& layout() const { return layout_; }

    /// The exported function or variable, named as in C; null if there is none.
    void* symbol(std::string_view name) const;
    /// All of them.
    const std::map<std::string, void*, std::less<>>& exports() const { return exports_; }

    const std::vector<Import>& imports() const { return binding_.imports; }
    const std::vector<Bind>& binds() const { return binding_.binds; }
    /// The weak imports that nothing was found for. Other missing symbols are an Error when loading.
    std::vector<std::string> missing() const;

    /// Runs a main executable, after its initialisers, as the device calls it; returns its exit status.
    int run_main(const std::vector<const char*>& arguments, const char* const* environment);

    /// Runs the image's initialisers in their order; later calls do nothing. An initialiser's exception
    /// comes through, and those after it do not run.
    void run_initialisers();

    const Mapping& mapping() const;
    Mapping& mapping();
    /// From now on the image outlives this object.
    void stay_mapped() { stays_mapped_ = true; }

  private:
    struct Resident;

    Image(std::string name, const Bytes& slice, const Resolver& resolver, const Rules& rules);
    void fix_up(const Bytes& slice, const Resolver& resolver);
    void find_initialisers();
    void find_entry();

    std::string name_;
    Layout layout_;
    std::unique_ptr<Resident> resident_;
    std::map<std::string, void*, std::less<>> exports_;
    Binding binding_;
    std::vector<uintptr_t> initialisers_;
    uintptr_t entry_ = 0;
    bool stays_mapped_ = false;
};

}  // namespace macho
