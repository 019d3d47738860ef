// Classes on Linux: every definition is listed in a section of its module and registered when the module
// loads.
#pragma once
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string_view>
#include <vector>

#include "objc/definition.h"
#include "objc/protocol_registered.h"

namespace objc {

/// A class to be: what registration needs to know of a definition.
struct ClassRecord {
    const char* name;
    const char* superclass;
    /// Makes and registers the class; nil when the runtime has one of this name already.
    Class (*make)(Class superclass);
};

template <class Ivars>
struct VariableBlock {
    static inline constinit ptrdiff_t place = 0;
    static ptrdiff_t offset() { return place; }
};

namespace detail {

// Calls `visit` with a value of each listed type.
template <class... Items, class Visit>
void for_each(List<Items...>, Visit visit) {
    (visit(Items{}), ...);
}

/// The texts of a protocol's methods.
template <class... Methods>
auto listed(List<Methods...>) {
    return std::array<ListedMethod, sizeof...(Methods)>{
        ListedMethod{stored<Methods::selector>.text, stored<Methods::types>.text}...};
}
template <class Protocol>
id registered(Protocol) {
    const auto required = listed(typename Protocol::required_methods{});
    const auto optional = listed(typename Protocol::optional_methods{});
    return protocol_named(Protocol::name.text, {required, {}}, {optional, {}});
}

template <class Definition, class Self>
class Registration {
    using Ivars = typename Self::Ivars;
    static constexpr auto layout = layout_of(typename Definition::variables{});
    static_assert((layout.size + alignof(Ivars) - 1) / alignof(Ivars) * alignof(Ivars) ==
                      (std::is_empty_v<Ivars> ? 0 : sizeof(Ivars)),
                  "a definition lists all of its Ivars, in their order");

  public:
    static Class make(Class superclass) {
        constexpr auto name = Self::Implemented::runtime_name;
        Class made = objc_allocateClassPair(superclass, name.text, 0);
        if (!made) return nullptr;
        Class metaclass = object_getClass(reinterpret_cast<id>(made));
        add_variables(made);
        for_each(typename Definition::methods{}, [&](auto method) { add(made, method); });
        for_each(typename Definition::class_methods{}, [&](auto method) { add(metaclass, method); });
        if (!begins_as_zeros()) {
            constexpr auto types = encode_method<id, void*>();
            class_addMethod(metaclass, selector<"allocWithZone:">(), reinterpret_cast<IMP>(&allocate),
                            types.text);
        }
        for_each(typename Definition::protocols{},
                 [&](auto protocol) { class_addProtocol(made, registered(protocol)); });
        for_each(typename Definition::declared_protocols{}, [](auto protocol) { registered(protocol); });
        objc_registerClassPair(made);
        find_variables(made);
        return made;
    }

  private:
    // Whether zero bytes, which is what a new object holds, are what the variables begin with.
    static bool begins_as_zeros() {
        if constexpr (std::is_empty_v<Ivars>) return true;
        alignas(Ivars) unsigned char bytes[sizeof(Ivars)];
        auto* fresh = new (bytes) Ivars();
        const bool zeros =
            std::all_of(bytes, bytes + sizeof bytes, [](unsigned char byte) { return byte == 0; });
        fresh->~Ivars();
        return zeros;
    }

    template <class Method>
    static void add(Class owner, Method) {
        class_addMethod(owner, selector<Method::selector>(), reinterpret_cast<IMP>(&Method::entry::call),
                        stored<Method::entry::types>.text);
    }

    static void add_variables(Class made) {
        bool first = true;
        for_each(typename Definition::variables{}, [&](auto variable) {
            using Value = typename decltype(variable)::type;
            // The block begins at the alignment of its most aligned variable; from there on both layouts
            // agree.
            size_t alignment = first ? layout.alignment : alignof(Value);
            first = false;
            if (!class_addIvar(made, variable.name.text, sizeof(Value), log2_of(alignment),
                               variable.types.text))
                stop("the instance variable is a superclass's already", variable.name.text);
        });
        // Constructing the block writes its padding at the end, too.
        constexpr size_t padding = std::is_empty_v<Ivars> ? 0 : sizeof(Ivars) - layout.size;
        if (padding && !begins_as_zeros())
            class_addIvar(made, stored<Name("_padding_of_") + Self::Implemented::runtime_name>.text, padding,
                          0, "?");
    }

    static void find_variables(Class made) {
        size_t index = 0;
        for_each(typename Definition::variables{}, [&](auto variable) {
            ptrdiff_t offset = ivar_getOffset(class_getInstanceVariable(made, variable.name.text));
            if (index == 0) VariableBlock<Ivars>::place = offset;
            auto* block = reinterpret_cast<Ivars*>(0x1000);
            auto within =
                reinterpret_cast<char*>(&(block->*variable.member)) - reinterpret_cast<char*>(block);
            if (offset != VariableBlock<Ivars>::place + within)
                stop("the definition lists its variables in another order than Ivars", variable.name.text);
            ++index;
        });
    }

    // The runtime only clears the memory of a new object; other C++ variables are constructed here.
    static id allocate(id self, SEL, void* zone) {
        Class metaclass = object_getClass(reinterpret_cast<id>(Self::Implemented::class_object()));
        id object = send_super<"allocWithZone:", id>(self, metaclass, zone);
        if (object) new (&variables_of<Ivars>(object)) Ivars();
        return object;
    }

    [[noreturn]] static void stop(const char* what, const char* variable) {
        std::fprintf(stderr, "%s.%s: %s\n", Self::Implemented::runtime_name.text, variable, what);
        std::abort();
    }
};

}  // namespace detail

/// Registers the classes of this module that `wanted` lets pass, superclasses first; one whose superclass is
/// missing is left out. Answers the name of the first that existed already, or null.
template <class Wanted>
const char* register_classes(Wanted wanted);

}  // namespace objc

// The bounds of the module's own sections; the linker makes them.
extern "C" {
[[gnu::visibility("hidden"), gnu::weak]] extern const objc::ClassRecord* const __start_objc_classes[];
[[gnu::visibility("hidden"), gnu::weak]] extern const objc::ClassRecord* const __stop_objc_classes[];
}

template <class Wanted>
const char* objc::register_classes(Wanted wanted) {
    struct Walk {
        Wanted& wanted;
        const char* existing = nullptr;
        std::vector<const ClassRecord*> visited{};

        void visit(const ClassRecord& record) {
            // It may have been visited as the superclass of an earlier one.
            if (!wanted(std::string_view(record.name)) ||
                std::ranges::find(visited, &record) != visited.end())
                return;
            visited.push_back(&record);
            if (!objc_lookUpClass(record.superclass))
                for (auto* other = __start_objc_classes; other != __stop_objc_classes; ++other)
                    if (std::string_view((*other)->name) == record.superclass) visit(**other);
            Class superclass = objc_getClass(record.superclass);
            if (superclass && !record.make(superclass) && !existing) existing = record.name;
        }
    };
    Walk walk{.wanted = wanted};
    for (auto* record = __start_objc_classes; record != __stop_objc_classes; ++record) walk.visit(**record);
    return walk.existing;
}

namespace objc {
/// Registers all classes of a library that is being loaded. A class that exists already is a library loaded
/// twice, or a host that took the name: neither can go on.
inline void register_library_classes() {
    if (const char* existing = register_classes([](std::string_view) { return true; })) {
        std::fprintf(stderr, "%s: a class of this name exists already\n", existing);
        std::abort();
    }
}
}  // namespace objc

#define OBJC_CLASS_IN_THIS_HOME(ClassName, SuperName, SuperImport, Implementation, ...)                 \
    namespace {                                                                                         \
    constinit const objc::ClassRecord objc_record_##ClassName{                                          \
        #ClassName, #SuperName,                                                                         \
        &objc::detail::Registration<objc::ClassDefinition<Implementation, __VA_ARGS__>,                 \
                                    Implementation>::make};                                             \
    [[gnu::used,                                                                                        \
      gnu::section("objc_classes")]] constinit const objc::ClassRecord* const objc_listed_##ClassName = \
        &objc_record_##ClassName;                                                                       \
    }
