// The rule, by section.
#include "arm64e/rule.h"

#include <algorithm>

#include "loader/fault.h"

namespace arm64e {
namespace {

using macho::hex;
using macho::refuse;

struct Place {
    std::string_view section;
    bool is_signed;
};
/// Where pointers to functions of the slice's own stand.
constexpr Place places_of_functions[] = {
    {"__objc_const", true},      // implementations, in the lists of methods
    {"__block_desc", true},      // what copies and disposes of a block
    {"__const", false},          // called by the slice's own code alone: rows of the hook table
    {"__mod_init_func", false},  // the device's loader signs these itself
};
/// Where pointers to symbols of other images stand: classes and other data, and what stubs jump to, which
/// authenticate nothing.
constexpr std::string_view places_of_imports[] = {
    "__got",        "__la_symbol_ptr",  "__cfstring", "__objc_data", "__objc_classrefs", "__objc_superrefs",
    "__objc_const", "__objc_classlist",
};

[[noreturn]] void unknown_place(const LinkedSlice& slice, uint64_t address, const std::string& target) {
    const macho::Section* section = slice.section_at(address);
    refuse("a pointer in a place that the rule of signing does not know (found in section " +
           (section ? section->segment + "," + section->name : std::string("(none)")) + " at " +
           hex(address) + ", pointing to " + target + ")");
}

}  // namespace

bool is_signed(const LinkedSlice& slice, uint64_t address, const Pointer& pointer) {
    const macho::Section* section = slice.section_at(address);
    const std::string_view name = section ? std::string_view(section->name) : "";
    if (pointer.symbol) {
        if (std::ranges::find(places_of_imports, name) == std::end(places_of_imports))
            unknown_place(slice, address, pointer.symbol->name);
        return false;
    }
    if (!slice.is_code(pointer.target)) return false;
    const auto place = std::ranges::find(places_of_functions, name, &Place::section);
    if (place == std::end(places_of_functions))
        unknown_place(slice, address, "code at " + hex(pointer.target));
    return place->is_signed;
}

}  // namespace arm64e
