// The page of a gallery.
#include "commands/gallery_page.h"

#include <string_view>

#include "cli/terminal.h"

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

std::string base64(std::string_view bytes) {
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (size_t i = 0; i < bytes.size(); i += 3) {
        auto byte = [&](size_t at) { return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0u; };
        const unsigned three = byte(i) << 16 | byte(i + 1) << 8 | byte(i + 2);
        text += digits[three >> 18];
        text += digits[three >> 12 & 63];
        text += i + 1 < bytes.size() ? digits[three >> 6 & 63] : '=';
        text += i + 2 < bytes.size() ? digits[three & 63] : '=';
    }
    return text;
}

std::string image(const std::string& png, const std::string& kind, const std::string& name) {
    return "<img class=\"" + kind + "\" loading=\"lazy\" alt=\"" + escaped(name) + ", " + kind +
           "\" src=\"data:image/png;base64," + base64(png) + "\">\n";
}

// Of the screen only the part with the keyboard is shown.
constexpr const char* head = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<meta name="color-scheme" content="light dark">
<title>Huecraft: themes</title>
<style>
body { font: 16px/1.4 system-ui, sans-serif; margin: 2rem auto; max-width: 110rem; padding: 0 1.5rem; }
main { display: grid; gap: 2rem 1.5rem; grid-template-columns: repeat(auto-fill, minmax(18rem, 1fr)); }
figure { margin: 0; }
img { border-radius: .6rem; box-shadow: 0 1px 6px #0004; display: block; margin-bottom: .6rem; width: 100%; }
img.keyboard { aspect-ratio: 375 / 304; object-fit: cover; object-position: bottom; }
small { opacity: .7; overflow-wrap: anywhere; }
</style>
)";

}  // namespace

std::string gallery_head(size_t themes) {
    return head + ("<h1>" + counted(themes, "theme") + "</h1>\n<main>\n");
}

std::string gallery_piece(const GalleryEntry& entry) {
    const std::string name = one_line(entry.name);
    return "<figure>\n" + image(entry.preview, "preview", name) + image(entry.keyboard, "keyboard", name) +
           "<figcaption><b>" + escaped(name) + "</b><br><small>" + escaped(one_line(entry.file, 4096)) +
           (entry.difference.empty() ? "" : "<br>" + escaped(entry.difference)) +
           "</small></figcaption>\n</figure>\n";
}

std::string gallery_end() { return "</main>\n"; }

}  // namespace command
