// Seeded damage to an image.
#pragma once
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace loader_test {

/// A part of an image that means something: load commands, a table of fix-ups, a section of metadata.
struct Region {
    std::string name;
    size_t begin, end;
    /// What it consists of: words of 8 bytes, words of 4, or bytes.
    size_t unit;
};

/// The parts of an intact image.
std::vector<Region> regions_of(const std::vector<uint8_t>& image);

/// Changes images of one kind, each seed in its own way. Every other seed knows the format: it goes for one
/// of the regions, each as likely as the others, and puts there what is nearly right. The others flip bits,
/// put extreme numbers and move pieces anywhere, where something is.
class Mutator {
  public:
    explicit Mutator(const std::vector<uint8_t>& intact) : intact_(intact), regions_(regions_of(intact)) {}

    std::vector<uint8_t> mutated(uint32_t seed);

  private:
    uint32_t below(uint64_t limit) { return static_cast<uint32_t>(random_() % limit); }
    uint64_t number();
    size_t place();
    void put(size_t at, uint64_t value, size_t width);
    uint64_t get(size_t at, size_t width) const;
    void change_anywhere();
    void change_in_a_region();
    void change_word(const Region& region);
    void change_text(const Region& region);

    const std::vector<uint8_t> intact_;
    const std::vector<Region> regions_;
    std::vector<uint8_t> bytes_;
    std::mt19937 random_;
};

}  // namespace loader_test
