// Opens packages: an ar archive of two compressed tar archives.
#include "package/package.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <memory>

#include "cli/files.h"
#include "cli/terminal.h"

namespace command {
namespace {

/// Reads archives that are in memory. All that one package unpacks to is bounded by the largest input.
class Unpacking {
  public:
    explicit Unpacking(std::string file) : file_(std::move(file)) {}

    using Support = int (*)(archive*);
    using Visit = std::function<void(archive_entry*, std::string contents)>;

    void each(const std::string& bytes, std::initializer_list<Support> supported, const Visit& visit) {
        const std::unique_ptr<archive, int (*)(archive*)> reader(archive_read_new(), archive_read_free);
        for (const Support support : supported) require(support(reader.get()), reader.get());
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
            if (unpacked_ > largest_unpacked)
                throw Unusable(file_, "it unpacks to more than " + std::to_string(largest_unpacked >> 20) +
                                          " MB, which no package of this library does");
            contents.append(bytes, static_cast<size_t>(count));
        }
    }

    void require(int result, archive* reader) const {
        if (result >= ARCHIVE_WARN) return;
        const char* said = archive_error_string(reader);
        throw Unusable(file_, "it is a damaged package: " + one_line(said ? said : "unknown", 200));
    }

    // The package itself counts, then what its two archives hold.
    static constexpr size_t largest_unpacked = 2 * largest_input;
    static constexpr size_t most_entries = 1000;

    std::string file_;
    size_t unpacked_ = 0, entries_ = 0;
};

std::string path_of(archive_entry* entry) {
    const char* name = archive_entry_pathname(entry);
    std::string path = name ? name : "";
    if (path.starts_with("./")) path.erase(0, 1);
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path.starts_with('/') ? path : "/" + (path == "." ? "" : path);
}

PackagedFile::Kind kind_of(archive_entry* entry) {
    if (archive_entry_hardlink(entry)) return PackagedFile::Kind::other;
    switch (archive_entry_filetype(entry)) {
        case AE_IFREG: return PackagedFile::Kind::file;
        case AE_IFDIR: return PackagedFile::Kind::folder;
        default: return PackagedFile::Kind::other;
    }
}

std::vector<PackagedFile> files_in(Unpacking& unpacking, const std::string& bytes) {
    std::vector<PackagedFile> files;
    unpacking.each(
        bytes, {archive_read_support_filter_gzip, archive_read_support_format_tar},
        [&](archive_entry* entry, std::string contents) {
            files.push_back({.path = path_of(entry),
                             .kind = kind_of(entry),
                             .mode = static_cast<unsigned>(archive_entry_perm(entry)),
                             .of_root = archive_entry_uid(entry) == 0 && archive_entry_gid(entry) == 0,
                             .contents = std::move(contents)});
        });
    return files;
}

std::string listed(const std::vector<std::string>& names) {
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : ", ") + one_line(name);
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

bool Package::is_of_describe() const {
    const auto file = std::ranges::find(control, "/control", &PackagedFile::path);
    return file != control.end() &&
           ("\n" + file->contents).find("\nPackage: com.quillmoth.huecraftios12.describe\n") !=
               std::string::npos;
}

const PackagedFile& Package::image() const {
    return is_of_describe() ? *installed(describe_path) : *std::ranges::find_if(data, is_dylib);
}

Package open_package(const std::string& bytes, const std::string& file) {
    if (!bytes.starts_with("!<arch>\n"))
        throw Unusable(file, "it is no package: found " +
                                 (bytes.empty() ? "an empty file" : in_quotes(bytes.substr(0, 8))) +
                                 ", expected \"!<arch>\" at its beginning");
    Package package;
    package.size = bytes.size();
    Unpacking unpacking(file);
    std::string control, data;
    size_t end = sizeof "!<arch>";
    unpacking.each(bytes, {archive_read_support_format_ar}, [&](archive_entry* entry, std::string contents) {
        const char* name = archive_entry_pathname(entry);
        package.members.emplace_back(name ? name : "");
        constexpr size_t header = 60;
        end += header + contents.size() + contents.size() % 2;
        if (package.members.back() == "debian-binary")
            package.format = std::move(contents);
        else if (package.members.back() == "control.tar.gz")
            control = std::move(contents);
        else if (package.members.back() == "data.tar.gz")
            data = std::move(contents);
    });
    package.trailing = bytes.size() - std::min(end, bytes.size());
    for (const auto& [part, name] : {std::pair{&control, "control.tar.gz"}, {&data, "data.tar.gz"}})
        if (part->empty())
            throw Unusable(file, std::string("it is no whole package: expected ") + name + ", found only " +
                                     listed(package.members));
    package.control = files_in(unpacking, control);
    package.data = files_in(unpacking, data);

    if (package.is_of_describe()) {
        const PackagedFile* executable = package.installed(describe_path);
        if (!executable || executable->kind != PackagedFile::Kind::file)
            throw Unusable(file, std::string("it has no ") + describe_path + " inside");
        return package;
    }
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
