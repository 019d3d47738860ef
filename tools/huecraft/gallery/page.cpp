// The themes on the page of a gallery.
#include "gallery/page.h"

#include <nettle/base64.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <numbers>

#include "cli/terminal.h"
#include "gallery/encoded_picture.h"

namespace command {
namespace {

std::string escaped(std::string_view text) {
    std::string safe;
    for (char c : text) switch (c) {
            case '<': safe += "&lt;"; break;
            case '>': safe += "&gt;"; break;
            case '&': safe += "&amp;"; break;
            case '"': safe += "&quot;"; break;
            default: safe += c;
        }
    return safe;
}

/// A text of unknown origin. U+FFFE and U+FFFF are characters for neither HTML nor XML.
std::string shown(std::string_view text) {
    constexpr size_t longest = 300;
    std::string line = one_line(text, longest);
    for (const char* none : {"\xef\xbf\xbe", "\xef\xbf\xbf"})
        for (size_t at = 0; (at = line.find(none, at)) != line.npos;) line.replace(at, 3, "\xef\xbf\xbd");
    return escaped(line);
}

std::string base64(std::string_view bytes) {
    std::string text(BASE64_ENCODE_RAW_LENGTH(bytes.size()), '\0');
    base64_encode_raw(text.data(), bytes.size(), reinterpret_cast<const uint8_t*>(bytes.data()));
    return text;
}

/// A path of this machine as a relative reference.
std::string reference(const std::filesystem::path& file, const std::filesystem::path& folder) {
    std::error_code ignored;
    const auto path = std::filesystem::proximate(file, folder.empty() ? "." : folder, ignored);
    // A first part with a colon would be a scheme.
    std::string text = path.is_absolute() ? "file://" : "./";
    for (unsigned char c : path.generic_string()) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           std::string_view("-._~/").find(static_cast<char>(c)) != std::string_view::npos;
        char coded[4] = {static_cast<char>(c), 0};
        if (!plain) std::snprintf(coded, sizeof coded, "%%%02X", c);
        text += coded;
    }
    return text;
}

/// The theme's file: in the page where it is small, a link to where it lies otherwise.
std::string download(const GalleryEntry& entry) {
    constexpr size_t small = 1500;
    const bool piped = entry.file == "-";
    const std::string name =
        piped ? "theme.plist" : shown(std::filesystem::path(entry.file).filename().string());
    const std::string size = " (" + counted(entry.contents.size(), "byte") + ")";
    const std::string begin = "<p><a download=\"" + name + "\" href=\"";
    if (entry.contents.size() <= small)
        return begin + "data:application/octet-stream;base64," + base64(entry.contents) + "\">" + name +
               "</a>" + size + "</p>\n";
    if (piped) return "<p>" + name + size + ", too large to be in this page</p>\n";
    return begin + reference(entry.file, entry.folder) + "\">" + name + "</a>" + size +
           ", beside this page</p>\n";
}

std::string colours(const GalleryEntry& entry) {
    std::string list = "<ul>\n";
    for (const Swatch& swatch : entry.colours)
        list +=
            "<li>" +
            (swatch.hex.empty() ? ""
                                : "<span class=\"swatch\" style=\"background:" + swatch.hex + "\"></span>") +
            swatch.what + (swatch.hex.empty() ? "" : " <code>" + swatch.hex + "</code>") + "</li>\n";
    return list + "</ul>\n";
}

std::string number(double value, const char* format) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

}  // namespace

double place_by_colour(const Oklab& background) {
    // Below this no hue is seen, and what is computed would be noise.
    constexpr double grey = 0.02, full_turn = 360;
    if (std::hypot(background.a, background.b) < grey) return full_turn + 100 * background.lightness;
    const double hue = std::atan2(background.b, background.a) * (full_turn / 2) / std::numbers::pi;
    return hue < 0 ? hue + full_turn : hue;
}

std::string gallery_piece(const GalleryEntry& entry, const DrawnKeyboard& keyboard) {
    const std::string before = "<article data-colour=\"" +
                               number(place_by_colour(keyboard.background), "%.1f") + "\" data-contrast=\"" +
                               number(keyboard.contrast, "%.2f") + "\" data-theme-sha256=\"" + entry.digest +
                               "\">\n<h2 dir=\"auto\">" + shown(entry.name) +
                               "</h2>\n<img loading=\"lazy\" width=\"375\" height=\"216\" " +
                               "alt=\"The keyboard, with v held down\" src=\"data:";
    const std::string after = "\"/>\n" + colours(entry) + "<p>contrast of the labels " +
                              number(keyboard.contrast, "%.1f") + "</p>\n" + download(entry) + "</article>\n";
    constexpr std::string_view coding = "image/webp;base64,";
    const size_t taken = before.size() + coding.size() + after.size();
    const size_t room = taken < most_bytes_of_a_theme ? (most_bytes_of_a_theme - taken) / 4 * 3 : 0;
    const EncodedPicture picture = encoded_within(keyboard.picture, room);
    return before + picture.media_type + ";base64," + base64(picture.bytes) + after;
}

}  // namespace command
