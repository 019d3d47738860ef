// What the command's pictures say of their origin.
#include <zlib.h>

#include <cstdio>
#include <map>

#include "command_run.h"
#include "gallery/parsed_page.h"
#include "png.h"

namespace test {
namespace {

constexpr const char* own_library = BUILD_FOLDER "/lib/HuecraftiOS12.so";
constexpr const char* shipped_library = BUILD_FOLDER "/device/x86_64/HuecraftiOS12.dylib";

/// As another program computes it.
std::string sha256_of_file(const std::string& path) {
    FILE* pipe = popen(("sha256sum '" + path + "'").c_str(), "r");
    char digits[65] = {};
    EXPECT_EQ(std::fread(digits, 1, 64, pipe), 64u);
    pclose(pipe);
    return digits;
}

struct Chunk {
    std::string name, data;
};

/// The chunks of a PNG file, their checksums verified.
std::vector<Chunk> chunks_of(const std::string& png) {
    const auto number = [&](size_t at) {
        uint32_t value = 0;
        for (size_t i = 0; i < 4; ++i) value = value << 8 | static_cast<unsigned char>(png.at(at + i));
        return value;
    };
    std::vector<Chunk> chunks;
    for (size_t at = 8; at < png.size();) {
        const uint32_t length = number(at);
        const std::string named = png.substr(at + 4, 4 + length);
        EXPECT_EQ(crc32(0, reinterpret_cast<const Bytef*>(named.data()), static_cast<uInt>(named.size())),
                  number(at + 8 + length))
            << named.substr(0, 4);
        chunks.push_back({named.substr(0, 4), named.substr(4)});
        at += 12 + length;
    }
    return chunks;
}

/// The texts of a PNG file by their keywords.
std::map<std::string, std::string> texts_in(const std::string& png) {
    std::map<std::string, std::string> texts;
    for (const auto& [name, data] : chunks_of(png))
        if (name == "tEXt") texts[data.substr(0, data.find('\0'))] = data.substr(data.find('\0') + 1);
    return texts;
}

class Provenance : public Command {
  protected:
    std::map<std::string, std::string> stamps_by(const std::string& library) const {
        return {{"Huecraft-Library-SHA256", sha256_of_file(library)},
                {"Huecraft-Theme-SHA256", sha256_of_file(path("sound.plist"))}};
    }
    void SetUp() override { write("sound.plist", sound_theme()); }
};

TEST_F(Provenance, AKeyboardTellsTheLibraryAndTheThemeThatDrewIt) {
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "k.png"}).status, 0);
    EXPECT_EQ(texts_in(read("k.png")), stamps_by(own_library));
}

TEST_F(Provenance, APreviewDoesToo) {
    ASSERT_EQ(run({"preview", "sound.plist", "-o", "p.png"}).status, 0);
    EXPECT_EQ(texts_in(read("p.png")), stamps_by(own_library));
}

TEST_F(Provenance, TheDylibTellsItsOwnDigest) {
    for (const char* subcommand : {"keyboard", "preview"}) {
        const Outcome run =
            this->run({subcommand, "sound.plist", "-o", "m.png", "--library", shipped_library});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(texts_in(read("m.png")), stamps_by(shipped_library));
        ASSERT_EQ(this->run({subcommand, "sound.plist", "-o", "e.png"}).status, 0);
        EXPECT_EQ(Png(path("m.png")).pixels, Png(path("e.png")).pixels) << "both builds draw the same";
        EXPECT_NE(read("m.png"), read("e.png"));
    }
}

TEST_F(Provenance, APictureOnStandardOutputTellsItToo) {
    EXPECT_EQ(texts_in(run({"keyboard", "-", "-o", "-"}, sound_theme()).out), stamps_by(own_library));
}

TEST_F(Provenance, TheGallerysPageTellsIt) {
    const Outcome run = this->run({"gallery", "sound.plist", "-o", "g.html", "--library", shipped_library});
    ASSERT_EQ(run.status, 0) << run.err;
    const GalleryPage page(read("g.html"));
    const auto stamps = stamps_by(shipped_library);
    EXPECT_EQ(page.found("//meta[@name='huecraft-library-sha256']/@content"),
              std::vector<std::string>{stamps.at("Huecraft-Library-SHA256")});
    EXPECT_EQ(page.themes().at(0).digest, stamps.at("Huecraft-Theme-SHA256"));
}

TEST_F(Provenance, PicturesOfThePickerTellTheLibraryAlone) {
    const Outcome run = this->run({"picker", "--script", "-", "-o", "p", "--library", shipped_library},
                                  "wait 1\npicture still\nrecord moving 4\nwait 0.5\n");
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* picture : {"p/still.png", "p/moving.png"}) {
        const auto texts = texts_in(read(picture));
        EXPECT_EQ(texts.size(), 1u) << picture;
        EXPECT_EQ(texts.at("Huecraft-Library-SHA256"), sha256_of_file(shipped_library)) << picture;
    }
}

TEST_F(Provenance, TheTextsStandBetweenTheHeaderAndThePicture) {
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "k.png"}).status, 0);
    std::vector<std::string> names;
    for (const Chunk& chunk : chunks_of(read("k.png"))) names.push_back(chunk.name);
    ASSERT_GT(names.size(), 5u);
    names.resize(3);
    EXPECT_EQ(names, (std::vector<std::string>{"IHDR", "tEXt", "tEXt"}));
}

TEST_F(Provenance, AnotherThemeOfTheSameLookIsToldApart) {
    write("other.plist", sound_theme() + "\n");
    ASSERT_EQ(run({"keyboard", "sound.plist", "-o", "one.png"}).status, 0);
    ASSERT_EQ(run({"keyboard", "other.plist", "-o", "other.png"}).status, 0);
    EXPECT_EQ(Png(path("one.png")).pixels, Png(path("other.png")).pixels);
    EXPECT_NE(texts_in(read("one.png")), texts_in(read("other.png")));
}

TEST_F(Provenance, ALibraryThatIsNotThereOrNoneIsNamed) {
    write("no.dylib", "no library");
    for (const char* subcommand : {"keyboard", "preview", "gallery"}) {
        const Outcome missing = run({subcommand, "sound.plist", "-o", "k.png", "--library", "missing.dylib"});
        EXPECT_EQ(missing.status, 2);
        EXPECT_EQ(missing.err, "huecraft: missing.dylib: there is no such file\n");
    }
    const Outcome none = run({"keyboard", "sound.plist", "-o", "k.png", "--library", "no.dylib"});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(lines(none.err), 1u) << none.err;
    EXPECT_NE(none.err.find("no.dylib"), none.err.npos) << none.err;
    EXPECT_FALSE(exists("k.png"));
}

}  // namespace
}  // namespace test
