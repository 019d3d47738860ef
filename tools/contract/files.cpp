// Which file is read or written, and for what, no binary says: that is described here, and its texts prove
// the rest.
#include "files.h"

#include <algorithm>
#include <stdexcept>

namespace contract {
namespace {

const std::string preferences = "/var/mobile/Library/Preferences/";
const std::string bundle = "/Library/PreferenceBundles/Huecraft.bundle/";

const std::vector<File> described{
    {preferences + "com.quillmoth.huecraftios12.plist", "read once per process", {"_Enabled", "_Config"}},
    {preferences + "HuecraftConfiguration/",
     "folder of themes: read and written",
     {"_ConfigName", "_TextColor", "_BackgroundType", "_Colors", "_GradientDirection", "_Image",
      "_ImageAlpha", "_HighlightColor", "_VisibleKeycaps"}},
    {preferences + "com.quillmoth.hcrecentcolors.plist", "read and written", {"Colors"}},
    {"/Library/MobileSubstrate/DynamicLibraries/Eclipse.dylib", "asked for its presence", {}},
    {preferences + "com.hvelden.eclipse.plist", "read", {"enabled", "EnabledApps-com.apple.Preferences"}},
    {bundle + "PreviewKeyboardBackground.png", "read", {}},
    {bundle + "PreviewKeyboardText.png", "read", {}},
    {bundle + "PreviewKeyboardHighlight.png", "read", {}},
    {bundle + "PreviewKeyboardKeyCaps.png", "read", {}},
    {bundle + "copy.png", "read", {}},
    {bundle + "paste.png", "read", {}},
    {"/var/mobile/Library/Caches/com.apple.keyboards", "folder: removed in SpringBoard after its launch", {}},
};

bool is_path(const std::string& text) {
    if (text.starts_with("/var/") || text.starts_with("/Library/")) return true;
    const size_t dot = text.rfind('.');
    if (dot == text.npos || dot == 0) return false;
    const std::string extension = text.substr(dot);
    return extension == ".plist" || extension == ".png" || extension == ".dylib";
}

/// As keys of the library's own files are spelled; the system's private classes begin with "_UI".
bool is_key(const std::string& text) {
    return text.size() > 2 && text[0] == '_' && text[1] >= 'A' && text[1] <= 'Z' && !text.starts_with("_UI");
}

/// Whether the text stands for the path: it, a part of it that begins or ends it, or a path inside a folder.
bool stands_for(const std::string& text, const std::string& path) {
    return path.starts_with(text) || path.ends_with(text) || (path.ends_with('/') && text.starts_with(path));
}

}  // namespace

std::vector<File> files_named_in(const std::set<std::string>& texts) {
    const auto require_described = [](bool found, const std::string& what, const std::string& text) {
        if (!found)
            throw std::runtime_error("the dylib holds the " + what + " \"" + text +
                                     "\", which tools/contract/files.cpp does not describe");
    };
    for (const std::string& text : texts) {
        if (is_path(text))
            require_described(
                std::ranges::any_of(described, [&](const File& file) { return stands_for(text, file.path); }),
                "path", text);
        if (is_key(text))
            require_described(
                std::ranges::any_of(
                    described,
                    [&](const File& file) { return std::ranges::find(file.keys, text) != file.keys.end(); }),
                "key", text);
    }
    std::vector<File> found;
    for (const File& file : described) {
        const bool named = std::ranges::any_of(
            texts, [&](const std::string& text) { return is_path(text) && file.path.ends_with(text); });
        if (!named) continue;
        for (const std::string& key : file.keys)
            if (!texts.contains(key))
                throw std::runtime_error("the dylib does not hold the key \"" + key + "\" of " + file.path +
                                         ", which tools/contract/files.cpp describes");
        found.push_back(file);
    }
    return found;
}

}  // namespace contract
