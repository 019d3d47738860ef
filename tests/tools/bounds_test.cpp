// Inputs within the size that is allowed, made to take long or much memory: each is refused in one line,
// soon.
#include <unistd.h>
#include <zlib.h>

#include "command_run.h"
#include "photos/photo_samples.h"
#include "support/base64.h"

namespace test {
namespace {

std::string big_endian(uint64_t value, int bytes) {
    std::string text;
    for (int i = bytes; i-- > 0;) text += static_cast<char>(value >> 8 * i & 255);
    return text;
}

// ---- Binary property lists

/// A list of these objects, the first of which is its root, and of so many more that lie over the last.
std::string binary_list(const std::vector<std::string>& objects, size_t more_of_the_last = 0,
                        char bytes_of_a_reference = 4) {
    std::string bytes = "bplist00", table;
    for (const std::string& object : objects) {
        table += big_endian(bytes.size(), 4);
        bytes += object;
    }
    for (size_t i = 0; i < more_of_the_last; ++i) table += table.substr(table.size() - 4);
    const size_t table_place = bytes.size();
    return bytes + table + std::string(6, '\0') + "\4" + bytes_of_a_reference +
           big_endian(objects.size() + more_of_the_last, 8) + big_endian(0, 8) + big_endian(table_place, 8);
}

std::string long_object(char kind, size_t count, const std::string& contents) {
    return std::string(1, static_cast<char>(kind | 15)) + "\x12" + big_endian(count, 4) + contents;
}

// ---- Pictures

std::string png_chunk(const std::string& type, const std::string& contents) {
    const std::string both = type + contents;
    const auto* data = reinterpret_cast<const Bytef*>(both.data());
    return big_endian(contents.size(), 4) + both +
           big_endian(crc32(0, data, static_cast<uInt>(both.size())), 4);
}

std::string png_head(size_t width, size_t height, int depth, int colour) {
    return "\x89PNG\r\n\x1a\n" +
           png_chunk("IHDR", big_endian(width, 4) + big_endian(height, 4) + big_endian(depth, 1) +
                                 big_endian(colour, 1) + std::string(3, '\0'));
}

/// A picture with compressed texts behind its header.
std::string png_with_texts(int count) {
    const std::string png = png_of(sample(40, 40, [](int x, int) { return Rgb{x, x, x}; }));
    const std::string nothing = std::string("\x78\x9c\x03\0\0\0\0\1", 8);
    constexpr size_t header = 33;
    std::string texts;
    for (int i = 0; i < count; ++i) texts += png_chunk("zTXt", std::string("k\0\0", 3) + nothing);
    return png.substr(0, header) + texts + png.substr(header);
}

std::string jpeg_with_scans(int more) {
    std::string jpeg = jpeg_of(sample(40, 40, [](int x, int) { return Rgb{x, x, x}; }));
    const size_t end = jpeg.size() - 2;
    for (int i = 0; i < more; ++i)
        jpeg.insert(end, std::string("\xff\xda\x00\x0c\x03\x01\x00\x02\x11\x03\x11\x00\x3f\x00", 14));
    return jpeg;
}

/// The head of a progressive picture.
std::string progressive_jpeg_head(size_t width, size_t height) {
    return std::string("\xff\xd8\xff\xc2\x00\x11\x08", 7) + big_endian(height, 2) + big_endian(width, 2) +
           std::string("\x03\x01\x11\x00\x02\x11\x00\x03\x11\x00", 10) +
           std::string("\xff\xda\x00\x0c\x03\x01\x00\x02\x00\x03\x00\x00\x00\x00", 14) +
           std::string(100, '\0') + "\xff\xd9";
}

/// The head of a lossless WebP picture of its greatest size.
std::string lossless_webp_head() {
    const std::string contents = "\x2f\xff\xff\xff\x0f" + std::string(99, '\0');
    std::string length(1, static_cast<char>(contents.size()));
    length += std::string(3, '\0');
    return "RIFF" + std::string(1, static_cast<char>(contents.size() + 12)) + std::string(3, '\0') +
           "WEBPVP8L" + length + contents;
}

class Bounds : public Command {
  protected:
    void expect_refused(const std::vector<std::string>& arguments, const std::string& found) const {
        const Outcome run = this->run(arguments);
        EXPECT_EQ(run.status, 2) << arguments[0];
        EXPECT_EQ(lines(run.err), 1u) << run.err;
        EXPECT_NE(run.err.find(found), run.err.npos) << arguments[0] << "\n" << run.err;
        EXPECT_LT(run.processor_seconds, 2) << arguments[0];
        EXPECT_LT(run.peak_kilobytes, 300 << 10) << arguments[0];
    }
    void expect_no_theme(const std::string& contents, const std::string& found) const {
        write("bad.plist", contents);
        write("sound.plist", sound_theme());
        expect_refused({"show", "bad.plist"}, "bad.plist: " + found);
        expect_refused({"gallery", "bad.plist", "-o", "g.html", "--force"}, "bad.plist: " + found);
        const Outcome run = this->run({"lint", "bad.plist", "sound.plist"});
        EXPECT_NE(run.err.find("bad.plist: " + found), run.err.npos) << run.err;
        EXPECT_NE(run.out.find("sound.plist: fine"), run.out.npos) << run.out;
    }
    void expect_no_photo(const std::string& contents, const std::string& found) const {
        write("photo", contents);
        expect_refused({"new", "T", "--image", "photo"}, "photo: " + found);
        EXPECT_FALSE(exists("T.plist"));
    }
    static std::string theme_with_picture(const std::string& picture) {
        return theme_file(
            "<key>_ConfigName</key><string>B</string><key>_BackgroundType</key><integer>3</integer>"
            "<key>_Image</key><data>" +
            in_base64(picture) + "</data>");
    }
};

TEST_F(Bounds, TextsThatLieOverOneAnother) {
    constexpr size_t texts = 1000, length = 100'000;
    std::string references;
    for (size_t i = 0; i < texts; ++i) references += big_endian(3 + i, 4);
    const std::string list = binary_list(
        {"\xd1" + big_endian(1, 4) + big_endian(2, 4), "\x57_Colors", long_object('\xa0', texts, references),
         long_object('\x50', length, std::string(length, 'x'))},
        texts - 1);
    expect_no_theme(list, "it is not a property list: binary property list: it unfolds to too many bytes");
}

TEST_F(Bounds, MillionsOfReferencesToOneObject) {
    constexpr size_t count = 8'500'000;
    write("bad.plist", binary_list({"\xd1\1\2", "\x57_Colors",
                                    long_object('\xa0', count, std::string(count, '\3')), "\x51x"},
                                   0, 1));
    expect_refused({"show", "bad.plist"},
                   "bad.plist: it is not a property list: binary property list: it has "
                   "too many references");
}

TEST_F(Bounds, MoreColoursThanAThemeMayHave) {
    std::string colours;
    for (int i = 0; i < 6000; ++i) colours += "<string>#123456</string>";
    expect_no_theme(theme_file("<key>_BackgroundType</key><integer>2</integer><key>_Colors</key><array>" +
                               colours + "</array>"),
                    "it holds more than 5000 values, or unfolds to as many");
}

TEST_F(Bounds, ATextOfMegabytes) {
    expect_no_theme(theme_file("<key>_ConfigName</key><string>" + std::string(2'000'000, 'n') + "</string>"),
                    "found a text of 2000000 letters, expected at most 1000000");
}

TEST_F(Bounds, FilesLargerThanTheirKindMayBe) {
    const std::pair<size_t, std::vector<std::string>> kinds[] = {
        {32, {"show", "large"}},
        {32, {"convert", "large", "-o", "c", "--to", "xml"}},
        {8, {"doctor", "large"}},
        {1, {"import", "large"}},
        {1, {"picker", "--script", "large"}},
        {64, {"package-check", "large"}},
        {64, {"new", "T", "--image", "large"}},
    };
    for (const auto& [most, arguments] : kinds) {
        write("large", "");
        ASSERT_EQ(truncate(path("large").c_str(), static_cast<off_t>((most << 20) + 1)), 0);
        expect_refused(arguments, "large: it has " + std::to_string(most + 1) + " MB; a ");
    }
}

TEST_F(Bounds, PicturesWithManyCompressedTexts) {
    EXPECT_EQ(run({"new", "Few", "--image", (write("few", png_with_texts(20)), "few")}).status, 0);
    expect_no_photo(png_with_texts(30), "found 30 compressed texts, expected at most 20");
    expect_no_theme(theme_with_picture(png_with_texts(30)),
                    "_Image: found 30 compressed texts, expected at most 20");
}

TEST_F(Bounds, PicturesInManyScans) {
    expect_no_photo(jpeg_with_scans(40), "found 41 scans, expected at most 32");
    expect_no_theme(theme_with_picture(jpeg_with_scans(40)), "_Image: found 41 scans, expected at most 32");
}

TEST_F(Bounds, PhotosThatTakeTooMuchMemoryWhileTheyAreDecoded) {
    expect_no_photo(progressive_jpeg_head(12'000, 12'000), "it takes 823 MB while it is decoded");
    expect_no_photo(png_head(15'800, 15'800, 16, 6) + png_chunk("IDAT", "x"),
                    "it unpacks to 1997 MB, expected at most 900");
    expect_no_photo(lossless_webp_head(), "it has 268 megapixels, expected at most 48 of a WebP picture");
}

TEST_F(Bounds, AScriptThatNeverEndsIsStoppedAtItsLine) {
    write("s", "wait 1\nrecord way 20\nwait 600\nstop\n");
    const Outcome run = this->run({"picker", "--script", "s", "-o", "p"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.err,
              "huecraft: s:3: 5 seconds of processor time were not enough for the script up to here; "
              "expected a shorter one, or fewer pictures\n");
    EXPECT_LT(run.processor_seconds, 9);
    EXPECT_FALSE(exists("p"));
}

}  // namespace
}  // namespace test
