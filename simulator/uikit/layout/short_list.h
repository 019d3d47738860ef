// A list that is short as a rule, and then takes no memory of its own.
#pragma once
#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace sim {

/// Up to `Near` elements lie in the list itself, more of them in a block that it owns.
template <class Element, size_t Near>
class ShortList {
    static_assert(std::is_trivially_copyable_v<Element> && std::is_default_constructible_v<Element>);

  public:
    ShortList() = default;
    ShortList(const ShortList& other) { append(other.begin(), other.end()); }
    ShortList(ShortList&& other) noexcept { take(other); }
    ShortList& operator=(const ShortList& other) {
        if (this != &other) {
            clear();
            append(other.begin(), other.end());
        }
        return *this;
    }
    ShortList& operator=(ShortList&& other) noexcept {
        if (this != &other) take(other);
        return *this;
    }

    size_t size() const { return size_; }
    bool empty() const { return size_ == 0; }
    Element* begin() { return elements(); }
    Element* end() { return elements() + size_; }
    const Element* begin() const { return far_ ? far_.get() : near_; }
    const Element* end() const { return begin() + size_; }
    const Element& operator[](size_t place) const { return begin()[place]; }
    const Element& front() const { return *begin(); }

    void clear() { size_ = 0; }
    void reserve(size_t count) {
        if (count <= capacity_) return;
        count = std::max(count, 2 * capacity_);
        std::unique_ptr<Element[]> larger(new Element[count]);
        std::copy(begin(), end(), larger.get());
        far_ = std::move(larger);
        capacity_ = count;
    }
    /// The element may be one of this list's own.
    void push_back(Element added) {
        reserve(size_ + 1);
        elements()[size_++] = added;
    }
    /// From another list.
    void append(const Element* first, const Element* last) {
        reserve(size_ + static_cast<size_t>(last - first));
        std::copy(first, last, end());
        size_ += static_cast<size_t>(last - first);
    }

  private:
    Element* elements() { return far_ ? far_.get() : near_; }
    void take(ShortList& other) {
        far_ = std::move(other.far_);
        if (!far_) std::copy(other.near_, other.near_ + other.size_, near_);
        size_ = std::exchange(other.size_, 0);
        capacity_ = std::exchange(other.capacity_, Near);
    }

    size_t size_ = 0, capacity_ = Near;
    std::unique_ptr<Element[]> far_;
    Element near_[Near];
};

}  // namespace sim
