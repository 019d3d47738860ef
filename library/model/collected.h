// Arrays that are made of objects found one after another.
#pragma once
#include "platform/foundation.h"

/// Collects objects, which others keep alive, and makes an immutable array of them at once. A few, as the
/// colours of a theme are, take nothing else to be made; more go through a mutable array.
class Collected {
  public:
    void add(id object) {
        if (count_ == few) make_room();
        objects_[count_++] = object;
    }
    bool is_empty() const { return !count_; }
    bool is_single() const { return count_ == 1 && !more_; }
    /// There is one.
    id last() const { return objects_[count_ - 1]; }

    NSArray* array() {
        if (!more_) return NSArray::arrayWithObjects(objects_, count_);
        make_room();
        return NSArray::arrayWithArray(more_);
    }

  private:
    void make_room() {
        if (!more_) more_ = NSMutableArray::arrayWithCapacity(count_);
        for (NSUInteger i = 0; i < count_; ++i) more_->addObject(objects_[i]);
        count_ = 0;
    }

    static constexpr NSUInteger few = 8;
    id objects_[few];
    NSUInteger count_ = 0;
    NSMutableArray* more_ = nullptr;
};
