// A library built for Linux: the host's dynamic linker loads it, and it registers its own classes.
#include <dlfcn.h>
#include <elf.h>
#include <link.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>

#include "interface/library.h"
#include "interface/refusal.h"
#include "phone/host_failures.h"

namespace sim {
namespace {

#ifdef __aarch64__
constexpr Elf64_Half this_machine = EM_AARCH64;
#else
constexpr Elf64_Half this_machine = EM_X86_64;
#endif

// The dynamic linker trusts a file's headers, and a file cut short would end the process with a bus error.
const char* fault_of(std::string_view contents) {
    Elf64_Ehdr header;
    if (contents.size() < sizeof header) return "it is cut short";
    std::memcpy(&header, contents.data(), sizeof header);
    if (header.e_ident[EI_CLASS] != ELFCLASS64 || header.e_ident[EI_DATA] != ELFDATA2LSB ||
        header.e_machine != this_machine)
        return "it is built for another processor";
    if (header.e_type != ET_DYN) return "it is not a shared object";
    if (header.e_phentsize != sizeof(Elf64_Phdr)) return "its headers are damaged";
    const uint64_t table_size = uint64_t{header.e_phnum} * sizeof(Elf64_Phdr);
    if (header.e_phoff > contents.size() || table_size > contents.size() - header.e_phoff)
        return "it is cut short";
    for (unsigned i = 0; i < header.e_phnum; ++i) {
        Elf64_Phdr segment;
        std::memcpy(&segment, contents.data() + header.e_phoff + i * sizeof segment, sizeof segment);
        if (segment.p_type != PT_LOAD && segment.p_type != PT_DYNAMIC) continue;
        if (segment.p_offset > contents.size() || segment.p_filesz > contents.size() - segment.p_offset)
            return "it is cut short";
    }
    return nullptr;
}

class ElfLibrary final : public Library {
  public:
    ElfLibrary(std::string name, void* handle, std::vector<std::string> classes, double initialiser_seconds)
        : Library(std::move(classes), initialiser_seconds),
          name_(std::move(name)),
          handle_(handle) {}

    bool is_installed_as(std::string_view install_name) const override {
        return std::filesystem::path(install_name).stem() == name_;
    }

    const void* start_if_it_holds(const void*) const override { return nullptr; }

  private:
    // The handle's search goes on to the libraries that it needs; what is found there is not its export.
    void* exported(const std::string& name) const override {
        void* found = dlsym(handle_, name.c_str());
        if (!found) return nullptr;
        Dl_info where, own;
        link_map* map = nullptr;
        dlinfo(handle_, RTLD_DI_LINKMAP, &map);
        if (!dladdr(found, &where) || !dladdr(map->l_ld, &own) || where.dli_fbase != own.dli_fbase)
            return nullptr;
        return found;
    }

    std::string name_;  ///< the file's without its ending: what the build for the device is called, too
    void* handle_;
};

/// The errno value that dlerror() ends with in words, which are all that it has of one; 0 for other reasons.
int error_behind(const std::string& why) {
    constexpr int last = EHWPOISON;
    for (int error = 1; error <= last; ++error)
        if (why.ends_with(std::string(": ") + std::strerror(error))) return error;
    return why.ends_with("failed to map segment from shared object") ? ENOMEM : 0;
}

}  // namespace

std::unique_ptr<Library> load_elf(const std::string& host_path, std::string_view contents) {
    if (const char* fault = fault_of(contents))
        throw Refusal(SIM_BAD_FILE, "cannot load " + host_path + ": " + fault);
    const auto before = class_names();
    void* handle = nullptr;
    const double seconds =
        processor_seconds_of([&] { handle = dlopen(host_path.c_str(), RTLD_NOW | RTLD_LOCAL); });
    if (!handle) {
        const std::string why = dlerror();
        note_host_failure(host_path, error_behind(why));
        throw Refusal(SIM_BAD_FILE, "cannot load " + why);
    }
    const auto after = class_names();
    std::vector<std::string> made;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(made));
    return std::make_unique<ElfLibrary>(std::filesystem::path(host_path).stem(), handle, std::move(made),
                                        seconds);
}

}  // namespace sim
