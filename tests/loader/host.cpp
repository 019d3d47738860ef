// The host that the test images run in.
#include "host.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>

#include "objc/runtime.h"

// Found through the dynamic symbols, as C functions of the system are.
extern "C" {
[[gnu::visibility("default")]] int host_table[4] = {100, 101, 102, 103};
[[gnu::visibility("default")]] int host_add(int a, int b) { return a + b; }
[[gnu::visibility("default")]] void host_note(int number) { loader_test::notes.push_back(number); }

// Message sends for the images: integer arguments only, which is all that their methods take.
IMP loader_test_lookup_super(objc_super* super, SEL selector) {
    objc_super of_libobjc{super->receiver, class_getSuperclass(super->current)};
    return objc_msg_lookup_super(&of_libobjc, selector);
}
}

namespace {

#if defined(__x86_64__)
[[gnu::naked]] void message_send() {
    asm("push %rdi\n push %rsi\n push %rdx\n push %rcx\n push %r8\n"
        "call objc_msg_lookup@PLT\n"
        "pop %r8\n pop %rcx\n pop %rdx\n pop %rsi\n pop %rdi\n"
        "jmp *%rax");
}
[[gnu::naked]] void message_send_super() {
    asm("push %rdi\n push %rsi\n push %rdx\n push %rcx\n push %r8\n"
        "call loader_test_lookup_super@PLT\n"
        "pop %r8\n pop %rcx\n pop %rdx\n pop %rsi\n pop %rdi\n"
        "mov (%rdi), %rdi\n"
        "jmp *%rax");
}
#else
[[gnu::naked]] void message_send() {
    asm("stp x29, x30, [sp, #-48]!\n stp x0, x1, [sp, #16]\n stp x2, x3, [sp, #32]\n"
        "bl objc_msg_lookup\n mov x16, x0\n"
        "ldp x2, x3, [sp, #32]\n ldp x0, x1, [sp, #16]\n ldp x29, x30, [sp], #48\n"
        "br x16");
}
[[gnu::naked]] void message_send_super() {
    asm("stp x29, x30, [sp, #-48]!\n stp x0, x1, [sp, #16]\n stp x2, x3, [sp, #32]\n"
        "bl loader_test_lookup_super\n mov x16, x0\n"
        "ldp x2, x3, [sp, #32]\n ldp x0, x1, [sp, #16]\n ldp x29, x30, [sp], #48\n"
        "ldr x0, [x0]\n"
        "br x16");
}
#endif

id allocate(Class of) {
    const SEL alloc = sel_registerName("alloc");
    const id receiver = reinterpret_cast<id>(of);
    return reinterpret_cast<id (*)(id, SEL)>(objc_msg_lookup(receiver, alloc))(receiver, alloc);
}

char empty_cache[16];

}  // namespace

namespace loader_test {

std::vector<int> notes;

std::string image_path(const std::string& name) { return LOADER_TEST_IMAGES "/" + name + ".dylib"; }

std::vector<uint8_t> image_bytes(const std::string& name) {
    std::ifstream file(image_path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void* host_symbol(const macho::Import& import) {
    static const std::map<std::string, void*> runtime = {
        {"objc_msgSend", reinterpret_cast<void*>(&message_send)},
        {"objc_msgSendSuper2", reinterpret_cast<void*>(&message_send_super)},
        {"objc_alloc", reinterpret_cast<void*>(&allocate)},
        {"_objc_empty_cache", empty_cache},
    };
    constexpr std::string_view class_prefix = "OBJC_CLASS_$_", metaclass_prefix = "OBJC_METACLASS_$_";
    if (import.symbol.starts_with(class_prefix))
        return objc_lookUpClass(import.symbol.c_str() + class_prefix.size());
    if (import.symbol.starts_with(metaclass_prefix))
        return object_getClass(
            reinterpret_cast<id>(objc_lookUpClass(import.symbol.c_str() + metaclass_prefix.size())));
    const auto found = runtime.find(import.symbol);
    return found != runtime.end() ? found->second : dlsym(RTLD_DEFAULT, import.symbol.c_str());
}

macho::Image load(const std::string& name) { return macho::Image::load(image_path(name), host_symbol); }

void define_host_classes() {
    if (objc_lookUpClass("LTHostShape")) return;
    constexpr uint8_t bytes = 0, ints = 2;
    Class shape = objc_allocateClassPair(objc_lookUpClass("NSObject"), "LTHostShape", 0);
    class_addIvar(shape, "_tag", 4, ints, "i");
    class_addIvar(shape, "_bytes", 9, bytes, "[9c]");
    long (*const sides)(id, SEL) = [](id, SEL) { return 4L; };
    long (*const kinds)(id, SEL) = [](id, SEL) { return 7L; };
    class_addMethod(shape, sel_registerName("sides"), reinterpret_cast<IMP>(sides), "q@:");
    class_addMethod(object_getClass(reinterpret_cast<id>(shape)), sel_registerName("kinds"),
                    reinterpret_cast<IMP>(kinds), "q@:");
    objc_registerClassPair(shape);

    Class open = objc_allocateClassPair(objc_lookUpClass("NSObject"), "LTHostOpen", 0);
    class_addMethod(open, sel_registerName("sides"), reinterpret_cast<IMP>(sides), "q@:");
    objc_registerClassPair(open);

    Class odd = objc_allocateClassPair(objc_lookUpClass("NSObject"), "LTHostOdd", 0);
    class_addIvar(odd, "_bytes", 3, bytes, "[3c]");
    objc_registerClassPair(odd);

    objc_registerClassPair(objc_allocateClassPair(objc_lookUpClass("NSObject"), "LTClash", 0));
}

void* exported(const macho::Image& image, const std::string& name) {
    void* found = image.symbol(name);
    if (!found) throw std::runtime_error(image.name() + " exports no " + name);
    return found;
}

}  // namespace loader_test
