// What the huecraft command costs: a gallery of 500 themes against ImageMagick composing the same pictures,
// its memory, and the preview and the check of themes against figures in seconds.
//
// The themes are the ten that come with the command, over and over in other label colours. ImageMagick gets
// each picture as layers in files and composes it in a process of its own, one after the other; it does so
// for the first ten themes, and what that takes is scaled up.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "measuring/check.h"
#include "measuring/figure.h"
#include "measuring/keyboard_layers.h"
#include "measuring/process.h"
#include "measuring/ratio.h"
#include "measuring/timing.h"
#include "support/phone.h"

namespace bench {

namespace {

namespace fs = std::filesystem;

constexpr size_t gallery_themes = 500, first_themes = 50, composed_themes = 10, checked_themes = 1000;

std::string contents_of(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    check(!text.str().empty(), "a theme that comes with the command can be read");
    return text.str();
}

/// A theme's file, as XML, with another value for the key.
std::string with(std::string theme, const std::string& key, const std::string& value) {
    const std::string entry = "<key>" + key + "</key>";
    const size_t end_of_all = theme.rfind("</dict>");
    if (const size_t begin = theme.find(entry); begin != theme.npos) {
        const size_t end = std::min(theme.find("<key>", begin + entry.size()), end_of_all);
        theme.erase(begin, end - begin);
    }
    return theme.insert(theme.rfind("</dict>"), entry + value);
}

std::string in_hex(size_t byte) {
    constexpr const char* digits = "0123456789ABCDEF";
    return {digits[byte / 16 % 16], digits[byte % 16]};
}

/// The folder of all files of these measurements, which goes with them.
class Folder {
  public:
    fs::path operator/(const std::string& name) const { return phone_.host("/") / name; }
    fs::path write(const std::string& name, const std::string& contents) const {
        std::ofstream(*this / name, std::ios::binary) << contents;
        return *this / name;
    }
    std::vector<fs::path> write_themes(const std::vector<std::string>& kinds, size_t count) const {
        std::vector<fs::path> files;
        for (size_t i = 0; i < count; ++i) {
            const std::string colour = "<string>#FF" + in_hex(255 - i / kinds.size()) + "C0</string>";
            files.push_back(
                write("theme-" + std::to_string(kinds.size()) + "-" + std::to_string(i) + ".plist",
                      with(kinds[i % kinds.size()], "_TextColor", colour)));
        }
        return files;
    }

  private:
    test::Phone phone_;  // never switched on
};

Command huecraft(const std::string& subcommand, const std::vector<fs::path>& files, const Command& options) {
    Command command{HUECRAFT_COMMAND, subcommand};
    for (const fs::path& file : files) command.push_back(file.string());
    command.insert(command.end(), options.begin(), options.end());
    return command;
}

constexpr const char* clear = "<string>#00000000</string>";
constexpr const char* no_caps = "<false/>";
/// What a gallery shows of the screen, and what is one part of it; in pixels.
constexpr int rows_of_keys = 432, within_a_word = 6;

/// A theme's picture in steps: what each shows lies over the one before. A step that shows nothing more, as
/// key caps that are not visible, is not a layer.
class Steps {
  public:
    Steps(const Folder& folder, std::string name) : folder_(folder), name_(std::move(name)) {}

    void add(const std::string& theme) {
        const std::string step = name_ + std::to_string(count_++);
        const fs::path file = folder_.write(step + ".plist", theme), picture = folder_ / (step + ".png");
        run(huecraft("keyboard", {file}, {"-o", picture.string(), "--press", "v"}));
        keep_lowest(picture, rows_of_keys);
        if (last_.empty())
            background_ = picture;
        else if (!look_alike(last_, picture))
            for (Layer& layer : write_layers(last_, picture, folder_ / (step + "-"), within_a_word))
                layers_.push_back(std::move(layer));
        last_ = picture;
    }

    size_t layer_count() const { return layers_.size() + 1; }

    /// What composes the last step's picture.
    Command composed() const {
        const fs::path picture = folder_ / (name_ + "composed.png");
        const Command command = compose(background_, layers_, quick_png, picture);
        run(command);
        check(look_alike(last_, picture), "ImageMagick composes the command's picture");
        return command;
    }

  private:
    const Folder& folder_;
    std::string name_;
    size_t count_ = 0;
    fs::path background_, last_;
    std::vector<Layer> layers_;
};

struct Composition {
    std::vector<Command> commands;
    size_t most_layers = 0;
};

Composition compositions(const Folder& folder, const std::vector<fs::path>& files) {
    Composition all;
    for (size_t i = 0; i < files.size(); ++i) {
        const std::string theme = contents_of(files[i]);
        const std::string without_labels = with(theme, "_TextColor", clear);
        const std::string without_highlights = with(without_labels, "_HighlightColor", clear);
        Steps keyboard(folder, "keyboard" + std::to_string(i) + "-");
        for (const std::string& step : {with(without_highlights, "_VisibleKeycaps", no_caps),
                                        without_highlights, without_labels, theme})
            keyboard.add(step);
        all.commands.push_back(keyboard.composed());
        all.most_layers = std::max(all.most_layers, keyboard.layer_count());
    }
    return all;
}

struct Costs {
    std::vector<double> wall, processor;
    void add(const Spent& spent) {
        wall.push_back(spent.wall);
        processor.push_back(spent.processor);
    }
};

void measure_gallery(std::vector<Ratio>& ratios, const Folder& folder,
                     const std::vector<std::string>& kinds) {
    const auto files = folder.write_themes(kinds, gallery_themes);
    const std::string page = (folder / "gallery.html").string();
    const Composition composition = compositions(folder, {files.begin(), files.begin() + composed_themes});
    const std::vector<fs::path> first(files.begin(), files.begin() + first_themes);
    const Command draws_first = huecraft("gallery", first, {"-o", page}),
                  draws = huecraft("gallery", files, {"-o", page});

    const long peak_of_first = run(draws_first).peak_kilobytes;
    long peak = 0;
    Costs gallery, composing;
    constexpr int rounds = 5;
    for (int round = 0; round < rounds; ++round) {
        const Spent drawing = run(draws);
        peak = std::max(peak, drawing.peak_kilobytes);
        gallery.add(drawing);
        Spent all;
        for (const Command& command : composition.commands) {
            const Spent one = run(command);
            all.wall += one.wall;
            all.processor += one.processor;
        }
        constexpr double scale = static_cast<double>(gallery_themes) / composed_themes;
        composing.add({all.wall * scale, all.processor * scale});
    }
    constexpr double tenth = 0.1;
    const std::string against = "ImageMagick composing each picture from up to " +
                                std::to_string(composition.most_layers) + " files; 10 themes, scaled up";
    const long growth = std::max(0L, peak - peak_of_first);
    ratios.push_back({.what = "a gallery of 500 themes, wall time",
                      .against = against,
                      .limit = tenth,
                      .cost = undisturbed(gallery.wall),
                      .cost_against = undisturbed(composing.wall),
                      .counted = Counted{"MB more at the most than with 50 themes",
                                         static_cast<size_t>((growth + 1023) / 1024), 20},
                      .known = "ImageMagick now composes one picture of each theme, which halved its work"});
    ratios.push_back({.what = "  the same, processor time",
                      .against = against,
                      .cost = undisturbed(gallery.processor),
                      .cost_against = undisturbed(composing.processor)});
}

}  // namespace

void measure_command(std::vector<Ratio>& ratios) {
    const Folder folder;
    std::vector<fs::path> shipped;
    for (const auto& entry : fs::directory_iterator(HUECRAFT_THEMES))
        if (entry.path().extension() == ".plist") shipped.push_back(entry.path());
    std::ranges::sort(shipped);
    check(shipped.size() == composed_themes, "ten themes come with the command");
    std::vector<std::string> kinds, without_image;
    for (const fs::path& file : shipped) {
        kinds.push_back(contents_of(file));
        if (kinds.back().find("<data>") == std::string::npos) without_image.push_back(kinds.back());
    }
    measure_gallery(ratios, folder, kinds);

    const std::string picture = (folder / "preview.png").string();
    constexpr double preview_seconds = 0.120, lint_seconds = 2;
    ratios.push_back(against_figure("huecraft preview, processor time", preview_seconds,
                                    huecraft("preview", {shipped[0]}, {"-o", picture})));
    constexpr int findings = 1;
    ratios.push_back(against_figure("huecraft lint of 1000 themes, processor time", lint_seconds,
                                    huecraft("lint", folder.write_themes(without_image, checked_themes), {}),
                                    findings));
}

}  // namespace bench
