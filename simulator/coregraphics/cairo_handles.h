// Cairo's reference-counted objects as values.
#pragma once
#include <cairo.h>

#include <utility>

namespace sim {

/// Shares one of cairo's objects. Copying it counts a reference; the last one frees the object.
template <class T, T* (*reference)(T*), void (*destroy)(T*)>
class CairoHandle {
  public:
    constexpr CairoHandle() = default;
    /// Takes over the reference that a function of cairo's answered.
    explicit CairoHandle(T* owned) : object_(owned) {}
    CairoHandle(const CairoHandle& other) : object_(other.object_ ? reference(other.object_) : nullptr) {}
    CairoHandle(CairoHandle&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CairoHandle& operator=(CairoHandle other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~CairoHandle() {
        if (object_) destroy(object_);
    }

    T* get() const { return object_; }
    operator T*() const { return object_; }
    explicit operator bool() const { return object_; }

  private:
    T* object_ = nullptr;
};

using Surface = CairoHandle<cairo_surface_t, cairo_surface_reference, cairo_surface_destroy>;
using Cairo = CairoHandle<cairo_t, cairo_reference, cairo_destroy>;
using Pattern = CairoHandle<cairo_pattern_t, cairo_pattern_reference, cairo_pattern_destroy>;

/// cairo_save, and cairo_restore at the end of the scope.
class SavedState {
  public:
    explicit SavedState(cairo_t* cairo) : cairo_(cairo) { cairo_save(cairo_); }
    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;
    ~SavedState() { cairo_restore(cairo_); }

  private:
    cairo_t* cairo_;
};

}  // namespace sim
