// What the loader's parts throw among themselves: a finding that does not know yet which file it is about.
#pragma once
#include <charconv>
#include <cstdint>
#include <stdexcept>
#include <string>

namespace macho {

/// A finding in the file at hand. Image and import_classes add the file's name and throw it on as Error;
/// it is not an Error itself, so that a Fault without a name cannot go unnoticed.
class Fault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] inline void refuse(const std::string& reason) { throw Fault(reason); }

inline std::string hex(uint64_t value) {
    char digits[16];
    return "0x" + std::string(digits, std::to_chars(digits, digits + sizeof digits, value, 16).ptr);
}

}  // namespace macho
