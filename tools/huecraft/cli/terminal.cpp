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

/// Whether a UTF-8 character turns the direction of the text behind it, or breaks the line: what is shown
/// would not be what is there. U+061C, U+200E, U+200F, U+2028 to U+202E, U+2066 to U+2069.
bool steers_text(std::string_view character) {
    if (character == "\xd8\x9c") return true;
    if (character.size() != 3 || character[0] != '\xe2') return false;
    const auto row = static_cast<unsigned char>(character[1]),
               cell = static_cast<unsigned char>(character[2]);
    return (row == 0x80 && (cell == 0x8e || cell == 0x8f || (cell >= 0xa8 && cell <= 0xae))) ||
           (row == 0x81 && cell >= 0xa6 && cell <= 0xa9);
}

/// Of two or three bytes, as \u and four digits.
std::string escaped_character(std::string_view character) {
    unsigned code = static_cast<unsigned char>(character[0]) & (character.size() == 2 ? 0x1f : 0x0f);
    for (char byte : character.substr(1)) code = code << 6 | (static_cast<unsigned char>(byte) & 0x3f);
    char text[8];
    std::snprintf(text, sizeof text, "\\u%04x", code);
    return text;
}

std::vector<Complaint>& all_complaints() {
    static std::vector<Complaint> all;
    return all;
}

bool json_is_wanted = false;

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

std::string swatch(int red, int green, int blue) {
    static const bool wanted = colours_are_wanted(STDOUT_FILENO);
    if (!wanted) return "";
    return "\x1b[48;2;" + std::to_string(red) + ";" + std::to_string(green) + ";" + std::to_string(blue) +
           "m  \x1b[0m ";
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
        } else if (steers_text(text.substr(0, length))) {
            line += escaped_character(text.substr(0, length));
        } else {
            line += text.substr(0, length);
        }
        text.remove_prefix(length);
    }
    return line;
}

std::string in_quotes(std::string_view text) { return '"' + one_line(text) + '"'; }

std::string joined(const std::vector<std::string>& words, const std::string& glue) {
    std::string all;
    for (const std::string& word : words) all += (all.empty() ? "" : glue) + word;
    return all;
}

std::string counted(size_t number, const std::string& what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

void complain(const std::string& file, const std::string& what) {
    std::fflush(stdout);
    all_complaints().push_back({file, what});
    const std::string name = file.empty() ? in_quotes(file) : one_line(file, 4096);
    static const bool coloured = colours_are_wanted(STDERR_FILENO);
    std::fprintf(stderr, "huecraft: %s: %s\n",
                 coloured ? in_colour(Tone::strong, name).c_str() : name.c_str(), what.c_str());
}

const std::vector<Complaint>& complaints() { return all_complaints(); }

void answer_in_json() { json_is_wanted = true; }

bool answers_in_json() { return json_is_wanted; }

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
