#include "failed_pictures.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <fstream>
#include <set>
#include <utility>

namespace test {
namespace {

namespace fs = std::filesystem;

/// Held by one process at a time.
class Lock {
  public:
    explicit Lock(const fs::path& file)
        : descriptor_(open(file.c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0644)) {
        flock(descriptor_, LOCK_EX);
    }
    ~Lock() { close(descriptor_); }
    Lock(const Lock&) = delete;

  private:
    int descriptor_;
};

/// The names of the pictures that failed: of those files that are neither expectations nor differences.
std::set<std::string> names_in(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().stem();
        if (entry.path().extension() == ".png" && !name.ends_with("-expected") &&
            !name.ends_with("-difference"))
            names.insert(name);
    }
    return names;
}

constexpr const char* head = R"(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="color-scheme" content="light dark">
<title>Pictures that are not as expected</title>
<style>
body { font: 16px/1.4 system-ui, sans-serif; margin: 2rem; }
.row { display: flex; flex-wrap: wrap; gap: 1rem; }
figure { margin: 0; }
img { border: 1px solid #8888; max-width: 24rem; }
</style>
<h1>Pictures that are not as expected</h1>
)";

}  // namespace

FailedPicture::FailedPicture(fs::path folder, std::string name)
    : folder_(std::move(folder)),
      name_(std::move(name)) {
    fs::create_directories(folder_);
}

void FailedPicture::remove() const {
    if (!fs::exists(actual())) return;
    for (const fs::path& left : {actual(), expected(), differences()}) fs::remove(left);
    write_page();
}

void FailedPicture::write_page() const {
    const Lock lock(folder_ / ".lock");
    const std::set<std::string> names = names_in(folder_);
    if (names.empty()) {
        fs::remove(page());
        return;
    }
    std::ofstream out(page());
    out << head;
    for (const std::string& name : names) {
        out << "<h2>" << name << "</h2>\n<div class=\"row\">\n";
        for (const auto& [kind, caption] :
             {std::pair{"-expected", "expected"}, {"", "actual"}, {"-difference", "difference"}}) {
            const std::string file = name + kind + ".png";
            out << "<figure>";
            if (fs::exists(folder_ / file))
                out << "<a href=\"" << file << "\"><img src=\"" << file << "\" alt=\"" << name << ", "
                    << caption << "\"></a><figcaption>" << caption;
            else
                out << "<figcaption>" << caption << ": there is none";
            out << "</figcaption></figure>\n";
        }
        out << "</div>\n";
    }
}

}  // namespace test
