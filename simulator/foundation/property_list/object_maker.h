// The objects of a property list, made while it is read.
#pragma once
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/raw_bytes.h"

namespace sim::plist {

using Value = objc::strong<NSObject>;

/// Which objects of a read property list can be changed; the numbers are the options that callers give.
enum class Mutability : NSUInteger { nothing = 0, containers = 1, containers_and_leaves = 2 };

class ObjectMaker {
  public:
    explicit ObjectMaker(Mutability mutability) : mutability_(mutability) {}

    Mutability mutability() const { return mutability_; }

    /// Of valid UTF-8.
    Value text(std::string_view utf8) const;
    /// Throws a ParseError for half of a surrogate pair.
    Value text(std::u16string_view units) const;
    Value data(std::string_view bytes) const;
    Value data(RawBytes bytes) const;
    Value integer(int64_t value) const;
    Value unsigned_integer(uint64_t value) const;
    Value real(double value) const;
    Value single_real(float value) const;
    Value boolean(bool value) const;
    /// Counted from the first moment of 2001, in Greenwich. Throws a ParseError for what is not finite.
    Value date(double seconds) const;
    Value null() const;
    Value array(const std::vector<Value>& values) const;
    /// Keys and values in their order; of equal keys the last one stays.
    Value dictionary(const std::vector<std::pair<Value, Value>>& entries) const;

  private:
    const char* leaf_class(const char* immutable, const char* changeable) const;
    const char* container_class(const char* immutable, const char* changeable) const;

    Mutability mutability_;
};

}  // namespace sim::plist
