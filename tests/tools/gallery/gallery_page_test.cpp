// What is on the page of huecraft gallery.
#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "command_run.h"
#include "gallery/parsed_page.h"

namespace test {
namespace {

class GalleryShows : public Command {
  protected:
    GalleryPage gallery(std::vector<std::string> files) const {
        files.insert(files.begin(), {"gallery", "-o", "g.html", "--force"});
        const Outcome run = this->run(files);
        EXPECT_EQ(run.status, 0) << run.err;
        return GalleryPage(read("g.html"));
    }
    /// Makes a theme of these options.
    std::string made(const std::string& name, std::vector<std::string> options) const {
        const std::string file = name + ".plist";
        options.insert(options.begin(), {"new", name, "-o", file});
        const Outcome run = this->run(options);
        EXPECT_LE(run.status, 1) << run.err;
        return file;
    }
    std::string named(const std::string& file, const std::string& name) const {
        write(file, theme_file("<key>_ConfigName</key><string>" + name +
                               "</string><key>_BackgroundType</key><integer>1</integer>"
                               "<key>_Colors</key><array><string>#102030</string></array>"));
        return file;
    }
};

double luminance(const std::string& hex) {
    const auto linear = [&](size_t at) {
        const double c = std::stoi(hex.substr(at, 2), nullptr, 16) / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(1) + 0.7152 * linear(3) + 0.0722 * linear(5);
}

double contrast(const std::string& a, const std::string& b) {
    const auto [darker, lighter] = std::minmax(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

TEST_F(GalleryShows, TwoPixelsAPointOfTheKeysAlone) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    const Pixels picture = decoded_picture(page.themes().at(0).picture);
    EXPECT_EQ(picture.width, 750);
    EXPECT_EQ(picture.height, 432);
    EXPECT_EQ(page.found("//img/@width"), std::vector<std::string>{"375"});
    EXPECT_EQ(page.found("//img/@height"), std::vector<std::string>{"216"});
}

TEST_F(GalleryShows, AHeldKeyInTheHighlightColour) {
    const auto page = gallery({made("Flat", {"--flat", "102030", "--highlight", "C03050"})});
    const Pixels picture = decoded_picture(page.themes().at(0).picture);
    EXPECT_GT(std::ranges::count(picture.pixels, 0xc03050u), 3000);
    EXPECT_EQ(page.themes()[0].alt, "The keyboard, with v held down");
}

TEST_F(GalleryShows, EachThemesColoursInHex) {
    const auto page = gallery(
        {made("Flat", {"--flat", "102030", "--text", "FFEEDD", "--highlight", "C03050"}),
         made("Gradient", {"--gradient", "102030,405060", "--text", "FFEEDD", "--highlight", "C03050"})});
    using Texts = std::vector<std::string>;
    EXPECT_EQ(page.themes().at(0).colours,
              (Texts{"labels #FFEEDD", "highlights #C03050", "background #102030"}));
    EXPECT_EQ(page.themes().at(1).colours,
              (Texts{"labels #FFEEDD", "highlights #C03050", "background #102030", "to #405060"}));
    EXPECT_EQ(page.found("//article[1]//span/@style"),
              (Texts{"background:#FFEEDD", "background:#C03050", "background:#102030"}));
}

TEST_F(GalleryShows, ColoursThatAThemeLeavesToTheSystem) {
    write("bare.plist", theme_file("<key>_BackgroundType</key><integer>0</integer>"));
    EXPECT_EQ(gallery({"bare.plist"}).themes().at(0).colours,
              (std::vector<std::string>{"labels as the system's", "highlights as the system's"}));
}

TEST_F(GalleryShows, TheFirstOfManyColoursAndTheirNumber) {
    std::string colours;
    for (int i = 0; i < 30; ++i) colours += "<string>#102030</string>";
    write("many.plist", theme_file("<key>_BackgroundType</key><integer>2</integer><key>_Colors</key><array>" +
                                   colours + "</array>"));
    EXPECT_EQ(gallery({"many.plist"}).themes().at(0).colours.back(), "and 22 more");
}

TEST_F(GalleryShows, ASmallThemesFileInThePage) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    EXPECT_EQ(page.themes().at(0).download_name, "Flat.plist");
    EXPECT_EQ(page.themes()[0].downloaded(), read("Flat.plist"));
}

TEST_F(GalleryShows, ALinkToALargeThemesFileFromThePagesFolder) {
    ASSERT_EQ(
        run({"new", "Photo", "-o", "a b%.plist", "--image", BUILD_FOLDER "/share/huecraft/themes/Dusk.png"})
            .status,
        0);
    std::filesystem::create_directory(path("pages"));
    ASSERT_EQ(run({"gallery", "a b%.plist", "-o", "pages/g.html"}).status, 0);
    const GalleryPage page(read("pages/g.html"));
    EXPECT_EQ(page.themes().at(0).download_name, "a b%.plist");
    EXPECT_EQ(page.themes()[0].href, "./../a%20b%25.plist");
}

TEST_F(GalleryShows, NoLinkToALargeThemeThatCameThroughAPipe) {
    ASSERT_EQ(run({"new", "Photo", "--image", BUILD_FOLDER "/share/huecraft/themes/Dusk.png"}).status, 0);
    ASSERT_EQ(run({"gallery", "-", "-o", "g.html"}, read("Photo.plist")).status, 0);
    const GalleryPage page(read("g.html"));
    EXPECT_EQ(page.themes().at(0).href, "");
    EXPECT_TRUE(page.has("//article/p[contains(., 'too large to be in this page')]"));
}

TEST_F(GalleryShows, HuesInTheirOrderAndThenGreys) {
    const auto page = gallery({made("Red", {"--flat", "802020"}), made("Yellow", {"--flat", "808020"}),
                               made("Green", {"--flat", "208020"}), made("Blue", {"--flat", "202080"}),
                               made("Black", {"--flat", "000000"}), made("Grey", {"--flat", "808080"}),
                               made("White", {"--flat", "FFFFFF"})});
    std::vector<double> places;
    for (const ShownTheme& theme : page.themes()) places.push_back(theme.colour);
    ASSERT_EQ(places.size(), 7u);
    EXPECT_TRUE(std::ranges::is_sorted(places));
    EXPECT_LT(places[3], 360);
    EXPECT_GE(places[4], 360);
    EXPECT_NEAR(places[6], 460, 1);
}

TEST_F(GalleryShows, TheLabelsContrastWithWhatIsBehindThem) {
    const auto page = gallery({made("Most", {"--flat", "000000", "--text", "FFFFFF"}),
                               made("Less", {"--flat", "FFFFFF", "--text", "767676"}),
                               made("Gradient", {"--gradient", "000000,FFFFFF", "--text", "FFFFFF"})});
    EXPECT_NEAR(page.themes().at(0).contrast, 21, 0.1);
    EXPECT_NEAR(page.themes().at(1).contrast, 4.54, 0.1);
    EXPECT_LT(page.themes().at(2).contrast, 2) << "where it is smallest";
}

TEST_F(GalleryShows, ControlsThatAreHiddenWithoutScripts) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    EXPECT_TRUE(page.has("//*[@id='controls'][@hidden]"));
    EXPECT_FALSE(page.has("//main//*[@hidden]"));
    EXPECT_FALSE(page.has("//noscript"));
}

TEST_F(GalleryShows, ALabelToEachControlAndHeadingsInOrder) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    for (const char* control :
         {"//label/input[@type='search']", "//label/select", "//button[@type='button']",
          "//*[@role='status']", "//html[@lang='en']", "//main", "//header/h1", "//article/h2"})
        EXPECT_EQ(page.found(control).size(), 1u) << control;
    EXPECT_TRUE(page.has("//button[@aria-pressed='false'][.='Dark page']"));
    EXPECT_FALSE(page.has("//img[not(@alt)]"));
    EXPECT_FALSE(page.has("//*[@tabindex]"));
    EXPECT_EQ(page.found("//select/option/@value"),
              (std::vector<std::string>{"given", "name", "colour", "contrast"}));
}

TEST_F(GalleryShows, AScriptThatNamesOnlyWhatThereIs) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    const std::string script = page.found("//script").at(0);
    for (const std::string& value : page.found("//select/option/@value"))
        EXPECT_NE(script.find(value + ": ("), script.npos) << "no order for " << value;
    size_t ids = 0;
    for (size_t at = 0; (at = script.find("by_id(\"", at)) != script.npos; ++ids) {
        at += 7;
        const std::string id = script.substr(at, script.find('"', at) - at);
        EXPECT_TRUE(page.has("//*[@id='" + id + "']")) << id;
    }
    EXPECT_GE(ids, 8u);
}

TEST_F(GalleryShows, NothingFromElsewhere) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    EXPECT_FALSE(page.has("//link | //iframe | //object | //script/@src | //base"));
    for (const std::string& source : page.found("//@src | //@href"))
        EXPECT_TRUE(source.starts_with("data:")) << source;
    const std::string text = read("g.html");
    for (const char* remote : {"http:", "https:", "url(", "@import"})
        EXPECT_EQ(text.find(remote), text.npos) << remote;
}

TEST_F(GalleryShows, APageWhoseOwnColoursCanBeRead) {
    const auto page = gallery({made("Flat", {"--flat", "102030"})});
    const auto ground = page.style_values("--page");
    ASSERT_EQ(ground.size(), 3u) << "light, dark as preferred, dark as switched to";
    EXPECT_GT(luminance(ground[0]), 0.8);
    EXPECT_LT(luminance(ground[1]), 0.05);
    for (const auto& [variable, least] :
         {std::pair{"--text", 7.0}, {"--faint", 4.5}, {"--link", 4.5}, {"--edge", 3.0}}) {
        const auto colours = page.style_values(variable);
        ASSERT_EQ(colours.size(), 3u) << variable;
        EXPECT_EQ(colours[1], colours[2]) << variable;
        for (size_t i = 0; i < 3; ++i)
            EXPECT_GE(contrast(colours[i], ground[i]), least) << variable << ' ' << i;
    }
}

TEST_F(GalleryShows, NamesAsTextWhateverIsInThem) {
    std::string longest;
    for (int i = 0; i < 300; ++i) longest += i % 2 ? "\xd7\xa9" : "\xe6\xbc\xa2";
    const auto page = gallery({named("a.plist", "&lt;script&gt;&amp;\"'"),
                               named("b.plist", "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"),
                               named("c.plist", longest), named("d.plist", "x\xe2\x80\xaey"),
                               named("e.plist", ""), named("f.plist", std::string(1000, 'W'))});
    ASSERT_EQ(page.themes().size(), 6u);
    EXPECT_EQ(page.themes()[0].name, "<script>&\"'");
    EXPECT_EQ(page.themes()[1].name, "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d");
    EXPECT_EQ(page.themes()[2].name, longest);
    EXPECT_EQ(page.themes()[3].name.find("\xe2\x80\xae"), std::string::npos)
        << "what turns the text around it";
    EXPECT_EQ(page.themes()[5].name, std::string(300, 'W') + "\xe2\x80\xa6");
    EXPECT_EQ(page.found("//h2[@dir='auto']").size(), 6u);
    EXPECT_EQ(page.found("//script").size(), 1u);
    for (const ShownTheme& theme : page.themes()) EXPECT_LE(theme.bytes, 15'000u);
}

TEST_F(GalleryShows, TheDigestsOfTheLibraryAndOfEachTheme) {
    const auto page = gallery({made("One", {"--flat", "102030"}), made("Two", {"--flat", "102030"})});
    EXPECT_EQ(page.found("//meta[@name='huecraft-library-sha256']/@content").at(0).size(), 64u);
    EXPECT_EQ(page.themes().at(0).digest.size(), 64u);
    EXPECT_NE(page.themes()[0].digest, page.themes().at(1).digest);
}

TEST_F(GalleryShows, TheTenThemesInFifteenKilobytesEach) {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(BUILD_FOLDER "/share/huecraft/themes"))
        if (entry.path().extension() == ".plist") files.push_back(entry.path().string());
    const auto page = gallery(files);
    ASSERT_EQ(page.themes().size(), 10u);
    for (const ShownTheme& theme : page.themes()) EXPECT_LE(theme.bytes, 15'000u) << theme.name;
    EXPECT_LE(read("g.html").size(), 10 * 15'000u) << "with all that is around them";
}

TEST_F(GalleryShows, RandomThemesInFifteenKilobytesEach) {
    std::mt19937 random(13);
    const auto colour = [&] {
        constexpr const char* digits = "0123456789ABCDEF";
        std::string hex = "<string>#";
        for (int i = 0; i < 6; ++i) hex += digits[random() % 16];
        return hex + "</string>";
    };
    std::vector<std::string> files;
    for (int i = 0; i < 60; ++i) {
        std::string colours;
        for (size_t k = i % 3 ? 2 + random() % 5 : 1; k > 0; --k) colours += colour();
        files.push_back("random" + std::to_string(i) + ".plist");
        write(files.back(),
              theme_file("<key>_TextColor</key>" + colour() + "<key>_HighlightColor</key>" + colour() +
                         "<key>_BackgroundType</key><integer>" + (i % 3 ? "2" : "1") +
                         "</integer><key>_GradientDirection</key><integer>" + std::to_string(i % 8) +
                         "</integer><key>_Colors</key><array>" + colours + "</array>" +
                         (i % 2 ? "<key>_VisibleKeycaps</key><true/>" : "")));
    }
    for (const ShownTheme& theme : gallery(files).themes()) EXPECT_LE(theme.bytes, 15'000u) << theme.name;
}

TEST_F(GalleryShows, AFlatBackgroundInExactlyItsColour) {
    const auto page = gallery({made("Flat", {"--flat", "1B2440", "--caps"})});
    EXPECT_EQ(page.themes().at(0).media_type, "image/png");
    EXPECT_EQ(decoded_picture(page.themes()[0].picture).at(2, 2), 0x1b2440u);
}

TEST_F(GalleryShows, AFaintGradientWithoutSteps) {
    const auto page = gallery({made("Faint", {"--gradient", "0D0705,1F0C07", "--direction", "down"})});
    const Pixels picture = decoded_picture(page.themes().at(0).picture);
    int steps = 0;
    for (int y = 1; y < picture.height; ++y) steps += picture.at(2, y) != picture.at(2, y - 1);
    EXPECT_GT(steps, 10);
}

TEST_F(GalleryShows, EvenAPictureOfNoiseInFifteenKilobytes) {
    std::mt19937 random(29);
    cairo_surface_t* noise = cairo_image_surface_create(CAIRO_FORMAT_RGB24, 750, 432);
    unsigned char* data = cairo_image_surface_get_data(noise);
    for (int i = 0; i < cairo_image_surface_get_stride(noise) * 432; ++i)
        data[i] = static_cast<unsigned char>(random());
    cairo_surface_mark_dirty(noise);
    ASSERT_EQ(cairo_surface_write_to_png(noise, path("noise.png").c_str()), CAIRO_STATUS_SUCCESS);
    cairo_surface_destroy(noise);
    const auto page = gallery({made("Noise", {"--image", "noise.png"})});
    EXPECT_LE(page.themes().at(0).bytes, 15'000u);
    EXPECT_GT(decoded_picture(page.themes()[0].picture).width, 0);
}

}  // namespace
}  // namespace test
