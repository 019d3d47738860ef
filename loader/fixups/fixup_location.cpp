// Moving through segments, checked where it counts.
#include "loader/fixups/fixup_location.h"

#include "loader/fault.h"

namespace macho {

FixupLocation::FixupLocation(const Layout& layout, const char* table) : layout_(layout), table_(table) {
    for (const Segment& segment : layout.segments)
        if (segment.writable) left_ += segment.file_size / kPointerSize;
}

void FixupLocation::enter_segment(uint8_t index, uint64_t offset) {
    if (index >= layout_.segments.size())
        refuse(std::string(table_) + " names segment " + std::to_string(index) + " (expected one below " +
               std::to_string(layout_.segments.size()) + ")");
    segment_ = &layout_.segments[index];
    offset_ = offset;
}

uint64_t FixupLocation::take_pointer() {
    if (!segment_) refuse(std::string(table_) + " fixes a pointer up before it names a segment");
    if (!segment_->writable)
        refuse(std::string(table_) + " fixes a pointer up in segment " + segment_->name +
               ", which is not writable");
    if (segment_->file_size < kPointerSize || offset_ > segment_->file_size - kPointerSize)
        refuse(std::string(table_) + " leaves segment " + segment_->name + " (found offset " + hex(offset_) +
               ", expected a pointer within " + hex(segment_->file_size) + " bytes)");
    if (left_-- == 0) refuse(std::string(table_) + " has more entries than the image has pointers");
    const uint64_t address = segment_->address + offset_;
    offset_ += kPointerSize;
    return address;
}

}  // namespace macho
