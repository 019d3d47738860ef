// Blocks: how they are copied and let go of, and the classes that make objects of them. Foundation's own
// calls come here too, since these symbols stand before its own.
#include <atomic>
#include <cstdlib>
#include <cstring>

#include "objc/class.h"
#include "platform/foundation.h"
#include "runtime/block.h"
#include "runtime/exported.h"
#include "runtime/injection/authentication.h"

namespace {

/// What the compiler lays out for a block, followed by what it captured.
struct BlockLayout {
    Class isa;
    uint32_t flags;  ///< with the reference count of a copied block
    int32_t reserved;
    void (*invoke)();
    struct Descriptor {
        unsigned long reserved, size;
        void (*copy)(void* to, const void* from);  // these two only with has_copy_and_dispose
        void (*dispose)(const void* block);
    }* descriptor;
};

constexpr uint32_t count_mask = 0xfffe, one_reference = 2;
constexpr uint32_t is_copied = 1 << 24, has_copy_and_dispose = 1 << 25, is_global = 1 << 28;

auto* layout_of(const void* block) { return static_cast<BlockLayout*>(const_cast<void*>(block)); }

/// A function of the block's. In an arm64e process it is signed for the field that it stands in; blocks made
/// by the simulator and by what is built for Linux have it as it is.
template <class Function>
Function* function_in(Function* const& field, const BlockLayout& block, const char* what) {
    if (!sim::is_in_authenticating_image(block.descriptor)) return field;
    return reinterpret_cast<Function*>(sim::authenticated(reinterpret_cast<IMP>(field), &field, what));
}

IMP invoke_of(const BlockLayout& block) { return function_in(block.invoke, block, "a block's function"); }

}  // namespace

IMP sim::function_of_block(id block) { return invoke_of(*layout_of(block)); }

struct NSBlock : objc::Interface<NSBlock, "NSBlock", NSObject> {};
struct __NSStackBlock__ : objc::Interface<__NSStackBlock__, "__NSStackBlock__", NSBlock> {};
struct __NSMallocBlock__ : objc::Interface<__NSMallocBlock__, "__NSMallocBlock__", NSBlock> {};
struct __NSGlobalBlock__ : objc::Interface<__NSGlobalBlock__, "__NSGlobalBlock__", NSBlock> {};

SIM_EXPORTED void* _Block_copy(const void* block) {
    auto* original = layout_of(block);
    if (!original || original->flags & is_global) return original;
    if (original->flags & is_copied) {
        __atomic_fetch_add(&original->flags, one_reference, __ATOMIC_RELAXED);
        return original;
    }
    auto* copy = static_cast<BlockLayout*>(std::malloc(original->descriptor->size));
    std::memcpy(copy, original, original->descriptor->size);
    copy->isa = __NSMallocBlock__::class_object();
    copy->flags = (copy->flags & ~count_mask) | is_copied | one_reference;
    if (sim::is_in_authenticating_image(copy->descriptor))
        copy->invoke = sim::signed_for(invoke_of(*original), &copy->invoke);
    if (copy->flags & has_copy_and_dispose)
        function_in(copy->descriptor->copy, *copy, "a block's copy function")(copy, original);
    return copy;
}

SIM_EXPORTED void _Block_release(const void* block) {
    auto* copy = layout_of(block);
    if (!copy || !(copy->flags & is_copied)) return;
    if (__atomic_sub_fetch(&copy->flags, one_reference, __ATOMIC_ACQ_REL) & count_mask) return;
    if (copy->flags & has_copy_and_dispose)
        function_in(copy->descriptor->dispose, *copy, "a block's dispose function")(copy);
    std::free(copy);
}

namespace {

// None of them lies in Foundation's heap, where the count would stand before the object.
struct Block : objc::Implements<Block, NSBlock> {
    using Ivars = objc::NoIvars;

    NSObject* copyWithZone(void*) { return static_cast<NSObject*>(_Block_copy(this)); }
    void never() {}
};

/// A block that stays where it is: in its function's frame until it is copied, or for good.
template <class Interface>
struct StandingBlock : objc::Implements<StandingBlock<Interface>, Interface> {
    using Ivars = objc::NoIvars;

    NSObject* retain() { return this; }
    void release() {}
};

struct MallocBlock : objc::Implements<MallocBlock, __NSMallocBlock__> {
    using Ivars = objc::NoIvars;

    NSObject* retain() { return static_cast<NSObject*>(_Block_copy(this)); }
    void release() { _Block_release(this); }
    NSUInteger retainCount() { return (layout_of(this)->flags & count_mask) / one_reference; }
};

using StackBlock = StandingBlock<__NSStackBlock__>;
using GlobalBlock = StandingBlock<__NSGlobalBlock__>;

}  // namespace

using namespace objc::definition;

OBJC_CLASS(NSBlock, NSObject, Block,
           method<"copyWithZone:", &Block::copyWithZone>,
           method<"dealloc", &Block::never>)
OBJC_CLASS(__NSStackBlock__, NSBlock, StackBlock,
           method<"retain", &StackBlock::retain>,
           method<"release", &StackBlock::release>)
OBJC_CLASS(__NSGlobalBlock__, NSBlock, GlobalBlock,
           method<"retain", &GlobalBlock::retain>,
           method<"release", &GlobalBlock::release>)
OBJC_CLASS(__NSMallocBlock__, NSBlock, MallocBlock,
           method<"retain", &MallocBlock::retain>,
           method<"release", &MallocBlock::release>,
           method<"retainCount", &MallocBlock::retainCount>)
