// OBJC_IMAGE: a library's initialisers, in order, after its classes and strings exist.
#pragma once
#include "objc/class.h"
#include "objc/string.h"

/// Lists the functions that run when the library is loaded, in this order; there may be none. Once per
/// library.
///
/// A macro, because a section's entries are named objects. On the device the runtime has made the classes and
/// strings by then; on Linux they are made first.
#ifdef __APPLE__
#define OBJC_IMAGE(...)                                                                    \
    namespace {                                                                            \
    __VA_OPT__([[gnu::used, gnu::section("__DATA,__mod_init_func,mod_init_funcs")]] void ( \
                       *const objc_initialisers[])() = {__VA_ARGS__};)                     \
    }                                                                                      \
    OBJC_IMAGE_INFO

/// What makes the device's runtime take notice of an image: an executable's, which has no
/// initialisers.
#define OBJC_IMAGE_INFO                                                                                     \
    namespace {                                                                                             \
    constexpr unsigned objc_class_properties_flag = 64, objc_simulator_flag = TARGET_OS_SIMULATOR ? 32 : 0; \
    [[gnu::used, gnu::section("__DATA,__objc_imageinfo,regular,no_dead_strip")]] constinit struct {         \
        unsigned version, flags;                                                                            \
    } objc_image_info{0, objc_class_properties_flag | objc_simulator_flag};                                 \
    }
#else
namespace objc {
template <class... Initialisers>
void run_in_order(Initialisers... initialisers) {
    (initialisers(), ...);
}
}  // namespace objc

#define OBJC_IMAGE(...)                                 \
    namespace {                                         \
    [[gnu::constructor]] void objc_initialize_image() { \
        objc::adopt_strings();                          \
        objc::register_library_classes();               \
        objc::run_in_order(__VA_ARGS__);                \
    }                                                   \
    }
#endif
