#include "compatibility/image_of.h"

#include "objc/handed.h"

#ifdef __APPLE__
// There is no vendor SDK, so these are declared here.
extern "C" {
struct DynamicSymbol {
    const char* file;
    void* dli_fbase;
    const char* symbol;
    void* symbol_address;
};
int dladdr(const void* address, DynamicSymbol* found);
void* dlsym(void* library, const char* symbol);
}
using Found = DynamicSymbol;
static void* const any_library = reinterpret_cast<void*>(-2);
#else
#include <dlfcn.h>
using Found = Dl_info;
static void* const any_library = nullptr;
#endif

namespace compatibility {
namespace {

/// Without the signature that an address may carry.
void* plain(const void* address) {
    const objc::Handed<void()> function{reinterpret_cast<void (*)()>(const_cast<void*>(address))};
    return reinterpret_cast<void*>(objc::take_back(function));
}

}  // namespace

const void* image_of(const void* address) {
    Found found{};
    return address && dladdr(plain(address), &found) ? found.dli_fbase : nullptr;
}

void* function_named(const char* name) { return plain(dlsym(any_library, name)); }

}  // namespace compatibility
