// Loading a library, whatever its format.
#include "interface/library.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <map>
#include <utility>

#include "interface/refusal.h"
#include "objc/runtime.h"
#include "phone/host_failures.h"

namespace sim {
namespace {

constexpr std::string_view elf_magic =
    "\x7f"
    "ELF";
constexpr std::string_view macho_magic = "\xcf\xfa\xed\xfe", fat_macho_magic = "\xca\xfe\xba\xbe";
constexpr off_t largest_library = 256 << 20;

std::string real_path(const std::string& host_path) {
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(host_path.c_str(), nullptr), &std::free);
    if (real) return real.get();
    note_host_failure(host_path, errno);
    return host_path;
}

/// By the paths of their files.
std::map<std::string, const Library*>& loaded_libraries() {
    static std::map<std::string, const Library*> libraries;
    return libraries;
}

Class class_behind(std::string_view symbol, std::string_view prefix, const std::vector<std::string>& own) {
    if (!symbol.starts_with(prefix)) return nullptr;
    const std::string name(symbol.substr(prefix.size()));
    if (!std::binary_search(own.begin(), own.end(), name)) return nullptr;
    return objc_lookUpClass(name.c_str());
}

}  // namespace

std::string contents_of(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
        const int error = errno;
        note_host_failure(path, error);
        throw Refusal(error == ENOENT ? SIM_NOT_FOUND : SIM_BAD_FILE,
                      "cannot load " + path + ": " + std::strerror(error));
    }
    if (!S_ISREG(status.st_mode)) throw Refusal(SIM_BAD_FILE, "cannot load " + path + ": it is not a file");
    if (status.st_size > largest_library)
        throw Refusal(SIM_BAD_FILE, "cannot load " + path + ": it is larger than any library, " +
                                        std::to_string(status.st_size) + " bytes");
    std::string contents(static_cast<size_t>(status.st_size), '\0');
    errno = 0;
    if (!std::ifstream(path, std::ios::binary).read(contents.data(), status.st_size)) {
        note_host_failure(path, errno);
        throw Refusal(SIM_BAD_FILE, "cannot load " + path + ": it cannot be read");
    }
    return contents;
}

double processor_seconds() {
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::vector<std::string> class_names() {
    std::vector<Class> classes(static_cast<size_t>(objc_getClassList(nullptr, 0)));
    classes.resize(static_cast<size_t>(objc_getClassList(classes.data(), static_cast<int>(classes.size()))));
    std::vector<std::string> names;
    for (Class each : classes) names.emplace_back(class_getName(each));
    std::sort(names.begin(), names.end());
    return names;
}

void* Library::symbol(std::string_view name) const {
    if (Class found = class_behind(name, "OBJC_CLASS_$_", classes_)) return found;
    if (Class found = class_behind(name, "OBJC_METACLASS_$_", classes_))
        return object_getClass(reinterpret_cast<id>(found));
    return exported(std::string(name));
}

std::unique_ptr<Library> load_library(const std::string& host_path) {
    std::string contents = contents_of(host_path);
    auto is = [&](std::string_view magic) { return contents.starts_with(magic); };
    if (!is(elf_magic) && !is(macho_magic) && !is(fat_macho_magic))
        throw Refusal(SIM_BAD_FILE,
                      "cannot load " + host_path + ": it is neither an ELF nor a Mach-O library");
    const std::string path = real_path(host_path);
    if (loaded_libraries().contains(path))
        throw Refusal(SIM_MISUSE, "cannot load " + host_path + ": it is loaded already");
    auto library = is(elf_magic) ? load_elf(path, contents) : load_macho(path, std::move(contents));
    loaded_libraries().emplace(path, library.get());
    return library;
}

const Library* loaded_from(const std::string& host_path) {
    const auto found = loaded_libraries().find(real_path(host_path));
    return found == loaded_libraries().end() ? nullptr : found->second;
}

const void* start_of_library_at(const void* address) {
    for (const auto& [path, library] : loaded_libraries())
        if (const void* start = library->start_if_it_holds(address)) return start;
    return nullptr;
}

const Library* library_installed_as(std::string_view install_name) {
    for (const auto& [path, library] : loaded_libraries())
        if (library->is_installed_as(install_name)) return library;
    return nullptr;
}

}  // namespace sim
