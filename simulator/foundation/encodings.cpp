// Foundation finds out when it starts which of some forty encodings iconv can convert: it opens each in both
// directions, and with most comes a shared library of its own. That is dear in a process that lives for a
// picture. Here all of them can be converted, and are opened when something is.
#include <dlfcn.h>
#include <iconv.h>

#include "foundation/corrections.h"
#include "platform/foundation.h"
#include "runtime/exported.h"

namespace sim {
namespace {

bool is_asking = false;
/// What Foundation gets meanwhile, and closes again.
char unopened;

template <class Function>
Function* in_libc(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

void ask_for_encodings() {
    is_asking = true;
    NSString::class_send<"defaultCStringEncoding", NSUInteger>();
    is_asking = false;
}

}  // namespace sim

// These stand before libc's functions of the names.
SIM_EXPORTED iconv_t iconv_open(const char* tocode, const char* fromcode) {
    if (sim::is_asking) return &sim::unopened;
    static auto* const original = sim::in_libc<iconv_t(const char*, const char*)>("iconv_open");
    return original(tocode, fromcode);
}

SIM_EXPORTED int iconv_close(iconv_t cd) {
    if (cd == &sim::unopened) return 0;
    static auto* const original = sim::in_libc<int(iconv_t)>("iconv_close");
    return original(cd);
}
