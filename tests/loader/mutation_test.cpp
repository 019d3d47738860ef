// Damaged images at large: each loads or is refused, and nothing else happens.
#include <gtest/gtest.h>

#include <random>

#include "host.h"
#include "loader/fault.h"
#include "loader/image.h"
#include "loader/objc_metadata.h"

namespace {

using loader_test::image_bytes;

// Resolves everything: what is behind a name does not matter to an image that is not run.
void* anything(const macho::Import&) {
    static char somewhere[64];
    return somewhere;
}

/// Loads the bytes and reads their classes. False if they are refused.
bool loads(const std::vector<uint8_t>& bytes) {
    try {
        const macho::Image image = macho::Image::load_bytes(bytes, "mutated.dylib", anything);
        macho::read_objc_metadata(image);
        return true;
    } catch (const macho::Error&) {
        return false;
    } catch (const macho::Fault&) {  // which import_classes would have given the file's name
        return false;
    }
}

/// Seeded changes to an image, of the kinds that hurt: single bits, extreme numbers, and pieces of the file
/// in the wrong place. Bytes that are zero are mostly padding, so that places which hold something are
/// preferred.
class Mutator {
  public:
    explicit Mutator(uint32_t seed) : random_(seed) {}

    void mutate(std::vector<uint8_t>& bytes) {
        for (uint32_t left = 1 + below(4); left > 0; --left) change(bytes);
    }

  private:
    // The standard distributions differ between libraries.
    uint32_t below(uint64_t limit) { return static_cast<uint32_t>(random_() % limit); }

    size_t place(const std::vector<uint8_t>& bytes) {
        size_t at = 0;
        for (int tries = 0; tries < 50 && bytes[at = below(bytes.size())] == 0; ++tries) {
        }
        return at;
    }

    void change(std::vector<uint8_t>& bytes) {
        constexpr uint64_t extremes[] = {
            0, 1, 0x7f, 0x80, 0xff, 0x7fffffff, 0xffffffff, uint64_t{1} << 60, ~uint64_t{0}};
        const size_t at = place(bytes);
        const auto put = [&](uint64_t value, size_t width) {
            for (size_t i = 0; i < width && at + i < bytes.size(); ++i)
                bytes[at + i] = static_cast<uint8_t>(value >> (8 * i));
        };
        switch (below(6)) {
            case 0: bytes[at] ^= static_cast<uint8_t>(1 << below(8)); break;
            case 1: bytes[at] = static_cast<uint8_t>(below(256)); break;
            case 2: put(extremes[below(std::size(extremes))], 4); break;
            case 3: put(extremes[below(std::size(extremes))], 8); break;
            case 4:
                for (size_t i = 0, from = place(bytes);
                     i < 8 && at + i < bytes.size() && from + i < bytes.size(); ++i)
                    bytes[at + i] = bytes[from + i];
                break;
            case 5:
                if (below(8) == 0) bytes.resize(1 + at);
                break;
        }
    }

    std::mt19937 random_;
};

class MutationTest : public testing::TestWithParam<const char*> {};

TEST_P(MutationTest, EachOf200DamagedImagesLoadsOrIsRefused) {
    const std::vector<uint8_t> intact = image_bytes(GetParam());
    ASSERT_TRUE(loads(intact));
    int loaded = 0, refused = 0;
    for (uint32_t seed = 0; seed < 200; ++seed) {
        std::vector<uint8_t> bytes = intact;
        Mutator(seed).mutate(bytes);
        (loads(bytes) ? loaded : refused) += 1;
    }
    // Were all of them refused, or none, this would have tested little.
    EXPECT_GT(loaded, 20);
    EXPECT_GT(refused, 20);
}

TEST_P(MutationTest, AnImageCutShortAnywhereIsRefused) {
    const std::vector<uint8_t> intact = image_bytes(GetParam());
    for (size_t size = 0; size < intact.size(); size += 1 + size / 16)
        EXPECT_FALSE(loads({intact.begin(), intact.begin() + static_cast<ptrdiff_t>(size)})) << size;
}

INSTANTIATE_TEST_SUITE_P(Images, MutationTest,
                         testing::Values("plain", "shared", "frames", "frameless", "registers", "classes",
                                         "category"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
