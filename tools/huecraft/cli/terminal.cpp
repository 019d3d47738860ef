// What the command says: in colour on a terminal, plain elsewhere.
#include "cli/terminal.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace command {
namespace {

bool colours_are_wanted(int descriptor) {
    const char* refused = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return !(refused && *refused) && isatty(descriptor) &&
           !(terminal && std::string_view(terminal) == "dumb");
}

constexpr std::array<const char*, 6> escapes{"", "\x1b[1m", "\x1b[2m", "\x1b[32m", "\x1b[33m", "\x1b[31m"};

std::string in_colour(Tone tone, const std::string& text) {
    return escapes[static_cast<size_t>(tone)] + text + "\x1b[0m";
}

/// How many bytes the UTF-8 character at the beginning has; 0 when there is none.
size_t character_length(std::string_view text) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    const size_t length = byte(0) < 0x80    ? 1
                          : byte(0) >= 0xf0 ? 4
                          : byte(0) >= 0xe0 ? 3
                          : byte(0) >= 0xc2 ? 2
                                            : 0;
    if (length == 0 || length > text.size()) return 0;
    for (size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xc0) != 0x80) return 0;
    return length;
}

std::string escaped(unsigned char byte) {
    if (byte == '\n') return "\\n";
    if (byte == '\t') return "\\t";
    char text[8];
    std::snprintf(text, sizeof text, "\\x%02x", byte);
    return text;
}

}  // namespace

std::string toned(Tone tone, const std::string& text) {
    static const bool wanted = colours_are_wanted(STDOUT_FILENO);
    return wanted && tone != Tone::plain ? in_colour(tone, text) : text;
}

std::string one_line(std::string_view text, size_t longest) {
    std::string line;
    size_t characters = 0;
    while (!text.empty()) {
        if (characters++ == longest) return line + "…";
        size_t length = character_length(text);
        // The controls of both sets: the second is U+0080 to U+009F.
        const auto lead = static_cast<unsigned char>(text[0]);
        const bool control = lead < 0x20 || lead == 0x7f ||
                             (length == 2 && lead == 0xc2 && static_cast<unsigned char>(text[1]) < 0xa0);
        if (length == 0 || control) {
            line += escaped(lead);
            length = 1;
        } else {
            line += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return line;
}

std::string in_quotes(std::string_view text) { return '"' + one_line(text) + '"'; }

std::string counted(size_t number, const std::string& what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

void complain(const std::string& file, const std::string& what) {
    std::fflush(stdout);
    const std::string name = one_line(file, 4096);
    static const bool coloured = colours_are_wanted(STDERR_FILENO);
    std::fprintf(stderr, "huecraft: %s: %s\n",
                 coloured ? in_colour(Tone::strong, name).c_str() : name.c_str(), what.c_str());
}

bool output_is_whole() { return std::fflush(stdout) == 0 && !std::ferror(stdout); }

Progress::Progress(std::string doing, size_t total)
    : doing_(std::move(doing)),
      total_(total),
      visible_(total > 1 && isatty(STDERR_FILENO)) {
    advance_to(0);
}

Progress::~Progress() {
    if (visible_) std::fputs("\r\x1b[K", stderr);
}

void Progress::advance_to(size_t done) {
    if (!visible_) return;
    constexpr size_t width = 30;
    const size_t filled = width * done / total_;
    std::string bar;
    for (size_t i = 0; i < width; ++i) bar += i < filled ? "█" : "░";
    std::fprintf(stderr, "\r\x1b[K%s %s %zu of %zu", doing_.c_str(), bar.c_str(), done, total_);
    std::fflush(stderr);
}

}  // namespace command
