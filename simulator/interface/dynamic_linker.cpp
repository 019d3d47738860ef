// dlopen, dlsym, dladdr and dlerror over what the simulator has loaded.
#include "interface/dynamic_linker.h"

#include <dlfcn.h>

#include <memory>
#include <string>
#include <vector>

#include "interface/imports.h"
#include "interface/library.h"
#include "interface/refusal.h"
#include "phone/file_system.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

/// What a program passes in place of a library to have all of them searched; Linux has another value.
void* const every_library = reinterpret_cast<void*>(-2);

std::string& error_text() {
    static std::string text;
    return text;
}

/// What programs have opened stays open: nothing of the library's can be taken back.
std::vector<std::unique_ptr<Library>>& opened() {
    static auto* libraries = new std::vector<std::unique_ptr<Library>>;
    return *libraries;
}

}  // namespace

void* open_library(const char* device_path, int) {
    const auto host = host_path(device_path);
    if (!host) {
        error_text() = std::string("dlopen(") + device_path + "): image not found";
        return nullptr;
    }
    if (const Library* loaded = loaded_from(*host)) return const_cast<Library*>(loaded);
    try {
        opened().push_back(load_library(*host));
        return opened().back().get();
    } catch (const Refusal& refusal) {
        error_text() = std::string("dlopen(") + device_path + "): " + refusal.what();
        return nullptr;
    }
}

void* symbol_of(void* library, const char* name) {
    void* found =
        library == every_library ? resolve_import(name) : static_cast<Library*>(library)->symbol(name);
    if (!found) error_text() = std::string("dlsym(): symbol not found: ") + name;
    return found;
}

int information_about(const void* address, AddressInformation* found) {
    if (const void* start = start_of_library_at(address)) {
        *found = {.file = "", .file_address = start, .symbol = nullptr, .symbol_address = nullptr};
        return 1;
    }
    Dl_info host;
    if (!dladdr(address, &host)) return 0;
    *found = {host.dli_fname, host.dli_fbase, host.dli_sname, host.dli_saddr};
    return 1;
}

char* last_linking_error() { return error_text().empty() ? nullptr : error_text().data(); }

}  // namespace sim
