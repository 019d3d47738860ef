// The folder of the pictures that are not as expected, with a page that shows them.
#pragma once
#include <filesystem>
#include <string>

namespace test {

/// One picture's files there.
class FailedPicture {
  public:
    FailedPicture(std::filesystem::path folder, std::string name);

    std::filesystem::path actual() const { return file(""); }
    std::filesystem::path expected() const { return file("-expected"); }
    std::filesystem::path differences() const { return file("-difference"); }
    std::filesystem::path page() const { return folder_ / "index.html"; }

    /// Takes away what an earlier run has left, the line on the page included.
    void remove() const;

    /// Writes the page again: expected, actual and difference of every picture in the folder, side by side.
    /// Tests that fail at the same time wait for each other.
    void write_page() const;

  private:
    std::filesystem::path file(const char* kind) const { return folder_ / (name_ + kind + ".png"); }

    std::filesystem::path folder_;
    std::string name_;
};

}  // namespace test
