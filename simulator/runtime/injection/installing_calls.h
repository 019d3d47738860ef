// The record of what a library installed: message hooks, function hooks and added methods, in order.
#pragma once
#include <deque>

#include "objc/runtime.h"

namespace sim {

/// A call as it was made. It is recorded while a process starts, so nothing is looked up yet.
struct InstallingCall {
    enum class Kind { hook_message, hook_function, add_method };

    Kind kind;
    /// The class or metaclass, which may be nil; nil for functions.
    Class owner = nullptr;
    /// Null for functions.
    SEL selector = nullptr;
    /// The function's name; null for methods.
    const char* function = nullptr;
    /// The method's type encoding, as given or as found; null when there is none. It lasts as long as the
    /// process.
    const char* types = nullptr;
    bool took_effect = false;

    const char* class_name() const;
    bool on_class() const;
    /// The selector's name or the function's.
    const char* name() const;
};

void record(const InstallingCall&);

/// While it lives added methods are not to be recorded: a library's categories are put in place, which is no
/// call of its own.
class AddingCategories {
  public:
    AddingCategories();
    AddingCategories(const AddingCategories&) = delete;
    ~AddingCategories();

    static bool now();
};

/// All recorded so far. A call stays where it is when others follow.
const std::deque<InstallingCall>& installing_calls();

}  // namespace sim
