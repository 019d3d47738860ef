// A copy of a test image to damage in one place.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "loader/format/format.h"
#include "loader/image.h"

namespace loader_test {

/// Knows just enough of the format to find a place; all of these fail with std::runtime_error if there is
/// none.
class Draft {
  public:
    explicit Draft(const std::string& image);

    /// Offsets in the file: of a load command, a segment's load command, a section's row, a section's bytes,
    /// and of what lies at an address.
    size_t command(macho::Command command) const;
    size_t segment(std::string_view name) const;
    size_t section(std::string_view name) const;
    size_t content(std::string_view section) const;
    size_t at_address(uint64_t address) const;

    uint32_t u32(size_t at) const;
    uint64_t u64(size_t at) const;
    Draft& set8(size_t at, uint8_t value);
    Draft& set16(size_t at, uint16_t value);
    Draft& set32(size_t at, uint32_t value);
    Draft& set64(size_t at, uint64_t value);
    Draft& set_text(size_t at, std::string_view text);

    /// Puts other bytes in place of one of the tables that LC_DYLD_INFO_ONLY names, by its position there.
    enum Table : size_t { rebase = 8, bind = 16, weak_bind = 24, lazy_bind = 32, exports = 40 };
    Draft& set_table(Table table, const std::vector<uint8_t>& bytes);

    std::vector<uint8_t>& bytes() { return bytes_; }
    /// Without the rules of the device's loader: these would refuse first what the loader's own reading must
    /// withstand.
    macho::Image load() const;
    macho::Image load(const macho::Rules& rules) const;
    /// What the loader says about it; empty if it loads.
    std::string load_error() const;
    /// The same with such rules.
    std::string load_error(const macho::Rules& rules) const;

  private:
    size_t find_command(uint32_t number, std::string_view segment) const;

    std::string name_;
    std::vector<uint8_t> bytes_;
};

}  // namespace loader_test
