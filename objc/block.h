// Blocks made of C++ functions, for the operations of the frameworks that take one.
#pragma once
#include <new>

#include "objc/abi.h"
#include "objc/object.h"

#ifdef __APPLE__
extern "C" void* _NSConcreteStackBlock[];
#endif

namespace objc {

namespace detail {
/// How a block's caller reaches the function: `call` is given the block itself first.
template <class Literal, class Signature>
struct BlockEntry;
template <class Literal, class Function, class... Arguments>
struct BlockEntry<Literal, void (Function::*)(Arguments...) const> {
    static void call(const Literal* block, Crossing<Arguments>... arguments) {
        block->function(arrived<Arguments>(arguments)...);
    }
};

inline const void* class_of_stack_blocks() {
#ifdef __APPLE__
    return _NSConcreteStackBlock;
#else
    return class_named<"__NSStackBlock__">();
#endif
}
}  // namespace detail

/// A block without a result that calls a lambda: `UIView::animate(0.5, 0, 0, objc::Block([=] { … }),
/// nullptr)`. It lies in its frame, as the compiler's own do; whoever needs it for longer copies it.
template <class Function>
class Block {
  public:
    explicit Block(Function function)
        : literal_{detail::class_of_stack_blocks(),
                   has_copy_and_dispose,
                   0,
                   {},
                   &descriptor,
                   std::move(function)} {
        hand_over_in(literal_.invoke, reinterpret_cast<void (*)()>(&Entry::call));
    }
    Block(const Block&) = delete;

    operator id() { return reinterpret_cast<id>(&literal_); }

  private:
    struct Literal;
    using Entry = detail::BlockEntry<Literal, decltype(&Function::operator())>;
    struct Descriptor {
        unsigned long reserved, size;
        void (*copy)(Literal* to, const Literal* from);
        void (*dispose)(Literal*);
    };
    struct Literal {
        const void* isa;
        unsigned flags;
        int reserved;
        Handed<void()> invoke;
        const Descriptor* descriptor;
        Function function;
    };
    static constexpr unsigned has_copy_and_dispose = 1 << 25;

    /// A copy's bytes are there already: what was captured is constructed over them.
    static void copy(Literal* to, const Literal* from) { new (&to->function) Function(from->function); }
    static void dispose(Literal* block) { block->function.~Function(); }
    // Its functions cross the border without code of ours: what signs them knows them by the section.
    [[gnu::section("__DATA,__block_desc")]] static constexpr Descriptor descriptor{0, sizeof(Literal), copy,
                                                                                   dispose};

    Literal literal_;
};

}  // namespace objc
