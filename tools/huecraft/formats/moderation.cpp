#include "formats/moderation.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

#include "cli/files.h"
#include "formats/value.h"
#include "objc/fast_enumeration.h"

namespace command {
namespace {

constexpr uint64_t most_letters = 1'000'000;
constexpr uint64_t most_bytes = 2 * largest_list;

/// How many values the bytes describe, roughly; never more than twice too few.
uint64_t values_in(const std::string& bytes) {
    const auto number = [&](char c) { return static_cast<uint64_t>(std::ranges::count(bytes, c)); };
    if (bytes.starts_with("bplist")) {
        constexpr size_t trailer = 32, count = 24;  // how far from the end
        if (bytes.size() < trailer) return 0;
        uint64_t objects = 0;
        for (size_t i = bytes.size() - count; i < bytes.size() - count + 8; ++i)
            objects = objects << 8 | static_cast<unsigned char>(bytes[i]);
        return objects;
    }
    const size_t first = bytes.find_first_not_of(" \t\r\n\xef\xbb\xbf");
    if (first != bytes.npos && bytes[first] == '<') return number('<') / 2;
    // Numbers of two bytes and more for each character are known by their zeros.
    return number('<') / 2 + number(';') + number(',');
}

[[noreturn]] void refuse(const std::string& file, uint64_t most) {
    throw Unusable(file, "it holds more than " + std::to_string(most) +
                             " values, or unfolds to as many; expected a dozen, as themes have");
}

/// What is written where the list has no parts in common.
struct Extent {
    uint64_t values = 1, bytes = 0;
};

class Measure {
  public:
    explicit Measure(const std::string& file) : file_(file) {}

    Extent of(id value) {
        switch (kind_of(value)) {
            case Kind::text: return of_text(static_cast<NSString*>(value));
            case Kind::data: return {1, static_cast<NSData*>(value)->length()};
            case Kind::list:
            case Kind::dictionary: break;
            default: return {};
        }
        if (const auto known = known_.find(value); known != known_.end()) return known->second;
        Extent all;
        if (kind_of(value) == Kind::list) {
            objc::for_each<NSObject>(value, [&](NSObject* entry) { add(all, of(entry)); });
        } else {
            objc::for_each<NSString>(value, [&](NSString* key) {
                add(all, of(key));
                add(all, of(static_cast<NSDictionary*>(value)->objectForKey(key)));
            });
        }
        return known_[value] = all;
    }

  private:
    Extent of_text(NSString* text) const {
        if (text->length() > most_letters)
            throw Unusable(file_, "found a text of " + std::to_string(text->length()) +
                                      " letters, expected at most " + std::to_string(most_letters));
        return {1, text->length()};
    }
    static void add(Extent& all, const Extent& one) {
        all.values = std::min(all.values + one.values, 2 * most_values);
        all.bytes = std::min(all.bytes + one.bytes, 2 * most_bytes);
    }

    const std::string& file_;
    std::unordered_map<id, Extent> known_;
};

}  // namespace

void require_moderate(const std::string& bytes, const std::string& file) {
    if (values_in(bytes) > most_values) refuse(file, most_values);
}

void require_moderate(id root, const std::string& file, uint64_t most) {
    const Extent extent = Measure(file).of(root);
    if (extent.values > most) refuse(file, most);
    if (extent.bytes > most_bytes)
        throw Unusable(file, "it unfolds to more than " + std::to_string(most_bytes >> 20) +
                                 " MB, expected less than a theme's file may have");
}

}  // namespace command
