#include "folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace test {

namespace fs = std::filesystem;

Snapshot snapshot_of(const fs::path& folder) {
    Snapshot found;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        std::string& content = found[entry.path().lexically_relative(folder)];
        if (entry.is_symlink())
            content = "link to " + fs::read_symlink(entry.path()).string();
        else if (entry.is_regular_file())
            content = contents_of(entry.path());
        else
            content = entry.is_directory() ? "folder" : "no file";
    }
    return found;
}

Folder::Folder() {
    auto pattern = (fs::temp_directory_path() / "huecraft-faults-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
}

void Folder::write(std::string_view name, std::string_view contents) const {
    fs::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << contents;
}

void Folder::clear() const {
    for (const auto& entry : fs::directory_iterator(path_)) fs::remove_all(entry);
}

void expect_old_or_new(const Snapshot& found, const Snapshot& before, const Snapshot& after,
                       std::string_view draft) {
    const auto is_in = [](const Snapshot& all, const auto& entry) {
        const auto same = all.find(entry.first);
        return same != all.end() && same->second == entry.second;
    };
    for (const auto& entry : found) {
        const bool is_draft = !draft.empty() && entry.first.find(draft) != entry.first.npos;
        EXPECT_TRUE(is_in(before, entry) || is_in(after, entry) || is_draft)
            << entry.first << " has " << entry.second.size() << " bytes: " << entry.second.substr(0, 200);
    }
    for (const auto& [path, content] : before)
        EXPECT_TRUE(found.contains(path) || !after.contains(path)) << path << " is gone";
}

}  // namespace test
