// What a picture of the keyboard costs as a whole process, against ImageMagick composing it from its layers.
//
// The layers are what the simulator's own pictures differ in: the page with the keyboard's background, then a
// file for each key cap, label and glyph. ImageMagick reads them and lays them over each other, where the
// simulator has a system to boot and a keyboard to lay out; both write the same pixels as PNG.
#include <fontconfig/fontconfig.h>
#include <png.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "measuring/check.h"
#include "measuring/keyboard_layers.h"
#include "measuring/process.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "support/themes.h"

namespace bench {

namespace {

/// A phone's folder, with a theme that shows key caps and labels or not. It is never booted here.
class Look {
  public:
    Look(bool caps, bool labels) {
        test::arrange_theme(phone_);
        phone_.write(
            std::string(test::theme_folder) + "Meadow.plist",
            test::property_list(
                "<dict><key>_TextColor</key><string>" + std::string(labels ? "#FFB84D" : "#00000000") +
                "</string><key>_HighlightColor</key><string>#35539B</string>"
                "<key>_BackgroundType</key><integer>2</integer><key>_Colors</key><array>"
                "<string>#1B2440</string><string>#6A3D9A</string></array>"
                "<key>_GradientDirection</key><integer>8</integer><key>_VisibleKeycaps</key>" +
                std::string(caps ? "<true/>" : "<false/>") + "</dict>"));
    }
    std::filesystem::path picture() const { return phone_.host("/picture.png"); }
    std::filesystem::path beside(const char* name) const { return phone_.host("/") / name; }
    Command command() const {
        return {HUECRAFT_KEYBOARD_PICTURE, std::getenv("HUECRAFT_LIBRARY"), phone_.host("/").string(),
                test::notes, picture().string()};
    }

  private:
    test::Phone phone_;
};

/// Compresses the picture once more, as the simulator did.
class Compression {
  public:
    explicit Compression(const std::filesystem::path& picture) {
        png_image png{};
        png.version = PNG_IMAGE_VERSION;
        check(png_image_begin_read_from_file(&png, picture.c_str()), "the picture is a PNG");
        png.format = PNG_FORMAT_RGB;
        pixels_.resize(PNG_IMAGE_SIZE(png));
        check(png_image_finish_read(&png, nullptr, pixels_.data(), 0, nullptr), "the picture is whole");
        width_ = png.width;
        height_ = png.height;
    }
    double seconds() const {
        png_image png{};
        png.version = PNG_IMAGE_VERSION;
        png.width = width_;
        png.height = height_;
        png.format = PNG_FORMAT_RGB;
        png.flags = PNG_IMAGE_FLAG_FAST;
        png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
        std::vector<uint8_t> file(size);
        const double before = processor_seconds();
        check(png_image_write_to_memory(&png, file.data(), &size, 0, pixels_.data(), 0, nullptr),
              "the picture can be written");
        return processor_seconds() - before;
    }

  private:
    png_uint_32 width_, height_;
    std::vector<uint8_t> pixels_;
};

/// The file that the system's font is in.
std::string font_of_labels() {
    FcPattern* wanted = FcNameParse(reinterpret_cast<const FcChar8*>("Inter"));
    FcConfigSubstitute(nullptr, wanted, FcMatchPattern);
    FcDefaultSubstitute(wanted);
    FcResult result;
    FcPattern* found = FcFontMatch(nullptr, wanted, &result);
    FcChar8* file = nullptr;
    check(found && FcPatternGetString(found, FC_FILE, 0, &file) == FcResultMatch, "the labels have a font");
    const std::string path = reinterpret_cast<const char*>(file);
    FcPatternDestroy(found);
    FcPatternDestroy(wanted);
    return path;
}

}  // namespace

void measure_keyboard_pictures(std::vector<Ratio>& ratios) {
    const Look background(false, false), with_caps(true, false), whole(true, true);
    for (const Look* look : {&background, &with_caps, &whole}) run(look->command());
    constexpr int within_a_word = 6;  // keys are twice as far apart
    std::vector<Layer> layers =
        write_layers(background.picture(), with_caps.picture(), whole.beside("cap"), within_a_word);
    const auto labels =
        write_layers(with_caps.picture(), whole.picture(), whole.beside("label"), within_a_word);
    layers.insert(layers.end(), labels.begin(), labels.end());

    const std::filesystem::path composed = whole.beside("composed.png");
    Command only_boots = whole.command();
    only_boots.pop_back();
    const Command only_starts{HUECRAFT_KEYBOARD_PICTURE};
    struct Way {
        Command command;
        std::vector<double> wall = {}, processor = {};
    };
    const std::filesystem::path pixels = whole.beside("layers"), least = whole.beside("least.png");
    write_pixels(background.picture(), layers, pixels);
    Way simulator{whole.command()}, boots{only_boots}, starts{only_starts},
        does_the_least{{HUECRAFT_LEAST_PICTURE, pixels.string(), font_of_labels(), least.string()}},
        composes{compose(background.picture(), layers, quick_png, composed)},
        composes_small{compose(background.picture(), layers, {}, composed)};
    for (const Way* way : {&composes, &composes_small}) {
        run(way->command);
        check(look_alike(whole.picture(), composed), "ImageMagick composes the simulator's picture");
    }

    run(does_the_least.command);
    check(look_alike(whole.picture(), least), "the least comes to the simulator's picture");

    const Compression compression(whole.picture());
    std::vector<double> compressing;
    constexpr int rounds = 21;
    for (int round = 0; round < rounds; ++round) {
        for (Way* way : {&simulator, &composes, &composes_small, &boots, &starts, &does_the_least}) {
            const Spent spent = run(way->command);
            way->wall.push_back(spent.wall);
            way->processor.push_back(spent.processor);
        }
        compressing.push_back(compression.seconds());
    }
    const auto [width, height] = size_of(whole.picture());
    const std::string what =
        "a keyboard's picture, " + std::to_string(width) + " x " + std::to_string(height);
    const std::string against =
        "ImageMagick composing it from " + std::to_string(layers.size() + 1) + " files";
    constexpr double half = 0.5;
    constexpr const char* why = "loading the libraries and compressing the PNG take most of that";
    auto rows = [&](const std::string& of, const std::string& than, std::optional<double> limit,
                    const Way& way, const Way& other) {
        ratios.push_back({.what = of + ", wall time",
                          .against = than,
                          .limit = limit,
                          .cost = undisturbed(way.wall),
                          .cost_against = undisturbed(other.wall),
                          .known = why});
        ratios.push_back({.what = of + ", processor time",
                          .against = than,
                          .limit = limit,
                          .cost = undisturbed(way.processor),
                          .cost_against = undisturbed(other.processor),
                          .known = why});
    };
    rows(what, against, half, simulator, composes);
    rows("  loading the system's libraries alone", against, std::nullopt, starts, composes);
    rows("  that, booting and loading the library", against, std::nullopt, boots, composes);
    rows("  the least: the libraries, the labels, finished layers, the PNG", against, std::nullopt,
         does_the_least, composes);
    ratios.push_back({.what = "  compressing the PNG alone, processor time",
                      .against = against,
                      .cost = undisturbed(compressing),
                      .cost_against = undisturbed(composes.processor)});
    rows("  the picture", against + ", with its own PNG settings", std::nullopt, simulator, composes_small);
}

}  // namespace bench
