// The page of pictures that are not as expected.
#include "failed_pictures.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/contents.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class FailedPictures : public testing::Test {
  protected:
    FailedPictures() {
        std::string name = fs::temp_directory_path() / "failed-pictures-XXXXXX";
        folder = mkdtemp(name.data());
    }
    ~FailedPictures() override { fs::remove_all(folder); }

    static void make(const fs::path& file) { std::ofstream(file) << "picture"; }
    std::string page() const { return contents_of(folder / "index.html"); }
    fs::path folder;
};

TEST_F(FailedPictures, ThePageShowsExpectedActualAndDifferenceOfEach) {
    for (const char* name : {"elf-one", "macho-two"}) {
        const FailedPicture picture(folder, name);
        make(picture.actual());
        make(picture.expected());
        make(picture.differences());
        picture.write_page();
    }
    for (const char* link :
         {"src=\"elf-one-expected.png\"", "src=\"elf-one.png\"", "src=\"elf-one-difference.png\"",
          "src=\"macho-two-expected.png\"", "src=\"macho-two.png\"", "src=\"macho-two-difference.png\""})
        EXPECT_NE(page().find(link), std::string::npos) << link;
}

TEST_F(FailedPictures, WhatDoesNotExistIsSaidToBeMissing) {
    const FailedPicture picture(folder, "new");
    make(picture.actual());
    picture.write_page();
    EXPECT_NE(page().find("expected: there is none"), std::string::npos);
    EXPECT_EQ(page().find("new-expected.png"), std::string::npos);
}

TEST_F(FailedPictures, APictureThatIsFineAgainLeavesThePage) {
    const FailedPicture one(folder, "one"), two(folder, "two");
    make(one.actual());
    make(two.actual());
    two.write_page();
    one.remove();
    EXPECT_EQ(page().find("one.png"), std::string::npos);
    EXPECT_NE(page().find("two.png"), std::string::npos);
    two.remove();
    EXPECT_FALSE(fs::exists(one.page())) << "nothing is left to show";
}

}  // namespace
}  // namespace test
