#include "package/theme_package.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

constexpr const char* digits = "0123456789";
constexpr const char* small_letters = "abcdefghijklmnopqrstuvwxyz";
constexpr const char* capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

/// Where the themes are in force: the same in both scripts.
std::string head_of_script(const std::string& id) {
    return std::string("#!/bin/sh\nset -e\n") +
           "root=${DPKG_ROOT:-}\n"
           "own=$root" +
           packaged_themes + "/" + id +
           "\n"
           "themes=$root/var/mobile/Library/Preferences/HuecraftConfiguration\n";
}

time_t time_inside() {
    const char* set = std::getenv("SOURCE_DATE_EPOCH");
    if (!set || !*set) return RELEASE_TIME;
    const std::string text = set;
    if (text.size() > 11 || text.find_first_not_of(digits) != text.npos)
        throw Unusable("SOURCE_DATE_EPOCH", "found " + in_quotes(text) + ", expected seconds");
    return std::stoll(text);
}

/// A compressed archive of files that belong to root.
class Archive {
  public:
    Archive() : writer_(archive_write_new(), archive_write_free) {
        require(archive_write_add_filter_gzip(writer_.get()));
        require(archive_write_set_format_gnutar(writer_.get()));
        require(archive_write_set_options(writer_.get(), "gzip:!timestamp,gzip:compression-level=9"));
        require(archive_write_set_bytes_in_last_block(writer_.get(), 1));
        require(archive_write_open(writer_.get(), &bytes_, nullptr, take, nullptr));
    }

    void add_folder(const std::string& path) { add("." + path + "/", AE_IFDIR, 0755, ""); }
    void add_file(const std::string& path, unsigned mode, const std::string& contents) {
        add("." + path, AE_IFREG, mode, contents);
    }
    std::string finished() {
        require(archive_write_close(writer_.get()));
        return std::move(bytes_);
    }

  private:
    static la_ssize_t take(archive*, void* bytes, const void* more, size_t count) {
        static_cast<std::string*>(bytes)->append(static_cast<const char*>(more), count);
        return static_cast<la_ssize_t>(count);
    }

    void require(int result) const {
        if (result >= ARCHIVE_WARN) return;
        throw Unusable("the package",
                       std::string("cannot be packed: ") + archive_error_string(writer_.get()));
    }

    void add(const std::string& path, unsigned kind, unsigned mode, const std::string& contents) {
        const std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry(archive_entry_new(),
                                                                             archive_entry_free);
        archive_entry_set_pathname(entry.get(), path.c_str());
        archive_entry_set_filetype(entry.get(), kind);
        archive_entry_set_perm(entry.get(), static_cast<mode_t>(mode));
        archive_entry_set_uname(entry.get(), "root");
        archive_entry_set_gname(entry.get(), "root");
        archive_entry_set_mtime(entry.get(), time_inside(), 0);
        archive_entry_set_size(entry.get(), static_cast<la_int64_t>(contents.size()));
        require(archive_write_header(writer_.get(), entry.get()));
        if (archive_write_data(writer_.get(), contents.data(), contents.size()) < 0) require(ARCHIVE_FATAL);
    }

    std::string bytes_;
    std::unique_ptr<archive, int (*)(archive*)> writer_;
};

/// A member of the outer archive.
std::string member(const std::string& name, const std::string& contents) {
    char header[61];
    std::snprintf(header, sizeof header, "%-16s%-12lld%-6d%-6d%-8s%-10zu`\n", name.c_str(),
                  static_cast<long long>(time_inside()), 0, 0, "100644", contents.size());
    return header + contents + (contents.size() % 2 ? "\n" : "");
}

}  // namespace

std::string fault_of_id(const std::string& id) {
    const bool begins_well =
        !id.empty() && (std::string(small_letters) + digits).find(id[0]) != std::string::npos;
    if (id.size() > 1 && id.size() <= 200 && begins_well &&
        id.find_first_not_of(std::string(small_letters) + digits + "+-.") == id.npos)
        return "";
    return "found " + in_quotes(id) +
           ", expected two or more small letters, digits and +-., a letter or a digit first";
}

std::string fault_of_version(const std::string& version) {
    if (!version.empty() && version.size() <= 100 && version[0] >= '0' && version[0] <= '9' &&
        version.back() != '-' &&
        version.find_first_not_of(std::string(small_letters) + capitals + digits + ".+~-") == version.npos)
        return "";
    return "found " + in_quotes(version) + ", expected a digit first, and then letters, digits and .+~-";
}

std::string fault_of_line(const std::string& text) {
    const bool blank = text.find_first_not_of(' ') == text.npos;
    if (!blank && text.front() != ' ' && text.back() != ' ' && text.size() <= 500 &&
        one_line(text, 500) == text)
        return "";
    return "found " + in_quotes(text) + ", expected a line of text";
}

std::string control_of(const ThemePackage& package, size_t kilobytes) {
    return "Package: " + package.id + "\nName: " + package.name + "\nVersion: " + package.version +
           "\nArchitecture: iphoneos-arm\nInstalled-Size: " + std::to_string(kilobytes) +
           "\nSection: Themes\nPriority: optional\nDepends: com.quillmoth.huecraftios12\nMaintainer: " +
           package.maintainer + "\nDescription: " + package.description + "\n";
}

std::string script_after_installing(const std::string& id) {
    return head_of_script(id) +
           R"sh(part=$themes/.huecraft-part
trap 'rm -f "$part"' EXIT
mkdir -p "$themes"
chown 501:501 "$themes"
for theme in "$own"/*.plist; do
    name=${theme##*/}
    if [ -e "$themes/$name" ] || [ -L "$themes/$name" ]; then continue; fi
    cp "$theme" "$part"
    chown 501:501 "$part"
    chmod 644 "$part"
    mv "$part" "$themes/$name"
    printf '%s\n' "$name" >>"$own/placed"
done
)sh";
}

std::string script_before_removing(const std::string& id) {
    return head_of_script(id) +
           R"sh([ -e "$own/placed" ] || exit 0
while IFS= read -r name; do
    if cmp -s "$own/$name" "$themes/$name"; then rm -f "$themes/$name"; fi
done <"$own/placed"
rm -f "$own/placed"
)sh";
}

std::string packed(const ThemePackage& package, const std::vector<ParcelledTheme>& themes) {
    Archive data;
    std::string folder;
    data.add_folder("");
    for (const char* part : {"/Library", "/Huecraft", "/Themes"}) data.add_folder(folder += part);
    folder += "/" + package.id;
    data.add_folder(folder);
    size_t kilobytes = 0;
    for (const ParcelledTheme& theme : themes) {
        data.add_file(folder + "/" + theme.name, 0644, theme.contents);
        kilobytes += (theme.contents.size() + 1023) / 1024;
    }
    Archive control;
    control.add_folder("");
    control.add_file("/control", 0644, control_of(package, kilobytes));
    control.add_file("/postinst", 0755, script_after_installing(package.id));
    control.add_file("/prerm", 0755, script_before_removing(package.id));
    return "!<arch>\n" + member("debian-binary", "2.0\n") + member("control.tar.gz", control.finished()) +
           member("data.tar.gz", data.finished());
}

}  // namespace command
