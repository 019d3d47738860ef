// Hook rows: which method is replaced, and by what kind of behaviour.
#pragma once
#include "objc/entry.h"
#include "objc/selector.h"
#include "objc/strong.h"

namespace objc {

/// The parts of a method's name in brackets: "-[UIKBEdgeEffect edges]" is an instance method, "+[…]" a class
/// method.
template <Name Method>
struct MethodName {
  private:
    static constexpr size_t space() {
        for (size_t i = 0; i < Method.length; ++i)
            if (Method.text[i] == ' ') return i;
        return 0;
    }
    template <size_t From, size_t To>
    static constexpr auto slice() {
        Name<To - From + 1> part;
        for (size_t i = From; i < To; ++i) part.text[i - From] = Method.text[i];
        return part;
    }
    static_assert(Method.length > 4 && (Method.text[0] == '-' || Method.text[0] == '+') &&
                      Method.text[1] == '[' && space() > 2 && Method.text[Method.length - 1] == ']',
                  "a hooked method is written -[Class selector] or +[Class selector]");

  public:
    static constexpr Side side = Method.text[0] == '-' ? Side::instance : Side::on_class;
    static constexpr auto class_name = slice<2, space()>();
    static constexpr auto selector = slice<space() + 1, Method.length - 1>();
};

template <class Signature>
class Previous;

/// What a replaced method was, for this receiver: called like a function, with the method's arguments. Where
/// the injection framework left the slot empty, there was nothing, and the answer is nil, zero or nothing.
template <class Result, class... Arguments>
class Previous<Result(Arguments...)> {
  public:
    Previous(Handed<void()> implementation, id self, SEL selector)
        : implementation_(implementation),
          self_(self),
          selector_(selector) {}

    /// Of an implementation that is known as it is.
    Previous(IMP implementation, id self, SEL selector)
        : Previous(Handed<void()>{implementation}, self, selector) {}

    Result operator()(Arguments... arguments) const {
        if (!implementation_) [[unlikely]]
            return Result();
        using Prototype = Crossing<Result> (*)(id, SEL, Crossing<Arguments>...);
        auto function = reinterpret_cast<Prototype>(take_back(implementation_));
        return detail::call<Result>(function, self_, selector_, departing<Arguments>(arguments)...);
    }

  private:
    Handed<void()> implementation_;
    id self_;
    SEL selector_;
};

namespace detail {

/// One replaced method: its replacement has the method's exact prototype, and `previous` is its own slot.
/// Body::run gets the previous implementation, the receiver and the arguments.
template <class Tag, class Body, class Result, class... Arguments>
struct Replacement {
    static_assert(PassedAlike<Arguments...>, "more arguments than both processors pass alike");
    static constexpr size_t arity = sizeof...(Arguments);
    static constexpr auto types = encode_plain_method<Result, Arguments...>();
    static inline constinit Handed<void()> previous{};

    static Crossing<Result> call(id self, SEL selector, Crossing<Arguments>... arguments) {
        return answer<Result>([&] {
            return Body::run(Previous<Result(Arguments...)>(previous, self, selector), self,
                             arrived<Arguments>(arguments)...);
        });
    }
};

}  // namespace detail

/// The kinds of behaviour. A file with a hook table says `using namespace objc::behaviour`.
namespace behaviour {

/// Runs the function instead; it gets the previous implementation: `R f(Previous<R(A…)>, Self*, A…)`.
template <auto Function, class Signature = decltype(Function)>
struct around {
    static_assert(sizeof(Signature) == 0, "around<f> takes R f(Previous<R(A...)>, Self*, A...)");
};
template <auto Function, class Self, class Result, class... Arguments>
struct around<Function, Result (*)(Previous<Result(Arguments...)>, Self*, Arguments...)> {
    static Result run(Previous<Result(Arguments...)> previous, id self, Arguments... arguments) {
        return Function(previous, static_cast<Self*>(self), arguments...);
    }
    template <class Tag>
    using On = detail::Replacement<Tag, around, Result, Arguments...>;
};

/// Calls the previous implementation, then the function: `void f(Self*, A…)`.
template <auto Function, class Signature = decltype(Function)>
struct after {
    static_assert(sizeof(Signature) == 0, "after<f> takes void f(Self*, A...)");
};
template <auto Function, class Self, class... Arguments>
struct after<Function, void (*)(Self*, Arguments...)> {
    static void run(Previous<void(Arguments...)> previous, id self, Arguments... arguments) {
        previous(arguments...);
        Function(static_cast<Self*>(self), arguments...);
    }
    template <class Tag>
    using On = detail::Replacement<Tag, after, void, Arguments...>;
};

/// Answers a value, or what a function without parameters answers; the previous implementation is not called.
template <auto Answer>
struct answers {
    static auto value() {
        if constexpr (requires { Answer(); })
            return Answer();
        else
            return Answer;
    }
    using Result = decltype(value());
    static Result run(Previous<Result()>, id) { return value(); }
    template <class Tag>
    using On = detail::Replacement<Tag, answers, Result>;
};

/// Calls the previous implementation with arguments that the function has changed: `void opaque(double&
/// alpha)`.
template <class Result, auto Function, class Signature = decltype(Function)>
struct substitutes {
    static_assert(sizeof(Signature) == 0, "substitutes<R, f> takes void f(A&...)");
};
template <class Result, auto Function, class... Arguments>
struct substitutes<Result, Function, void (*)(Arguments&...)> {
    static Result run(Previous<Result(Arguments...)> previous, id, Arguments... arguments) {
        Function(arguments...);
        return previous(arguments...);
    }
    template <class Tag>
    using On = detail::Replacement<Tag, substitutes, Result, Arguments...>;
};

/// Adds the function as a method that the class does not have: `R f(Self*, A…)`.
template <auto Function, class Signature = decltype(Function)>
struct adds {
    static_assert(sizeof(Signature) == 0, "adds<f> takes R f(Self*, A...)");
};
template <auto Function, class Self, class Result, class... Arguments>
struct adds<Function, Result (*)(Self*, Arguments...)> {
    static constexpr bool adding = true;
    // A replacement like the others, whose slot nothing fills.
    static Result run(Previous<Result(Arguments...)>, id self, Arguments... arguments) {
        return Function(static_cast<Self*>(self), arguments...);
    }
    template <class Tag>
    using On = detail::Replacement<Tag, adds, Result, Arguments...>;
};

}  // namespace behaviour

/// One row of a hook table, ready to be installed.
struct HookRow {
    const char* class_name;
    Side side;
    /// The method is added; otherwise one is replaced.
    bool adds;
    SEL (*selector)();
    /// The types of the replacement, which have to be the method's own.
    const char* types;
    Handed<void()> (*replacement)();
    Handed<void()>* previous;
};

namespace detail {
template <Name Method, class Behaviour>
consteval HookRow hook_row() {
    using Target = MethodName<Method>;
    using Entry = typename Behaviour::template On<stored_type<Method>>;
    static_assert(Target::selector.colons() == Entry::arity,
                  "the selector and the behaviour's parameters disagree");
    return {stored<Target::class_name>.text, Target::side, requires {Behaviour::adding;
}
, &objc::selector<Target::selector>, stored<Entry::types>.text,
    [] { return hand_over(reinterpret_cast<IMP>(&Entry::call)); }, &Entry::previous
};  // namespace detail
}  // namespace objc
}  // namespace detail

/// The row that gives the method, written "-[Class selector]", the behaviour.
template <Name Method, class Behaviour>
inline constexpr HookRow hook = detail::hook_row<Method, Behaviour>();

}  // namespace objc
