// leave_out <arm64e slice> <number> <slice>: leaves out one of the places where the slice signs an address or
// strips one, by a no-operation. Exit status 3 when it has no such place; prints which kind it is.
//
// The slice is to be signed again. Data has signatures of its own: numbers from 1000 leave out the one of the
// so-manieth signed pointer.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "loader/fault.h"
#include "loader/fixups/threaded.h"
#include "loader/format/slice.h"

namespace {

constexpr uint32_t pacia1716 = 0xd503211f, xpaclri = 0xd50320ff, nothing = 0xd503201f;
// mov w17, #0x1000: the address that is signed to find out whether signing does anything. It crosses no
// border.
constexpr uint32_t address_to_try = 0x52820011;
constexpr int no_such_place = 3, first_in_data = 1000;

uint64_t offset_in_file(const macho::Layout& layout, uint64_t address) {
    for (const macho::Segment& segment : layout.segments)
        if (address >= segment.address && address - segment.address < segment.file_size)
            return segment.file_offset + (address - segment.address);
    macho::refuse("an address lies outside the file");
}

int leave_out_of_code(std::vector<uint8_t>& bytes, const macho::Layout& layout, int number) {
    const macho::Section* code = layout.section("__text");
    uint32_t before = 0;
    for (uint64_t at = 0; code && at < code->size; at += 4) {
        uint8_t* place = bytes.data() + offset_in_file(layout, code->address + at);
        uint32_t instruction;
        std::memcpy(&instruction, place, 4);
        const bool asks = before == address_to_try;
        before = instruction;
        if ((instruction != pacia1716 && instruction != xpaclri) || asks || number-- > 0) continue;
        std::printf("%s at 0x%llx\n", instruction == pacia1716 ? "sign" : "strip",
                    static_cast<unsigned long long>(code->address + at));
        std::memcpy(place, &nothing, 4);
        return 0;
    }
    return no_such_place;
}

int leave_out_of_data(std::vector<uint8_t>& bytes, const macho::Layout& layout, int number) {
    for (const macho::ThreadedPointer& pointer :
         macho::read_threaded({bytes, "the slice"}, layout).pointers) {
        if (!pointer.signature || number-- > 0) continue;
        uint8_t* place = bytes.data() + offset_in_file(layout, pointer.address);
        uint64_t value;
        std::memcpy(&value, place, 8);
        value &= ~(uint64_t{1} << 63 | uint64_t{1} << 48);
        std::memcpy(place, &value, 8);
        std::printf("signed pointer at 0x%llx\n", static_cast<unsigned long long>(pointer.address));
        return 0;
    }
    return no_such_place;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) {
        std::fputs("usage: leave_out <arm64e slice> <number> <slice>\n", stderr);
        return 2;
    }
    try {
        std::ifstream file(arguments[1], std::ios::binary);
        std::vector<uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
        const macho::Layout layout = macho::read_layout(macho::choose_slice(
            {bytes, "the slice"}, macho::Cpu::arm64, macho::FileType::dylib, macho::Process::arm64e));
        const int number = std::atoi(arguments[2]);
        const int status = number < first_in_data ? leave_out_of_code(bytes, layout, number)
                                                  : leave_out_of_data(bytes, layout, number - first_in_data);
        if (status) return status;
        std::ofstream left(arguments[3], std::ios::binary);
        left.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        return left.flush() ? 0 : 1;
    } catch (const macho::Fault& fault) {
        std::fprintf(stderr, "leave_out: %s: %s\n", arguments[1], fault.what());
        return 1;
    }
}
