// The vocabulary of a class definition: variables, methods, properties and protocols, as a list of rows.
#pragma once
#include "objc/entry.h"
#include "objc/object.h"
#include "objc/strong.h"

namespace objc {

template <class... Items>
struct List {};

namespace detail {
template <class... Lists>
struct Concatenated {
    using type = List<>;
};
template <class... Items>
struct Concatenated<List<Items...>> {
    using type = List<Items...>;
};
template <class... A, class... B, class... Rest>
struct Concatenated<List<A...>, List<B...>, Rest...> : Concatenated<List<A..., B...>, Rest...> {};

template <class Member>
struct MemberOf;
template <class Owner, class Value>
struct MemberOf<Value Owner::*> {
    using owner = Owner;
    using type = Value;
};
}  // namespace detail

template <class... Lists>
using Concatenated = typename detail::Concatenated<Lists...>::type;

/// What a row of a definition contributes. A row names only what it has.
struct Row {
    using variables = List<>;
    using methods = List<>;
    using class_methods = List<>;
    using properties = List<>;
    using protocols = List<>;
    using declared_protocols = List<>;
};

/// One instance variable: `Member` points into the implementation's `Ivars`.
template <Name VariableName, auto Member>
struct Variable {
    static constexpr auto name = VariableName;
    static constexpr auto member = Member;
    using type = typename detail::MemberOf<decltype(Member)>::type;
    static constexpr auto types = encode_variable<type>();
};

/// One method of either side.
template <Name SelectorName, class EntryThunk>
struct Implemented {
    using entry = EntryThunk;
    static_assert(SelectorName.colons() == entry::arity,
                  "the selector and the function's parameters disagree");
    static constexpr auto selector = SelectorName;
};

template <Name PropertyName, Name Attributes>
struct PropertyOf {
    static constexpr auto name = PropertyName;
    static constexpr auto attributes = Attributes;
};

/// One method that a protocol lists: its types are those of the function in the protocol's interface.
template <Name SelectorName, class Signature>
struct Listed {
    static_assert(sizeof(Signature) == 0, "a protocol's method is a member function of its interface");
};
template <Name SelectorName, class Protocol, class Result, class... Arguments>
struct Listed<SelectorName, Result (Protocol::*)(Arguments...)> {
    static_assert(SelectorName.colons() == sizeof...(Arguments),
                  "the selector and the function's parameters disagree");
    using interface = Protocol;
    static constexpr auto selector = SelectorName;
    static constexpr auto types = encode_method<Result, Arguments...>();
    static constexpr auto extended_types = encode_extended_method<Result, Arguments...>();
};

template <Name ProtocolName, class... Methods>
struct ProtocolOf {
    static_assert(((Methods::interface::runtime_name == Name("<") + ProtocolName + Name(">")) && ...),
                  "the method is of another protocol's interface");
    static constexpr auto name = ProtocolName;
    using required_methods = Concatenated<std::conditional_t<Methods::is_required, List<Methods>, List<>>...>;
    using optional_methods = Concatenated<std::conditional_t<Methods::is_required, List<>, List<Methods>>...>;
};

/// Where a class's block of instance variables lies in its objects; each home fills the offset in.
template <class Ivars>
struct VariableBlock;

template <class Ivars>
inline Ivars& variables_of(id self) {
    return *reinterpret_cast<Ivars*>(reinterpret_cast<char*>(self) + VariableBlock<Ivars>::offset());
}

/// The accessors of a property that is kept in a variable, with the variable's own ownership.
template <auto Member>
struct Accessor {
    using Ivars = typename detail::MemberOf<decltype(Member)>::owner;
    using Variable = typename detail::MemberOf<decltype(Member)>::type;
    static constexpr bool holds_object = requires { typename Variable::object_type; };

    static Variable& variable(id self) { return variables_of<Ivars>(self).*Member; }

    static auto value(id self) {
        if constexpr (holds_object)
            return strong<typename Variable::object_type>(variable(self).get()).autoreleased();
        else
            return variable(self);
    }
    using Value = decltype(value(nullptr));

    struct Getter {
        static constexpr size_t arity = 0;
        static constexpr auto types = encode_method<Value>();
        static Crossing<Value> call(id self, SEL) { return departing<Value>(value(self)); }
    };
    struct Setter {
        static constexpr size_t arity = 1;
        static constexpr auto types = encode_method<void, Value>();
        static void call(id self, SEL, Crossing<Value> value) { variable(self) = arrived<Value>(value); }
    };
};

/// The rows that definitions are written with; a definition's file says `using namespace objc::definition`.
namespace definition {

/// An instance variable under its documented name: `ivar<"configuration", &Ivars::configuration>`.
/// A definition lists all of its Ivars, in their order.
template <Name VariableName, auto Member>
struct ivar : Row {
    using variables = List<Variable<VariableName, Member>>;
};

/// An instance method: `method<"getTextColor", &Theme::getTextColor>`.
template <Name SelectorName, auto Function>
struct method : Row {
    static_assert(!Entry<Function>::on_class, "an instance method is a member function");
    using methods = List<Implemented<SelectorName, Entry<Function>>>;
};

/// A class method: `class_method<"defaultConfig", &Theme::defaultConfig>`, a static function of (Class, …).
template <Name SelectorName, auto Function>
struct class_method : Row {
    static_assert(Entry<Function>::on_class, "a class method is a function that takes the Class first");
    using class_methods = List<Implemented<SelectorName, Entry<Function>>>;
};

/// A property that is kept in the variable "_name", with both accessors. strong<T> retains, weak<T> zeroes.
template <Name PropertyName, auto Member>
struct property : Row {
    using Value = typename detail::MemberOf<decltype(Member)>::type;
    static consteval auto attributes() {
        constexpr auto head = Name("T") + encode_variable<Value>() + Name(",");
        constexpr auto tail = Name("N,V_") + PropertyName;
        if constexpr (!requires { typename Value::object_type; })
            return head + tail;
        else if constexpr (std::is_same_v<Value, weak<typename Value::object_type>>)
            return head + Name("W,") + tail;
        else
            return head + Name("&,") + tail;
    }
    using Access = Accessor<Member>;
    using variables = List<Variable<Name("_") + PropertyName, Member>>;
    using methods = List<Implemented<PropertyName, typename Access::Getter>,
                         Implemented<setter_of<PropertyName>(), typename Access::Setter>>;
    using properties = List<PropertyOf<PropertyName, attributes()>>;
};

/// A property that is computed, under a getter of another name: `read_only_property<"value", "getValue",
/// &Slider::getValue>`.
template <Name PropertyName, Name GetterName, auto Function>
struct read_only_property : method<GetterName, Function> {
    template <class Owner, class Value>
    static consteval auto attributes(Value (Owner::*)()) {
        return Name("T") + encode_variable<Value>() + Name(",R,N,G") + GetterName;
    }
    using properties = List<PropertyOf<PropertyName, attributes(Function)>>;
};

/// A method of a protocol of ours, by its function in the protocol's interface:
/// `required<"closeButtonPressed", &HCModalDelegate::closeButtonPressed>`.
template <Name SelectorName, auto Function>
struct required : Listed<SelectorName, decltype(Function)> {
    static constexpr bool is_required = true;
};
/// The same of one that an object may do without.
template <Name SelectorName, auto Function>
struct optional : Listed<SelectorName, decltype(Function)> {
    static constexpr bool is_required = false;
};

/// The class says that it conforms to a protocol: of the frameworks, by its name alone, or of ours, with its
/// methods. One class of the library names the methods of a protocol.
template <Name ProtocolName, class... Methods>
struct conforms : Row {
    using protocols = List<ProtocolOf<ProtocolName, Methods...>>;
};

/// A protocol of ours that classes elsewhere conform to, with its methods: the runtime knows it.
template <Name ProtocolName, class... Methods>
struct declares : Row {
    using declared_protocols = List<ProtocolOf<ProtocolName, Methods...>>;
};

}  // namespace definition

/// The definition that a class's rows make, for what is written before them. The rows stand below the
/// implementation, so only bodies of templates may ask: they are compiled at the end of the unit.
template <class Self>
struct DefinitionOf;

template <Name Selector, class... Methods>
consteval bool names_method(List<Methods...>) {
    return ((Methods::selector == Selector) || ...);
}

/// The base of a class's implementation: the interface whose methods it implements, its variables, and the
/// superclass's implementations.
///
///     struct Theme : objc::Implements<Theme, HuecraftConfig> {
///         struct Ivars { … };
///         UIColor* getTextColor() { … }
///     };
template <class Self, class ClassInterface>
struct Implements : ClassInterface {
    using Implemented = ClassInterface;

    auto& ivars() { return variables_of<typename Self::Ivars>(this); }

    /// This object as its callers see it: `self()->setNeedsLayout()` is a message, which subclasses and hooks
    /// hear. A plain call, `setNeedsLayout()`, is C++ and goes past them to this very implementation.
    ClassInterface* self() { return this; }

    /// The selector of an action that this object performs: `control->addTarget(this, action<"copyColor">(),
    /// …)`. It is one of the class's own methods, and takes what a control passes: nothing, the sender, or
    /// the sender and its event.
    template <Name Selector>
    static SEL action() {
        using Methods = typename DefinitionOf<Self>::type::methods;
        static_assert(names_method<Selector>(Methods{}),
                      "the class's rows have no method of the action's name");
        static_assert(Selector.colons() <= 2, "an action takes at most the sender and its event");
        return selector<Selector>();
    }

    /// The superclass's method; in a class method, `class_super(self)`.
    template <Name Selector, class Result = void, class... Arguments>
    Result super(Arguments... arguments) {
        return send_super<Selector, Result>(this, ClassInterface::class_object(), arguments...);
    }
    template <Name Selector, class Result = void, class... Arguments>
    static Result class_super(Class self, Arguments... arguments) {
        return send_super<Selector, Result>(
            reinterpret_cast<id>(self), object_getClass(reinterpret_cast<id>(ClassInterface::class_object())),
            arguments...);
    }

    /// In an initialiser: what the superclass's initialiser made of this object, owned by the caller.
    template <Name Selector, class... Arguments>
    strong<Self> initialised_by_super(Arguments... arguments) {
        return strong<Self>::adopt(super<Selector, Self*>(arguments...));
    }
};

struct NoIvars {};

/// Everything that one definition says, sorted by kind: what both homes make their class of.
template <class Self, class... Rows>
struct ClassDefinition {
    static_assert(sizeof(Self) == sizeof(objc_object),
                  "an implementation has no data members: Ivars hold state");
    using ivars = typename Self::Ivars;
    using variables = Concatenated<typename Rows::variables...>;
    using class_methods = Concatenated<typename Rows::class_methods...>;
    using properties = Concatenated<typename Rows::properties...>;
    using protocols = Concatenated<typename Rows::protocols...>;
    using declared_protocols = Concatenated<typename Rows::declared_protocols...>;

    /// The implementation's own `dealloc`, and then the superclass's.
    struct Deallocation {
        static constexpr size_t arity = 0;
        static constexpr auto types = encode_method<void>();
        static void call(id object, SEL) {
            auto* self = static_cast<Self*>(object);
            self->dealloc();
            self->template super<"dealloc">();
        }
    };
    /// Lets the variables go, the last declared first. The runtime calls it when every `-dealloc` has run, a
    /// class's before its superclass's.
    struct Destruction {
        static constexpr size_t arity = 0;
        static constexpr auto types = encode_method<void>();
        static void call(id object, SEL) { static_cast<Self*>(object)->ivars().~ivars(); }
    };
    static constexpr bool has_destruction = !std::is_trivially_destructible_v<ivars>;
    using methods = Concatenated<
        typename Rows::methods..., std::conditional_t<requires(Self& self) {
            self.dealloc();
        }, List<Implemented<"dealloc", Deallocation>>, List<>>,
        std::conditional_t<has_destruction, List<Implemented<".cxx_destruct", Destruction>>, List<>>>;
};

/// Where variables lie inside their block when they are laid out one after another, each at its alignment, as
/// both runtimes and C++ do.
template <size_t Count>
struct Layout {
    size_t offsets[Count + 1]{};
    size_t size = 0;
    size_t alignment = 1;
};

template <class... Variables>
constexpr auto layout_of(List<Variables...>) {
    Layout<sizeof...(Variables)> layout;
    [[maybe_unused]] size_t index = 0;
    [[maybe_unused]] auto place = [&](size_t size, size_t alignment) {
        size_t offset = (layout.size + alignment - 1) / alignment * alignment;
        layout.offsets[index++] = offset;
        layout.size = offset + size;
        if (alignment > layout.alignment) layout.alignment = alignment;
    };
    (place(sizeof(typename Variables::type), alignof(typename Variables::type)), ...);
    return layout;
}

constexpr uint8_t log2_of(size_t alignment) {
    uint8_t log2 = 0;
    while (alignment >>= 1) ++log2;
    return log2;
}

}  // namespace objc
