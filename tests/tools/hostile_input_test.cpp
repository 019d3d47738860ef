// Property lists that were made to harm: one line each, soon, and the others of the run are done.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <nlohmann/json.hpp>

#include "command_run.h"
#include "photos/photo_samples.h"
#include "support/base64.h"

namespace test {
namespace {

std::string from_hex(std::string_view digits) {
    std::string bytes;
    for (size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(std::string(digits.substr(i, 2)), nullptr, 16));
    return bytes;
}

struct Hostile {
    const char* name;
    const char* hex;
    const char* found;
};

const Hostile refused[] = {
    {"HalfACharacter",
     "62706c6973743030d101025c5f436f6e6669674e616d6561d800000000080000000b00000017000000000000040100000000000"
     "00003"
     "0000000000000000000000000000001a",
     "a string has half of a character"},
    {"ADateThatIsNoNumber",
     "62706c6973743030d10102575f436f6c6f7273337ff8000000000000000000080000000b0000001300000000000004010000000"
     "0000000"
     "03000000000000000000000000000000"
     "1c",
     "a date is not a moment in time"},
    {"AnInfiniteDate",
     "62706c6973743030d2010203045c5f436f6e6669674e616d655b5f496d616765416c706861514e337ff00000000000000000000"
     "8000000"
     "0d0000001900000025000000270000000000000401000000000000000500000000000000000000000000000030",
     "a date is not a moment in time"},
    {"ExponentialSharing",
     "62706c6973743030d10102575f436f6c6f7273a20303a20404a20505a20606a20707a20808a20909a20a0aa20b0ba20c0ca20d0"
     "da20e0e"
     "a20f0fa21010a21111a21212a21313a21414a21515a21616a21717a21818a21919a21a1aa21b1ba21c1ca21d1da21e1ea21f1fa"
     "22020"
     "a22121a22222a22323a22424a22525a22626a22727a22828a22929a22a2a5178000000080000000b00000013000000160000001"
     "90000"
     "001c0000001f0000002200000025000000280000002b0000002e0000003100000034000000370000003a0000003d00000040000"
     "00043"
     "00000046000000490000004c0000004f0000005200000055000000580000005b0000005e0000006100000064000000670000006"
     "a0000"
     "006d000000700000007300000076000000790000007c0000007f0000008200000085000000880000008b0000000000000401000"
     "000000000"
     "002b0000000000000000000000000000008d",
     "000 values, or unfolds to as many; expected a dozen"},
};

class HostileInput : public Command {
  protected:
    /// One line that names the file and what was found, soon and in little memory.
    void expect_refused(const std::vector<std::string>& arguments, const std::string& found) const {
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 2) << arguments[0];
        EXPECT_EQ(lines(run.err), 1u) << run.err;
        EXPECT_TRUE(run.err.starts_with("huecraft: bad.plist: ")) << run.err;
        EXPECT_NE(run.err.find(found), run.err.npos) << run.err;
        EXPECT_LT(run.processor_seconds, 5);
        EXPECT_LT(run.peak_kilobytes, 500 << 10);
    }
};

class RefusedByEveryCommand : public HostileInput, public testing::WithParamInterface<Hostile> {};

TEST_P(RefusedByEveryCommand, InOneLine) {
    write("bad.plist", from_hex(GetParam().hex));
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"show", "bad.plist"},
                                               {"lint", "bad.plist"},
                                               {"convert", "bad.plist", "-o", "out", "--to", "xml"},
                                               {"convert", "bad.plist", "-o", "out", "--to", "openstep"},
                                               {"keyboard", "bad.plist", "-o", "k.png"},
                                               {"preview", "bad.plist", "-o", "p.png"},
                                               {"gallery", "bad.plist", "-o", "g.html"},
                                               {"picker", "--theme", "bad.plist"}})
        expect_refused(arguments, GetParam().found);
    EXPECT_FALSE(exists("out"));
}

INSTANTIATE_TEST_SUITE_P(Lists, RefusedByEveryCommand, testing::ValuesIn(refused),
                         [](const auto& list) { return std::string(list.param.name); });

TEST_F(HostileInput, TheOthersOfARunAreDone) {
    write("bad.plist", from_hex(refused[0].hex));
    write("worse.plist", from_hex(refused[3].hex));
    write("sound.plist", sound_theme());
    const Outcome run = this->run({"lint", "bad.plist", "worse.plist", "sound.plist"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(lines(run.err), 2u) << run.err;
    EXPECT_NE(run.out.find("sound.plist: fine"), run.out.npos) << run.out;
}

TEST_F(HostileInput, JsonSaysWhatWasFoundToo) {
    write("bad.plist", from_hex(refused[0].hex));
    for (const std::vector<std::string>& arguments :
         std::vector<std::vector<std::string>>{{"show", "--json", "bad.plist"},
                                               {"convert", "--json", "bad.plist", "-o", "out", "--to", "xml"},
                                               {"keyboard", "--json", "bad.plist", "-o", "k.png"},
                                               {"gallery", "--json", "bad.plist", "-o", "g.html"}}) {
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 2);
        const auto errors = nlohmann::json::parse(run.out).at("errors");
        ASSERT_EQ(errors.size(), 1u) << run.out;
        EXPECT_EQ(errors[0].at("file"), "bad.plist");
        EXPECT_NE(errors[0].at("found").get<std::string>().find("half of a character"), std::string::npos);
    }
}

TEST_F(HostileInput, ThePickerReadsRecentColoursThatAreNoList) {
    write("bad.plist", from_hex(refused[0].hex));
    const Outcome run = this->run({"picker", "--recent", "bad.plist"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("recent colours: no property list"), run.out.npos) << run.out;
    write("bad.plist", from_hex(refused[3].hex));
    expect_refused({"picker", "--recent", "bad.plist"}, "unfolds to as many");
}

TEST_F(HostileInput, TwoHundredThousandKeysAreRefusedUnread) {
    std::string entries;
    for (int i = 0; i < 200'000; ++i) entries += "<key>k" + std::to_string(i) + "</key><true/>";
    write("bad.plist", theme_file(entries));
    expect_refused({"lint", "bad.plist"}, "it holds more than 100000 values");
}

TEST_F(HostileInput, APictureOfAHundredMegapixelsIsRefusedUndecoded) {
    std::string header("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\x27\x10\0\0\x27\x10\x08\2\0\0\0", 29);
    write("bad.plist", theme_file("<key>_ConfigName</key><string>B</string><key>_Image</key><data>" +
                                  in_base64(header) + "</data>"));
    expect_refused({"lint", "bad.plist"}, "_Image: found a picture of 100 megapixels, expected at most 20");
}

TEST_F(HostileInput, ADateOfLongAgoIsShownAtOnce) {
    write("old.plist", theme_file("<key>_ConfigName</key><string>Old</string>"
                                  "<key>_HighlightColor</key><date>-1-01-01T00:00:00Z</date>"));
    const Outcome run = this->run({"show", "old.plist"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_LT(run.processor_seconds, 5);
    EXPECT_NE(run.out.find("-001-01-01 00:00:00 +0000"), run.out.npos) << run.out;
}

TEST_F(HostileInput, TextDirectionOverridesAreEscaped) {
    write("turned.plist", theme_file("<key>_ConfigName</key><string>a\u202egnp.b\u2066c\u200f</string>"));
    const Outcome run = this->run({"show", "turned.plist"});
    EXPECT_NE(run.out.find("a\\u202egnp.b\\u2066c\\u200f"), run.out.npos) << run.out;
    EXPECT_EQ(run.out.find("\u202e"), run.out.npos);
}

TEST_F(HostileInput, AnEmptyTmpdirIsTheUsualFolder) {
    write("sound.plist", sound_theme());
    setenv("TMPDIR", "", 1);
    const Outcome run = this->run({"show", "sound.plist"});
    unsetenv("TMPDIR");
    EXPECT_EQ(run.status, 0) << run.err;
}

TEST_F(HostileInput, AMissingTmpdirIsNamed) {
    write("sound.plist", sound_theme());
    setenv("TMPDIR", "/nowhere/at/all", 1);
    const Outcome run = this->run({"show", "sound.plist"});
    unsetenv("TMPDIR");
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: /nowhere/at/all: no temporary files can be made there: No such file or directory; "
              "TMPDIR names another folder\n");
}

TEST_F(HostileInput, AnInterruptEndsAGalleryAndClearsItsFolder) {
    write("sound.plist", sound_theme());
    std::filesystem::create_directory(path("temporary"));
    std::vector<std::string> all{HUECRAFT_COMMAND, "gallery", "-o", path("g.html")};
    all.insert(all.end(), 4000, path("sound.plist"));
    const pid_t child = fork();
    if (child == 0) {
        std::vector<char*> vector;
        for (std::string& one : all) vector.push_back(one.data());
        vector.push_back(nullptr);
        setenv("TMPDIR", path("temporary").c_str(), 1);
        execv(HUECRAFT_COMMAND, vector.data());
        _exit(127);
    }
    // When it has its folder, it is at work.
    for (int i = 0; i < 200 && std::filesystem::is_empty(path("temporary")); ++i) usleep(50'000);
    usleep(300'000);
    ASSERT_EQ(kill(child, SIGINT), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_TRUE(std::filesystem::is_empty(path("temporary")));
    EXPECT_FALSE(exists("g.html"));
}

}  // namespace
}  // namespace test
