#include "loader/unwinding/unwinding.h"

#include <algorithm>

#include "loader/fault.h"
#include "loader/unwinding/eh_frame.h"
#include "loader/unwinding/frame_arm64.h"
#include "loader/unwinding/frame_x86_64.h"
#include "loader/unwinding/unwind_info.h"

namespace macho {
namespace {

class Describer {
  public:
    Describer(const Layout& layout, const Mapping& mapping) : layout_(layout), mapping_(mapping) {}

    FrameDescription describe(const UnwindEntry& entry) const {
        const uintptr_t start = address(entry.start);
        const uint64_t size = entry.end - entry.start;
        if (!mapping_.is_code(start, size))
            refuse("__unwind_info describes what is not code (found " + hex(size) + " bytes at " +
                   hex(entry.start) + ")");

        if (const std::optional<Frame> found = frame(entry, start, size)) {
            FrameDescription description{.kind = {.return_address = return_address()},
                                         .instructions = instructions_for(*found)};
            if (entry.personality_slot) {
                description.kind.personality =
                    mapping_.read_pointer(address(entry.personality_slot), "a personality pointer");
                if (entry.lsda) description.lsda = address(entry.lsda);
            }
            return checked(description);
        }
        const Section* section = layout_.section("__eh_frame");
        if (!section)
            refuse("the code at " + hex(entry.start) +
                   " has its frame described by DWARF, but there is no __eh_frame");
        return checked(
            read_eh_frame(mapping_, *section, entry.encoding & UNWIND_DWARF_SECTION_OFFSET, start));
    }

  private:
    uintptr_t address(uint64_t offset) const { return mapping_.address_of(layout_.header_address + offset); }

    std::optional<Frame> frame(const UnwindEntry& entry, uintptr_t start, uint64_t size) const {
        if (layout_.cpu == Cpu::arm64) return arm64::frame(entry.encoding);
        return x86_64::frame(entry.encoding, mapping_.read(start, size, "a function"));
    }

    uint8_t return_address() const {
        return layout_.cpu == Cpu::arm64 ? arm64::kReturnAddress : x86_64::kReturnAddress;
    }

    FrameDescription checked(FrameDescription description) const {
        if (description.lsda && !mapping_.contains(description.lsda))
            refuse("a function's LSDA lies outside the image (found " +
                   hex(description.lsda - mapping_.slide()) + ")");
        return description;
    }

    const Layout& layout_;
    const Mapping& mapping_;
};

}  // namespace

void describe_frames(const Layout& layout, const Mapping& mapping, FrameTable& table) {
    const Section* section = layout.section("__unwind_info");
    if (!section || section->size == 0) return;

    uint64_t end_of_code = 0;
    for (const Segment& segment : layout.segments)
        if (segment.executable && segment.address >= layout.header_address)
            end_of_code = std::max(end_of_code, segment.address - layout.header_address + segment.file_size);

    const Describer describer(layout, mapping);
    for (const UnwindEntry& entry : read_unwind_info(mapping.read(*section, "__unwind_info"), end_of_code)) {
        if (entry.encoding == 0) continue;
        table.add(mapping.address_of(layout.header_address + entry.start), entry.end - entry.start,
                  describer.describe(entry));
    }
}

}  // namespace macho
