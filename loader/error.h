// The one error that the loader throws.
#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

namespace macho {

/// The text with its control characters written out: names from a file may hold any.
inline std::string in_one_line(std::string_view text) {
    std::string line;
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code >= 0x20 && code != 0x7f) {
            line += letter;
        } else {
            constexpr const char* digits = "0123456789abcdef";
            line += {'\\', 'x', digits[code >> 4], digits[code & 15]};
        }
    }
    return line;
}

/// A file that cannot be loaded, or whose classes cannot be imported. The message is one line that names the
/// file, what was found and what was expected.
class Error : public std::runtime_error {
  public:
    explicit Error(const std::string& message) : runtime_error(in_one_line(message)) {}
};

}  // namespace macho
