// Blocks for calls that take one.
#pragma once
#include <functional>

#include "objc/runtime.h"

namespace test {

/// A block that calls a function with the block's one argument, or with nothing in particular: BOOLs cross as
/// int. It is valid as long as this object, and may be copied meanwhile.
class Block {
  public:
    explicit Block(std::function<void(int)> function)
        : literal_{objc_getClass("__NSStackBlock__"),
                   has_copy_and_dispose,
                   0,
                   invoke,
                   &descriptor,
                   new std::function<void(int)>(std::move(function))} {}
    Block(const Block&) = delete;
    ~Block() { delete literal_.function; }

    operator id() { return reinterpret_cast<id>(&literal_); }

  private:
    struct Descriptor {
        unsigned long reserved, size;
        void (*copy)(void*, const void*);
        void (*dispose)(const void*);
    };
    struct Literal {
        Class isa;
        unsigned flags;
        int reserved;
        void (*invoke)(Literal*, int);
        const Descriptor* descriptor;
        std::function<void(int)>* function;
    };
    static constexpr unsigned has_copy_and_dispose = 1 << 25;

    static void invoke(Literal* self, int argument) { (*self->function)(argument); }
    static inline const Descriptor descriptor{
        0, sizeof(Literal),
        [](void* to, const void* from) {
            static_cast<Literal*>(to)->function =
                new std::function<void(int)>(*static_cast<const Literal*>(from)->function);
        },
        [](const void* block) { delete static_cast<const Literal*>(block)->function; }};

    Literal literal_;
};

}  // namespace test
