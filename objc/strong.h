// Ownership as types: strong and weak references, autorelease, pools.
#pragma once
#include <cstddef>
#include <utility>

#include "objc/encoding.h"

namespace objc {

/// A strong reference: retains what it is given, releases it when it goes. As the result of a function or a
/// method (`new…`, `init…`, `copy`) it hands the ownership to the caller. Zero bytes are a valid empty one,
/// so it may be an instance variable.
template <class T>
class strong {
  public:
    using object_type = T;

    constexpr strong() = default;
    constexpr strong(std::nullptr_t) {}
    strong(T* object) : object_(object) { objc_retain(as_id()); }
    strong(const strong& other) : strong(other.object_) {}
    strong(strong&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    template <class U>
        requires std::is_convertible_v<U*, T*>
    strong(strong<U>&& other) : object_(other.leak()) {}
    strong& operator=(strong other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    // Empty before it releases: what that calls finds no object that is gone.
    ~strong() { objc_release(to_id(leak())); }

    /// Takes over a reference that the caller owns.
    static strong adopt(T* object) {
        strong owner;
        owner.object_ = object;
        return owner;
    }
    /// Gives the reference away; the caller owns it.
    [[nodiscard]] T* leak() { return std::exchange(object_, nullptr); }
    /// Gives the reference to the current pool.
    T* autoreleased() && { return reinterpret_cast<T*>(objc_autorelease(to_id(leak()))); }

    T* get() const { return object_; }
    operator T*() const { return object_; }
    T* operator->() const { return object_; }

  private:
    static id to_id(T* object) { return reinterpret_cast<id>(object); }
    id as_id() const { return to_id(object_); }

    T* object_ = nullptr;
};

/// A zeroing weak reference: nil once the object is gone. Its address is known to the runtime, so it never
/// moves.
template <class T>
class weak {
  public:
    using object_type = T;

    constexpr weak() = default;
    weak(const weak&) = delete;
    weak& operator=(const weak&) = delete;
    weak& operator=(T* object) {
        objc_storeWeak(&slot_, reinterpret_cast<id>(object));
        return *this;
    }
    ~weak() { objc_destroyWeak(&slot_); }

    strong<T> get() const { return strong<T>::adopt(reinterpret_cast<T*>(objc_loadWeakRetained(&slot_))); }

  private:
    mutable id slot_ = nullptr;
};

/// Takes over the reference that a `new…` operation of the runtime or of a framework returned.
template <class T>
strong<T> adopt(T* object) {
    return strong<T>::adopt(object);
}

/// A strong reference for the life of the process: filled once, never released, nothing to destroy at exit.
/// It may be read and filled on any thread; what is stored twice must be the same object.
template <class T>
class lasting {
  public:
    constexpr lasting() = default;
    lasting(const lasting&) = delete;
    lasting& operator=(T* object) {
        __atomic_store_n(&object_, strong<T>(object).leak(), __ATOMIC_RELEASE);
        return *this;
    }
    operator T*() const { return __atomic_load_n(&object_, __ATOMIC_ACQUIRE); }
    T* operator->() const { return *this; }

  private:
    T* object_ = nullptr;
};

/// An autorelease pool that lasts as long as the scope.
class AutoreleasePool {
  public:
    AutoreleasePool() = default;
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;
    ~AutoreleasePool() { objc_autoreleasePoolPop(pool_); }

  private:
    void* pool_ = objc_autoreleasePoolPush();
};

}  // namespace objc
