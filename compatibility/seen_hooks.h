// Which of the library's hooks took effect in this process: those whose method lies in the library.
#pragma once
#include "compatibility/hooked_methods.h"
#include "compatibility/output.h"
#include "objc/runtime.h"

namespace compatibility {

enum class Effect {
    took,
    none,
    /// The theme shows key caps.
    not_wanted,
    /// Only the home screen has the class.
    not_here,
};

class SeenHooks {
  public:
    /// As the library is loaded, or is not.
    SeenHooks();

    /// Its image; null where there is none.
    const void* library() const { return library_; }
    /// Why no hook can be judged; null where they can.
    const char* why_unseen() const { return why_unseen_; }
    Effect of_method(const HookedMethod& row) const;
    /// A replaced function is known by what it answers: the theme's two colours.
    Effect of_function(const char* name) const;

    /// Whether what would be called is the library's, whatever the system has besides.
    bool is_the_librarys(Method method) const;

  private:
    const void* library_ = nullptr;
    const char* why_unseen_ = nullptr;
};

/// A line for each hook:
///
///     hook -[UIKBEdgeEffect edges] took effect
///
/// or, where nothing can be seen, one remark that says why: "# hooks not seen: theming is off".
void write_hooks(const Output& out, const SeenHooks& seen);

}  // namespace compatibility
