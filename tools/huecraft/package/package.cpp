// Opens packages: an ar archive of two compressed tar archives. Installers refuse what is damaged, so every
// header is checked field by field, and what is compressed is read to its end and held against its checksum.
#include "package/package.h"

#include <archive.h>
#include <archive_entry.h>
#include <zlib.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>
#include <string_view>

#include "cli/files.h"
#include "cli/terminal.h"
#include "package/theme_package.h"

namespace command {
namespace {

// What one package unpacks to, and of that its description and scripts, which are read line by line.
constexpr size_t largest_unpacked = largest_input;
constexpr size_t largest_control = 1 << 20;
constexpr size_t most_entries = 1000;

[[noreturn]] void damaged(const std::string& file, const std::string& how) {
    throw Unusable(file, "it is a damaged package: " + how);
}

[[noreturn]] void too_large(const std::string& file, const std::string& part, size_t most) {
    throw Unusable(file, part + " unpacks to more than " + std::to_string(most >> 20) +
                             " MB, which no package of this library does");
}

// --- The outer archive ---

struct Member {
    std::string name, contents;
};

/// A field of a header: its text without the blanks behind it.
std::string field_of(std::string_view header, size_t at, size_t length) {
    std::string_view field = header.substr(at, length);
    field.remove_suffix(field.size() - (field.find_last_not_of(' ') + 1));
    return std::string(field);
}

/// The members of an ar archive, each whole. `end` is where the last of them ends.
std::vector<Member> members_of(std::string_view bytes, const std::string& file, size_t& end) {
    constexpr size_t header_size = 60;
    struct Field {
        const char* name;
        size_t at, length;
        const char* digits;
    };
    constexpr Field numbers[] = {{"date", 16, 12, "0123456789"},
                                 {"owner", 28, 6, "0123456789"},
                                 {"group", 34, 6, "0123456789"},
                                 {"mode", 40, 8, "01234567"},
                                 {"size", 48, 10, "0123456789"}};
    std::vector<Member> members;
    for (end = sizeof "!<arch>"; bytes.size() - end >= header_size;) {
        const std::string_view header = bytes.substr(end, header_size);
        if (header.substr(58) != "`\n") {
            // What follows the last member is the caller's to judge; within, it is damage.
            if (members.size() >= 3) break;
            damaged(file, "found no header of a member at byte " + std::to_string(end));
        }
        std::string name = field_of(header, 0, 16);
        if (name.ends_with('/')) name.pop_back();
        for (const Field& field : numbers) {
            const std::string text = field_of(header, field.at, field.length);
            if (text.empty() || text.find_first_not_of(field.digits) != text.npos)
                damaged(file, std::string("the ") + field.name + " of its part " + in_quotes(name) + " is " +
                                  in_quotes(text) + ", expected digits");
        }
        const size_t size = std::stoull(field_of(header, 48, 10)), begin = end + header_size;
        if (size > bytes.size() - begin)
            damaged(file, "its part " + in_quotes(name) + " has " + counted(bytes.size() - begin, "byte") +
                              ", expected " + std::to_string(size));
        if (size % 2 && begin + size < bytes.size() && bytes[begin + size] != '\n')
            damaged(file, "found no end of a line behind its part " + in_quotes(name));
        members.push_back({name, std::string(bytes.substr(begin, size))});
        end = std::min(begin + size + size % 2, bytes.size());
    }
    return members;
}

/// What a member in gzip's form unpacks to. Its checksum and length are compared, and nothing may follow.
std::string inflated(const Member& member, const std::string& file, size_t most) {
    z_stream stream{};
    constexpr int gzip_only = 15 + 16;
    if (inflateInit2(&stream, gzip_only) != Z_OK) throw std::bad_alloc();
    const std::unique_ptr<z_stream, int (*)(z_stream*)> ending(&stream, inflateEnd);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(member.contents.data()));
    stream.avail_in = static_cast<uInt>(member.contents.size());
    std::string contents;
    for (int result = Z_OK; result != Z_STREAM_END;) {
        char bytes[65536];
        stream.next_out = reinterpret_cast<Bytef*>(bytes);
        stream.avail_out = sizeof bytes;
        result = inflate(&stream, Z_NO_FLUSH);
        contents.append(bytes, sizeof bytes - stream.avail_out);
        if (contents.size() > most) too_large(file, member.name, most);
        if (result != Z_OK && result != Z_STREAM_END)
            damaged(file, member.name + ": " +
                              (stream.msg ? one_line(stream.msg, 200) : "it ends before its checksum"));
    }
    if (stream.avail_in)
        damaged(file, member.name + ": found " + counted(stream.avail_in, "byte") + " behind its checksum");
    return contents;
}

/// Reads archives that are in memory. All that one package unpacks to is bounded.
class Unpacking {
  public:
    explicit Unpacking(std::string file) : file_(std::move(file)) {}

    using Visit = std::function<void(archive_entry*, std::string contents)>;

    void each(const std::string& bytes, const Visit& visit) {
        const std::unique_ptr<archive, int (*)(archive*)> reader(archive_read_new(), archive_read_free);
        require(archive_read_support_format_tar(reader.get()), reader.get());
        require(archive_read_open_memory(reader.get(), bytes.data(), bytes.size()), reader.get());
        for (archive_entry* entry;;) {
            const int result = archive_read_next_header(reader.get(), &entry);
            if (result == ARCHIVE_EOF) return;
            require(result, reader.get());
            if (++entries_ > most_entries)
                throw Unusable(file_, "it has more than " + std::to_string(most_entries) +
                                          " entries, which no package of this library has");
            visit(entry, contents_of(reader.get()));
        }
    }

  private:
    std::string contents_of(archive* reader) {
        std::string contents;
        for (;;) {
            char bytes[65536];
            const la_ssize_t count = archive_read_data(reader, bytes, sizeof bytes);
            if (count < 0) require(static_cast<int>(count), reader);
            if (count <= 0) return contents;
            unpacked_ += static_cast<size_t>(count);
            if (unpacked_ > largest_unpacked) too_large(file_, "it", largest_unpacked);
            contents.append(bytes, static_cast<size_t>(count));
        }
    }

    void require(int result, archive* reader) const {
        if (result >= ARCHIVE_WARN) return;
        const char* said = archive_error_string(reader);
        damaged(file_, one_line(said ? said : "unknown", 200));
    }

    std::string file_;
    size_t unpacked_ = 0, entries_ = 0;
};

/// Whoever lays a package out below a folder relies on it that nothing leads out of there.
std::string path_of(archive_entry* entry, const std::string& file) {
    const char* name = archive_entry_pathname(entry);
    std::string path = name ? name : "";
    if (path.starts_with("./")) path.erase(0, 1);
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    path = path.starts_with('/') ? path : "/" + (path == "." ? "" : path);
    for (size_t begin = 1; begin < path.size();) {
        const size_t end = std::min(path.find('/', begin), path.size());
        const std::string_view part(path.data() + begin, end - begin);
        if (part.empty() || part == "." || part == "..")
            damaged(file, "found the path " + in_quotes(name) + ", expected one of names alone");
        begin = end + 1;
    }
    return path;
}

PackagedFile::Kind kind_of(archive_entry* entry) {
    if (archive_entry_hardlink(entry)) return PackagedFile::Kind::other;
    switch (archive_entry_filetype(entry)) {
        case AE_IFREG: return PackagedFile::Kind::file;
        case AE_IFDIR: return PackagedFile::Kind::folder;
        default: return PackagedFile::Kind::other;
    }
}

std::vector<PackagedFile> files_in(Unpacking& unpacking, const std::string& bytes, const std::string& file) {
    std::vector<PackagedFile> files;
    unpacking.each(bytes, [&](archive_entry* entry, std::string contents) {
        files.push_back({.path = path_of(entry, file),
                         .kind = kind_of(entry),
                         .mode = static_cast<unsigned>(archive_entry_perm(entry)),
                         .of_root = archive_entry_uid(entry) == 0 && archive_entry_gid(entry) == 0,
                         .contents = std::move(contents)});
    });
    return files;
}

/// Of many the first ones, each at a length that a line can hold.
std::string listed(const std::vector<std::string>& names) {
    constexpr size_t most = 3, longest = 70;
    std::string all;
    for (size_t i = 0; i < names.size() && i < most; ++i)
        all += (all.empty() ? "" : ", ") + one_line(names[i], longest);
    if (names.size() > most) all += " and " + std::to_string(names.size() - most) + " more";
    return all.empty() ? "nothing" : all;
}

bool is_dylib(const PackagedFile& file) {
    return file.kind == PackagedFile::Kind::file && file.path.ends_with(".dylib");
}

}  // namespace

const PackagedFile* Package::installed(const std::string& path) const {
    const auto found = std::ranges::find(data, path, &PackagedFile::path);
    return found == data.end() ? nullptr : &*found;
}

bool Package::says_it_is(const std::string& name) const {
    const auto file = std::ranges::find(control, "/control", &PackagedFile::path);
    return file != control.end() &&
           ("\n" + file->contents).find("\nPackage: " + name + "\n") != std::string::npos;
}

bool Package::is_of_describe() const { return says_it_is("com.quillmoth.huecraftios12.describe"); }
bool Package::is_of_settings() const {
    return says_it_is("com.quillmoth.huecraftios12.settings") ||
           says_it_is("com.quillmoth.huecraftios12.settings.a12");
}
bool Package::is_for_a12() const {
    return says_it_is("com.quillmoth.huecraftios12.a12") ||
           says_it_is("com.quillmoth.huecraftios12.settings.a12");
}
bool Package::is_of_themes() const { return installed(packaged_themes); }

const PackagedFile& Package::image() const {
    if (is_of_describe()) return *installed(describe_path);
    return is_of_settings() ? *installed(settings_path) : *std::ranges::find_if(data, is_dylib);
}

Package open_package(const std::string& bytes, const std::string& file) {
    if (!bytes.starts_with("!<arch>\n"))
        throw Unusable(file, "it is not a package: found " +
                                 (bytes.empty() ? "an empty file" : in_quotes(bytes.substr(0, 8))) +
                                 ", expected \"!<arch>\" at its beginning");
    Package package;
    package.size = bytes.size();
    Unpacking unpacking(file);
    std::string control, data;
    size_t end = 0;
    for (Member& member : members_of(bytes, file, end)) {
        package.members.push_back(member.name);
        if (member.name == "debian-binary")
            package.format = std::move(member.contents);
        else if (member.name == "control.tar.gz")
            control = inflated(member, file, largest_control);
        else if (member.name == "data.tar.gz")
            data = inflated(member, file, largest_unpacked);
    }
    package.trailing = bytes.size() - end;
    for (const auto& [part, name] : {std::pair{&control, "control.tar.gz"}, {&data, "data.tar.gz"}})
        if (part->empty())
            throw Unusable(file, std::string("it is not a whole package: expected ") + name +
                                     ", found only " + listed(package.members));
    package.control = files_in(unpacking, control, file);
    package.data = files_in(unpacking, data, file);

    if (package.is_of_describe() || package.is_of_settings()) {
        const char* path = package.is_of_describe() ? describe_path : settings_path;
        const PackagedFile* image = package.installed(path);
        if (!image || image->kind != PackagedFile::Kind::file)
            throw Unusable(file, std::string("it has no ") + path + " inside");
        return package;
    }
    if (package.is_of_themes()) return package;
    std::vector<std::string> dylibs;
    for (const PackagedFile& one : package.data)
        if (is_dylib(one)) dylibs.push_back(one.path);
    if (dylibs.empty()) throw Unusable(file, "it has no dylib inside");
    if (dylibs.size() > 1)
        throw Unusable(file, "it has " + std::to_string(dylibs.size()) +
                                 " dylibs inside, expected one: " + listed(dylibs));
    return package;
}

}  // namespace command
