// What a picture of the keyboard costs as a whole process, against ImageMagick composing it from its layers.
//
// The layers are what the simulator's own pictures differ in: the page with the keyboard's background, then a
// file for each key cap, label and glyph. ImageMagick reads them and lays them over each other, where the
// simulator has a system to boot and a keyboard to lay out; both write the same pixels as PNG.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include "check.h"
#include "keyboard_layers.h"
#include "ratio.h"
#include "support/themes.h"
#include "timing.h"

extern char** environ;

namespace bench {

namespace {

using Command = std::vector<std::string>;

struct Spent {
    double wall, processor;
};

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

/// Runs the command to its end.
Spent run(const Command& command) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const auto begin = std::chrono::steady_clock::now();
    pid_t child = 0;
    const bool started = posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments.data(), environ) == 0;
    check(started, (command[0] + " can be started: ./dev bench installs what is needed").c_str());
    int status = 0;
    rusage usage{};
    check(wait4(child, &status, 0, &usage) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0,
          (command[0] + " ends well").c_str());
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    return {wall.count(), seconds(usage.ru_utime) + seconds(usage.ru_stime)};
}

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
                picture().string()};
    }

  private:
    test::Phone phone_;
};

// By the name of its own: other programs may be called "convert".
constexpr const char* image_magick = "convert-im6.q16";

Command compose(const std::filesystem::path& background, const std::vector<Layer>& layers,
                const Command& options, const std::filesystem::path& picture) {
    Command command{image_magick, background.string()};
    for (const Layer& layer : layers)
        command.insert(command.end(),
                       {layer.file.string(), "-geometry",
                        "+" + std::to_string(layer.left) + "+" + std::to_string(layer.top), "-composite"});
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(picture.string());
    return command;
}

}  // namespace

void measure_keyboard_pictures(std::vector<Ratio>& ratios) {
    const Look background(false, false), with_caps(true, false), whole(true, true);
    for (const Look* look : {&background, &with_caps, &whole}) run(look->command());
    std::vector<Layer> layers = write_layers(background.picture(), with_caps.picture(), whole.beside("cap"));
    const auto labels = write_layers(with_caps.picture(), whole.picture(), whole.beside("label"));
    layers.insert(layers.end(), labels.begin(), labels.end());

    // The simulator's PNG is quick rather than small: ImageMagick is told to do the same.
    const Command quick{"-define", "png:compression-level=3", "-define", "png:compression-filter=0"};
    const std::filesystem::path composed = whole.beside("composed.png");
    Command only_boots = whole.command();
    only_boots.pop_back();
    struct Way {
        Command command;
        std::vector<double> wall = {}, processor = {};
    };
    Way simulator{whole.command()}, boots{only_boots},
        composes{compose(background.picture(), layers, quick, composed)},
        composes_small{compose(background.picture(), layers, {}, composed)};
    for (const Way* way : {&composes, &composes_small}) {
        run(way->command);
        check(look_alike(whole.picture(), composed), "ImageMagick composes the simulator's picture");
    }

    constexpr int rounds = 21;
    for (int round = 0; round < rounds; ++round)
        for (Way* way : {&simulator, &composes, &composes_small, &boots}) {
            const Spent spent = run(way->command);
            way->wall.push_back(spent.wall);
            way->processor.push_back(spent.processor);
        }
    const auto [width, height] = size_of(whole.picture());
    const std::string what =
        "a keyboard's picture, " + std::to_string(width) + " x " + std::to_string(height);
    const std::string against =
        "ImageMagick composing it from " + std::to_string(layers.size() + 1) + " files";
    constexpr double half = 0.5;
    constexpr const char* why = "loading Foundation and booting take most of that";
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
    rows("  booting and loading alone", against, std::nullopt, boots, composes);
    rows("  the picture", against + ", with its own PNG settings", std::nullopt, simulator, composes_small);
}

}  // namespace bench
