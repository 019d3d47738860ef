// Counts the sends that building a backdrop view takes, themed and by hand, and prints both. A program of its
// own: its count stands in the way of every send.
#include <dlfcn.h>

#include <cstdio>
#include <cstring>

#include "backdrop_phone.h"
#include "measuring/check.h"
#include "objc/string.h"

namespace {

size_t sends;

template <class Function>
Function* next(const char* name) {
    auto* found = reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
    bench::check(found, "the runtime has its own look-up");
    return found;
}

/// The sends that one call takes, after a first one has filled every cache.
template <class Work>
size_t sends_of(Work work) {
    size_t counted = 0;
    for (int i = 0; i < 2; ++i) {
        const size_t before = sends;
        {
            objc::AutoreleasePool pool;
            work();
        }
        counted = sends - before;
    }
    return counted;
}

}  // namespace

// Visible, so that the libraries' sends come here as well.
extern "C" {
[[gnu::visibility("default")]] IMP objc_msg_lookup(id receiver, SEL selector) {
    static auto* const runtimes = next<IMP(id, SEL)>("objc_msg_lookup");
    ++sends;
    return runtimes(receiver, selector);
}
[[gnu::visibility("default")]] IMP objc_msg_lookup_super(objc_super* super, SEL selector) {
    static auto* const runtimes = next<IMP(objc_super*, SEL)>("objc_msg_lookup_super");
    ++sends;
    return runtimes(super, selector);
}
}

int main(int argc, char** argv) {
    using bench::Background;
    objc::adopt_strings();
    const bool flat = argc == 2 && std::strcmp(argv[1], "flat") == 0;
    const bench::BackdropPhone phone(flat ? Background::flat : Background::gradient);
    std::printf("%zu %zu\n", sends_of(bench::themed_view), sends_of(bench::view_themed_by_hand));
}
