#include "pane/model/file_names.h"

namespace pane {
namespace {

constexpr std::u16string_view forbidden = u"/\\?%*|\"<>:";

bool is_blank(char16_t unit) { return unit == u' ' || unit == 0xa0 || unit == 0x3000; }
bool is_high(char16_t unit) { return unit >= 0xd800 && unit < 0xdc00; }
bool is_low(char16_t unit) { return unit >= 0xdc00 && unit < 0xe000; }
bool is_control(char16_t unit) { return unit < 0x20 || (unit >= 0x7f && unit < 0xa0); }

size_t bytes_in_utf8(char16_t unit) { return unit < 0x80 ? 1 : unit < 0x800 ? 2 : 3; }

}  // namespace

std::u16string stem_of(std::u16string_view name) {
    std::u16string stem;
    size_t bytes = 0;
    for (size_t at = 0; at < name.size(); ++at) {
        const char16_t unit = name[at];
        const bool pair = is_high(unit) && at + 1 < name.size() && is_low(name[at + 1]);
        if (is_control(unit) || forbidden.find(unit) != forbidden.npos) continue;
        if (stem.empty() && (unit == u'.' || is_blank(unit))) continue;
        if ((is_high(unit) || is_low(unit)) && !pair) continue;  // half a character
        const size_t size = pair ? 4 : bytes_in_utf8(unit);
        if (bytes + size > longest_stem) break;
        bytes += size;
        stem += unit;
        if (pair) stem += name[++at];
    }
    while (!stem.empty() && is_blank(stem.back())) stem.pop_back();
    return stem;
}

}  // namespace pane
