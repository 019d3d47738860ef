// Reading property lists of all three formats. Foundation on Linux takes much for good that the device
// refuses, drops CDATA sections and runs out of stack on nested lists, so this is done here as the device
// does it.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

#include "foundation/property_list/object_maker.h"

namespace sim::plist {

/// The numbers by which Foundation knows the formats.
enum class Format : NSUInteger { open_step = 1, xml = 100, binary = 200 };

/// What keeps some bytes from being a property list.
class ParseError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// How many containers may stand inside one another. A guess: the device's stack ends somewhere.
inline constexpr int deepest = 512;

struct PropertyList {
    Value root;
    Format format;
};

/// Reads whichever format the bytes have. Throws a ParseError.
PropertyList read(std::string_view bytes, Mutability);

/// The single formats. `text` is valid UTF-8.
Value read_binary(std::string_view bytes, const ObjectMaker&);
Value read_xml(std::string_view text, const ObjectMaker&);
Value read_open_step(std::string_view text, const ObjectMaker&);

}  // namespace sim::plist
