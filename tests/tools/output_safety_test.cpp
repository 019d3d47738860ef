// No command replaces what it reads, or a file of another kind, unless it is forced.
#include <nlohmann/json.hpp>

#include "command_run.h"

namespace test {
namespace {

class OutputSafety : public Command {
  protected:
    /// Refused in one line, with the file as it was; done with --force.
    void expect_kept(std::vector<std::string> arguments, const std::string& output,
                     const std::string& why) const {
        const std::string before = read(output);
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 2) << run.out;
        EXPECT_EQ(run.err, "huecraft: " + output + ": " + why + "; --force replaces it\n");
        EXPECT_EQ(read(output), before);
        arguments.push_back("--force");
        const Outcome forced = this->run(arguments);
        EXPECT_EQ(forced.status, 0) << forced.err;
        EXPECT_NE(read(output), before);
        write(output, before);
    }
};

constexpr const char* is_read = "it is read as well, and would be replaced";

TEST_F(OutputSafety, AThemeIsNotReplacedByItsPicture) {
    write("d.plist", sound_theme());
    expect_kept({"keyboard", "d.plist", "-o", "d.plist"}, "d.plist", is_read);
    expect_kept({"preview", "d.plist", "-o", "d.plist"}, "d.plist", is_read);
    expect_kept({"convert", "d.plist", "-o", "d.plist", "--to", "binary"}, "d.plist", is_read);
    expect_kept({"gallery", "d.plist", "-o", "d.plist"}, "d.plist", is_read);
}

TEST_F(OutputSafety, ALinkToTheInputIsTheInput) {
    write("d.plist", sound_theme());
    std::filesystem::create_hard_link(path("d.plist"), path("same.plist"));
    const Outcome run = this->run({"convert", "d.plist", "-o", "same.plist", "--to", "binary"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(read("d.plist"), sound_theme());
}

TEST_F(OutputSafety, AForgottenOutputDoesNotCostTheFirstTheme) {
    write("a.plist", sound_theme());
    write("b.plist", sound_theme());
    expect_kept({"gallery", "-o", "a.plist", "b.plist"}, "a.plist", "it exists and is not a page of HTML");
    expect_kept({"keyboard", "b.plist", "-o", "a.plist"}, "a.plist", "it exists and is not a PNG picture");
}

TEST_F(OutputSafety, APictureIsNotReplacedByAPropertyList) {
    write("d.plist", sound_theme());
    ASSERT_EQ(run({"keyboard", "d.plist", "-o", "k.png"}).status, 0);
    expect_kept({"convert", "d.plist", "-o", "k.png", "--to", "xml"}, "k.png",
                "it exists and is not a property list");
}

TEST_F(OutputSafety, WhatWasMadeBeforeIsMadeAgain) {
    write("d.plist", sound_theme());
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(run({"keyboard", "d.plist", "-o", "k.png"}).status, 0);
        EXPECT_EQ(run({"gallery", "d.plist", "-o", "g.html"}).status, 0);
        EXPECT_EQ(run({"convert", "d.plist", "-o", "b.plist", "--to", "binary"}).status, 0);
    }
}

TEST_F(OutputSafety, APictureOfThePickerDoesNotReplaceATheme) {
    write("folder/mine.png", sound_theme());
    const Outcome run = this->run({"picker", "-o", "folder", "--script", "-"}, "wait 1\npicture mine\n");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: folder/mine.png: it exists and is not a PNG picture; --force replaces it\n");
    EXPECT_EQ(read("folder/mine.png"), sound_theme());
}

}  // namespace
}  // namespace test
