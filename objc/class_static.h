// Classes in the dylib: the metadata that the device's runtime reads, laid out as the platform's compiler
// does it.
#pragma once
#include "objc/definition.h"

// The sections are found by their names; the attribute is long, and stands often.
#define OBJC_SECTION(name) gnu::section("__DATA," name)
#define OBJC_CONST [[OBJC_SECTION("__objc_const")]] static constinit inline

namespace objc {

// Internal linkage throughout: nothing of the metadata but the class symbols leaves a unit.
namespace {

struct ClassObject {
    const void *isa, *superclass, *cache, *vtable, *read_only;
};
struct ClassReadOnly {
    uint32_t flags = 0, instance_start, instance_size, reserved = 0;
    const void* strong_layout = nullptr;
    const char* name;
    const void *methods = nullptr, *protocols = nullptr, *variables = nullptr, *weak_layout = nullptr,
               *properties = nullptr;
};
static_assert(sizeof(ClassObject) == 40 && sizeof(ClassReadOnly) == 72);

/// The texts of the metadata, each in the section of its kind.
template <Name Text>
struct MetadataText {
    [[gnu::section("__TEXT,__objc_methname,cstring_literals")]] static constexpr auto method_name = Text;
    [[gnu::section("__TEXT,__objc_methtype,cstring_literals")]] static constexpr auto type = Text;
    [[gnu::section("__TEXT,__objc_classname,cstring_literals")]] static constexpr auto class_name = Text;
};

template <class Method>
struct MethodEntry {
    const char* name = MetadataText<Method::selector>::method_name.text;
    const char* types = MetadataText<Method::entry::types>::type.text;
    decltype(&Method::entry::call) implementation = &Method::entry::call;
};

#ifdef __x86_64__
using VariableOffset = long;
#else
using VariableOffset = int;
#endif

/// The slot of one variable's offset, which the runtime rewrites when the superclass has grown.
template <class Ivars, size_t Place>
struct VariableSlot {
    [[OBJC_SECTION("__objc_ivar")]] static constinit inline VariableOffset offset = Place;
};

constexpr size_t first_place = sizeof(void*);  // behind isa; the runtime slides the block past the superclass

template <template <class> class Entry, class Items>
struct MethodTable;
template <template <class> class Entry, class... Methods>
struct MethodTable<Entry, List<Methods...>> {
    uint32_t entry_size = 24, count = sizeof...(Methods);
    struct Entries : Entry<Methods>... {
    } entries;
    static_assert(sizeof...(Methods) == 0 || sizeof(Entries) == 24 * sizeof...(Methods));
};

template <class Property>
struct PropertyEntry {
    const char* name = MetadataText<Property::name>::method_name.text;
    const char* attributes = MetadataText<Property::attributes>::method_name.text;
};
template <class... Items>
struct PropertyTable;
template <class... Properties>
struct PropertyTable<List<Properties...>> {
    uint32_t entry_size = 16, count = sizeof...(Properties);
    struct Entries : PropertyEntry<Properties>... {
    } entries;
};

template <class... Items>
constexpr size_t count_of(List<Items...>) {
    return sizeof...(Items);
}
template <class Items, class Table>
constexpr const void* unless_empty(Table& table) {
    return count_of(Items{}) ? &table : nullptr;
}

template <class Method>
struct ListedEntry {
    const char* name = MetadataText<Method::selector>::method_name.text;
    const char* types = MetadataText<Method::types>::type.text;
    const void* implementation = nullptr;
};
/// The types once more, with the classes of objects: of all methods, the required ones first.
template <class Items>
struct ExtendedTypes;
template <class... Methods>
struct ExtendedTypes<List<Methods...>> {
    const char* entries[sizeof...(Methods) + 1] = {MetadataText<Methods::extended_types>::type.text...};
};

struct ProtocolObject {
    const void* isa;
    const char* name;
    const void *protocols = nullptr, *methods, *class_methods = nullptr, *optional_methods,
               *optional_class_methods = nullptr, *properties = nullptr;
    uint32_t size, flags = 0;
    const void* types;
    const char* demangled_name = nullptr;
    const void* class_properties = nullptr;
};
static_assert(sizeof(ProtocolObject) == 96);

/// A protocol. Where the frameworks have one of that name, the runtime keeps theirs.
template <class Protocol>
struct ProtocolMetadata {
    using Required = typename Protocol::required_methods;
    using Optional = typename Protocol::optional_methods;
    using All = Concatenated<Required, Optional>;

    OBJC_CONST MethodTable<ListedEntry, Required> required{};
    OBJC_CONST MethodTable<ListedEntry, Optional> optional{};
    OBJC_CONST ExtendedTypes<All> types{};

    [[OBJC_SECTION("__data")]] static constinit inline ProtocolObject object{
        .isa = nullptr,
        .name = MetadataText<Protocol::name>::class_name.text,
        .methods = unless_empty<Required>(required),
        .optional_methods = unless_empty<Optional>(optional),
        .size = sizeof(ProtocolObject),
        .types = unless_empty<All>(types),
    };
    [[gnu::used,
      OBJC_SECTION(
          "__objc_protolist,coalesced,no_dead_strip")]] static constinit inline ProtocolObject* listed =
        &object;
    static constexpr const ProtocolObject* get() {
        (void)&listed;
        return &object;
    }
};
template <class... Items>
struct ProtocolTable;
template <class... Protocols>
struct ProtocolTable<List<Protocols...>> {
    uintptr_t count = sizeof...(Protocols);
    const ProtocolObject* entries[sizeof...(Protocols) + 1] = {ProtocolMetadata<Protocols>::get()...,
                                                               nullptr};
};
/// Puts protocols into the image that no class in it adopts.
template <class... Protocols>
constexpr void keep(List<Protocols...>) {
    (ProtocolMetadata<Protocols>::get(), ...);
}

template <class Variable, VariableOffset* Slot>
struct VariableEntry {
    const VariableOffset* offset = Slot;
    const char* name = MetadataText<Variable::name>::method_name.text;
    const char* types = MetadataText<Variable::types>::type.text;
    uint32_t log2_alignment = log2_of(alignof(typename Variable::type));
    uint32_t size = sizeof(typename Variable::type);
};
template <class Ivars, class Variables, class Indices>
struct VariableTable;
template <class Ivars, class... Variables, size_t... Indices>
struct VariableTable<Ivars, List<Variables...>, std::index_sequence<Indices...>> {
    static constexpr auto layout = layout_of(List<Variables...>{});
    uint32_t entry_size = 32, count = sizeof...(Variables);
    struct Entries
        : VariableEntry<Variables, &VariableSlot<Ivars, first_place + layout.offsets[Indices]>::offset>... {
    } entries;
};

/// The tables of one class and of its metaclass.
template <class Definition, class Self>
struct Metadata {
    using Ivars = typename Self::Ivars;
    using Variables = typename Definition::variables;
    static constexpr auto layout = layout_of(Variables{});
    static_assert((layout.size + alignof(Ivars) - 1) / alignof(Ivars) * alignof(Ivars) ==
                      (std::is_empty_v<Ivars> ? 0 : sizeof(Ivars)),
                  "a definition lists all of its Ivars, in their order");

    OBJC_CONST MethodTable<MethodEntry, typename Definition::methods> methods{};
    OBJC_CONST MethodTable<MethodEntry, typename Definition::class_methods> class_methods{};
    OBJC_CONST PropertyTable<typename Definition::properties> properties{};
    OBJC_CONST ProtocolTable<typename Definition::protocols> protocols{};
    OBJC_CONST VariableTable<Ivars, Variables, std::make_index_sequence<count_of(Variables{})>> variables{};

    static constexpr const void* adopted_protocols() {
        keep(typename Definition::declared_protocols{});
        return unless_empty<typename Definition::protocols>(protocols);
    }

    static constexpr uint32_t metaclass_flag = 1;
    // It has a .cxx_destruct, and no .cxx_construct. Both sides say so.
    static constexpr uint32_t destruction_flags = Definition::has_destruction ? 1 << 2 | 1 << 8 : 0;
    static constexpr auto name = Self::Implemented::runtime_name;

    OBJC_CONST ClassReadOnly of_metaclass{
        .flags = metaclass_flag | destruction_flags,
        .instance_start = sizeof(ClassObject),
        .instance_size = sizeof(ClassObject),
        .name = MetadataText<name>::class_name.text,
        .methods = unless_empty<typename Definition::class_methods>(class_methods),
        .protocols = adopted_protocols(),
    };
    OBJC_CONST ClassReadOnly of_class{
        .flags = destruction_flags,
        .instance_start = first_place,
        .instance_size = first_place + layout.size,
        .name = MetadataText<name>::class_name.text,
        .methods = unless_empty<typename Definition::methods>(methods),
        .protocols = adopted_protocols(),
        .variables = unless_empty<Variables>(variables),
        .properties = unless_empty<typename Definition::properties>(properties),
    };
};

}  // namespace

template <class Ivars>
struct VariableBlock {
    static ptrdiff_t offset() {
        // volatile: the runtime rewrites the slot before any code runs
        return *const_cast<volatile VariableOffset*>(&VariableSlot<Ivars, first_place>::offset);
    }
};

}  // namespace objc

extern "C" {
extern char _objc_empty_cache[];
extern objc::ClassObject OBJC_METACLASS_$_NSObject;
}

#define OBJC_CLASS_IN_THIS_HOME(ClassName, SuperName, SuperImport, Implementation, ...)                      \
    namespace {                                                                                              \
    using ObjcMetadata = objc::Metadata<objc::ClassDefinition<Implementation, __VA_ARGS__>, Implementation>; \
    }                                                                                                        \
    extern "C" {                                                                                             \
    SuperImport extern objc::ClassObject OBJC_CLASS_$_##SuperName, OBJC_METACLASS_$_##SuperName;             \
    [[gnu::visibility("default"),                                                                            \
      OBJC_SECTION("__objc_data")]] constinit objc::ClassObject OBJC_METACLASS_$_##ClassName{                \
        &OBJC_METACLASS_$_NSObject, &OBJC_METACLASS_$_##SuperName, _objc_empty_cache, nullptr,               \
        &ObjcMetadata::of_metaclass};                                                                        \
    [[gnu::visibility("default"),                                                                            \
      OBJC_SECTION("__objc_data")]] constinit objc::ClassObject OBJC_CLASS_$_##ClassName{                    \
        &OBJC_METACLASS_$_##ClassName, &OBJC_CLASS_$_##SuperName, _objc_empty_cache, nullptr,                \
        &ObjcMetadata::of_class};                                                                            \
    }                                                                                                        \
    namespace {                                                                                              \
    [[gnu::used,                                                                                             \
      OBJC_SECTION(                                                                                          \
          "__objc_classlist,regular,no_dead_strip")]] constinit objc::ClassObject* objc_listed_##ClassName = \
        &OBJC_CLASS_$_##ClassName;                                                                           \
    }
