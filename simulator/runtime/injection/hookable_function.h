// The system functions that the injection framework may replace.
#pragma once
#include <atomic>

namespace sim {

/// A function whose symbol only calls what stands in its slot. On the device any function can be replaced, by
/// rewriting its first instructions; here MSHookFunction knows the functions of this kind and stops the
/// process for any other address.
class Hookable {
  public:
    const char* name() const { return name_; }
    virtual bool stands_at(const void* address) const = 0;
    /// What stands in the slot.
    virtual void* current() const = 0;
    virtual void replace(void* replacement) = 0;

  protected:
    constexpr explicit Hookable(const char* name) : name_(name) {}
    ~Hookable() = default;

  private:
    const char* name_;
};

/// Written beside the function, and listed for MSHookFunction:
///
///     CGColorRef system_named_colour(NSString* name) { … }
///     constinit sim::HookableFunction named_colour("UIKBGetNamedColor", &UIKBGetNamedColor,
///     &system_named_colour);
///     [[gnu::used, gnu::section("hookable_functions")]] constinit sim::Hookable* const listed =
///     &named_colour;
///
///     SIM_EXPORTED CGColorRef UIKBGetNamedColor(NSString* name) { return named_colour(name); }
template <class Result, class... Arguments>
class HookableFunction final : public Hookable {
  public:
    using Function = Result(Arguments...);

    constexpr HookableFunction(const char* name, Function* symbol, Function* body)
        : Hookable(name),
          symbol_(symbol),
          current_(body) {}

    Result operator()(Arguments... arguments) const {
        return current_.load(std::memory_order_acquire)(arguments...);
    }
    bool stands_at(const void* address) const override {
        return reinterpret_cast<const void*>(symbol_) == address;
    }
    void* current() const override { return reinterpret_cast<void*>(current_.load()); }
    void replace(void* replacement) override { current_.store(reinterpret_cast<Function*>(replacement)); }

  private:
    Function* symbol_;
    std::atomic<Function*> current_;
};

}  // namespace sim
