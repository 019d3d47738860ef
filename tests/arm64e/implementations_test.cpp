// Every signed implementation of the slice, left unsigned by itself: the runtime of an arm64e process names
// its method.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include "loader/fault.h"
#include "loader/fixups/threaded.h"
#include "loader/format/slice.h"
#include "loader/image.h"
#include "loader/objc/objc_metadata.h"
#include "objc/pointer_signature.h"

namespace {

/// What is behind an import does not matter to an image that is not run.
void* anything(const macho::Import&) {
    static char somewhere[64];
    return somewhere;
}

class Implementations : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(objc::processor_authenticates());
        const char* path = std::getenv("HUECRAFT_LIBRARY");
        ASSERT_NE(path, nullptr);
        std::ifstream stream(path, std::ios::binary);
        file.assign(std::istreambuf_iterator<char>(stream), {});
        slice = macho::choose_slice({file, "the library"}, macho::Cpu::arm64, macho::FileType::dylib,
                                    macho::Process::arm64e);
        layout = macho::read_layout(slice);
    }

    /// The place in the file, of something that a segment holds.
    uint8_t* place_of(uint64_t address) {
        for (const macho::Segment& segment : layout.segments)
            if (address >= segment.address && address - segment.address < segment.file_size)
                return const_cast<uint8_t*>(slice.data()) + segment.file_offset + (address - segment.address);
        throw std::out_of_range("a signed pointer lies outside the file");
    }

    /// What reading the classes of a fresh image says; empty when all is well.
    std::string refusal() {
        // Mapped at another address each time, as the images before stay: a signature depends on it.
        images.push_back(std::make_unique<macho::Image>(
            macho::Image::load_bytes(file, "the library", anything, macho::no_rules(), macho::FileType::dylib,
                                     macho::Process::arm64e)));
        try {
            macho::read_objc_metadata(*images.back());
            return {};
        } catch (const macho::Fault& fault) {
            return fault.what();
        }
    }

    std::vector<uint8_t> file;
    macho::Bytes slice{{}, "the library"};
    macho::Layout layout;
    std::vector<std::unique_ptr<macho::Image>> images;
};

TEST_F(Implementations, AreAllAuthenticAsTheyAre) { EXPECT_EQ(refusal(), ""); }

TEST_F(Implementations, EachLeftUnsignedIsNamed) {
    const macho::Section* lists = layout.section("__objc_const");
    ASSERT_NE(lists, nullptr);
    size_t left_out = 0;
    for (const macho::ThreadedPointer& pointer : macho::read_threaded(slice, layout).pointers) {
        if (!pointer.signature || pointer.address - lists->address >= lists->size) continue;
        uint8_t* place = place_of(pointer.address);
        uint64_t signed_pointer;
        std::memcpy(&signed_pointer, place, 8);
        const uint64_t is_signed = uint64_t{1} << 63, address_mixed_in = uint64_t{1} << 48;
        const uint64_t plain = signed_pointer & ~(is_signed | address_mixed_in);
        std::memcpy(place, &plain, 8);
        // A signature has 7 bits here: of 128 addresses without one, one passes by chance, at its place.
        std::string said;
        for (int place_tried = 0; place_tried < 4 && said.empty(); ++place_tried) {
            said = refusal();
            if (!said.empty()) images.pop_back();
        }
        EXPECT_NE(said.find("is not signed for its place"), said.npos)
            << "the implementation at 0x" << std::hex << pointer.address << ": \"" << said << '"';
        std::memcpy(place, &signed_pointer, 8);
        ++left_out;
    }
    EXPECT_GT(left_out, 200u);
}

}  // namespace
