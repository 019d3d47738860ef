// A folder of a test's own, and what lies in folders.
#pragma once
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "support/contents.h"

namespace test {

/// All that lies under a folder, by its path from there: the contents of files, "folder", "link to …".
using Snapshot = std::map<std::string, std::string>;
Snapshot snapshot_of(const std::filesystem::path& folder);

/// Gone with all that is in it afterwards.
class Folder {
  public:
    Folder();
    Folder(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path_); }

    const std::filesystem::path& path() const { return path_; }
    std::string read(std::string_view name) const { return contents_of(path_ / name); }
    void write(std::string_view name, std::string_view contents) const;
    void clear() const;

  private:
    std::filesystem::path path_;
};

/// Each file is as it was before or as it is after the work was done, and there is no other: nothing is there
/// by half. A process that was killed may leave files whose names contain `draft`.
void expect_old_or_new(const Snapshot& found, const Snapshot& before, const Snapshot& after,
                       std::string_view draft = {});

}  // namespace test
