// huecraft gallery: a page with the keyboard in many themes.
#include <malloc.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <utility>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "cli/worker_pool.h"
#include "formats/value.h"
#include "gallery/page.h"
#include "objc/fast_enumeration.h"
#include "support/phone.h"
#include "support/provenance.h"
#include "support/text.h"
#include "support/theme_choice.h"
#include "themes/fixing.h"
#include "themes/theme.h"

namespace command {
namespace {

/// What a worker tells of a theme.
enum class Answer { drawn, unusable, other_caps };

/// Where a theme's piece of the page lies until all are there.
std::filesystem::path piece_of(const Workshop& workshop, size_t number) {
    return workshop.scratch(std::to_string(number) + ".html");
}

/// Where the reason lies for which a theme is left out.
std::filesystem::path reason_of(const Workshop& workshop, size_t number) {
    return workshop.scratch(std::to_string(number) + ".txt");
}

/// Where a theme lies that waits for the other workers. It may have come from a pipe, which is read once.
std::filesystem::path put_aside(const Workshop& workshop, size_t number) {
    return workshop.scratch(std::to_string(number) + ".plist");
}

std::vector<Swatch> colours_of(HuecraftConfig* theme, const Oklab& background) {
    const auto swatch = [](const char* what, UIColor* colour) {
        return colour ? Swatch{what, hex_of(colour_of(colour))}
                      : Swatch{std::string(what) + " as the system's", ""};
    };
    std::vector<Swatch> colours{swatch("labels", theme->getTextColor()),
                                swatch("highlights", theme->getHighlightColor())};
    const NSUInteger type = theme->getBackgroundType();
    enum : NSUInteger { flat_colour = 1, gradient_of_colours = 2, image_data = 3 };
    if (type == flat_colour || type == gradient_of_colours) {
        constexpr size_t most = 8;
        size_t count = 0;
        if (NSArray* list = theme->getColors())
            objc::for_each<UIColor>(list, [&](UIColor* colour) {
                if (++count <= most) colours.push_back(swatch(count == 1 ? "background" : "to", colour));
            });
        if (count > most) colours.push_back({"and " + std::to_string(count - most) + " more", ""});
    } else if (type == image_data) {
        colours.push_back({"picture, on average", hex_of(colour_of(background))});
    }
    return colours;
}

struct Gallery {
    std::vector<std::string> files;
    std::string output, library;
    bool force = false, json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            if (!force) {
                std::vector<std::string> inputs = files;
                inputs.push_back(library);
                require_replaceable(output, OutputKind::page, inputs);
            }
            static_cast<void>(Output{output});  // before the work, which would be lost without a place for it
            const Build build(command::library(library));
            if (!library.empty() && !can_draw(workshop, build)) return Status::unusable;
            std::vector<Status> ends(files.size(), Status::unusable);
            Status all = draw_all(workshop, build, ends);
            for (Status one : ends) note(all, one);
            if (std::ranges::count(ends, Status::fine) == 0) return all;
            write(workshop, build, ends);
            report(ends);
            return all;
        });
    }

  private:
    /// The library that draws, and what tells which it was.
    struct Build {
        explicit Build(const std::filesystem::path& path)
            : file(path),
              digest(tools::sha256_of(read_input(path, "library", largest_input))) {}
        std::filesystem::path file;
        std::string digest;
    };

    /// Tried once, since every worker would complain.
    static bool can_draw(const Workshop& workshop, const Build& build) {
        return in_child([&] {
                   tools::boot(workshop.device, tools::notes);
                   tools::load(build.file);
                   return Status::fine;
               }) == Status::fine;
    }

    /// The phone is switched on here, and every worker is a copy of it that loads the library. Which hooks
    /// the library installs depends on the key caps, so there are workers for themes without visible caps
    /// first, and then, if themes are left, others for those.
    Status draw_all(const Workshop& workshop, const Build& build, std::vector<Status>& ends) const {
        tools::boot(workshop.device, tools::notes, tools::Screen().for_pictures(KeyboardPixels::per_point));
        Progress progress("drawing", files.size());
        size_t known = 0;
        Status status = Status::fine;
        std::deque<size_t> waiting(files.size());
        std::iota(waiting.begin(), waiting.end(), size_t{0});
        for (bool caps : {false, true}) {
            std::deque<size_t> others;
            SharedWork work;
            work.begin = [&] { begin_to_draw(build); };
            work.piece = [&](size_t number) { return static_cast<int>(answer_for(number, workshop, caps)); };
            work.done = [&](size_t number, int answer) {
                const auto end = static_cast<Answer>(answer);
                if (end == Answer::other_caps) return others.push_back(number);
                if (end == Answer::drawn) ends.at(number) = Status::fine;
                if (end == Answer::unusable) complain(files[number], read_input(reason_of(workshop, number)));
                progress.advance_to(++known);
            };
            work.lost = [&](size_t number, const std::string& how) {
                complain(files[number], how);
                progress.advance_to(++known);
            };
            choose_caps(workshop, caps);
            note(status, share_out(std::exchange(waiting, {}), work));
            waiting = std::move(others);
        }
        return status;
    }

    static void begin_to_draw(const Build& build) {
        // What a theme's pictures took is kept for the next one's, which are as large.
        constexpr int kept = 64 << 20;
        mallopt(M_MMAP_THRESHOLD, kept);
        mallopt(M_TRIM_THRESHOLD, kept);
        tools::load(build.file);
        tools::require_theme();
    }

    /// Names a theme of which nothing but its key caps is ever shown.
    static void choose_caps(const Workshop& workshop, bool caps) {
        objc::AutoreleasePool pool;
        workshop.place_theme("caps.plist",
                             std::string("<plist version=\"1.0\"><dict><key>_VisibleKeycaps</key>") +
                                 (caps ? "<true/>" : "<false/>") + "</dict></plist>");
        tools::choose_theme("caps.plist");
    }

    Answer answer_for(size_t number, const Workshop& workshop, bool caps) const {
        try {
            Answer answer{};
            on_the_phone(files[number], [&] { answer = draw(number, workshop, caps); });
            return answer;
        } catch (const Unusable& unusable) {
            write_output(reason_of(workshop, number), unusable.what());
        } catch (const std::exception& failure) {
            write_output(reason_of(workshop, number), failure.what());
        }
        return Answer::unusable;
    }

    Answer draw(size_t number, const Workshop& workshop, bool caps) const {
        const std::string& file = files[number];
        const auto aside = put_aside(workshop, number);
        const std::string contents = read_input(std::filesystem::exists(aside) ? aside.string() : file);
        const LoadedTheme theme = load_theme(workshop, file, contents);
        if (theme.config->getVisibleKeycaps() != caps) {
            write_output(aside, contents);
            return Answer::other_caps;
        }
        wear(theme.config);
        const DrawnKeyboard keyboard = draw_keyboard(pair_of(theme.config).labels);
        write_output(piece_of(workshop, number),
                     gallery_piece({.file = file,
                                    .name = tools::utf8(theme.config->getConfigName()),
                                    .contents = contents,
                                    .digest = tools::sha256_of(contents),
                                    .colours = colours_of(theme.config, keyboard.background),
                                    .folder = std::filesystem::path(output).parent_path()},
                                   keyboard));
        std::filesystem::remove(aside);
        return Answer::drawn;
    }

    void write(const Workshop& workshop, const Build& build, const std::vector<Status>& ends) const {
        Output page(output);
        const auto drawn = static_cast<size_t>(std::ranges::count(ends, Status::fine));
        page.write(gallery_head(drawn, build.digest));
        for (size_t number = 0; number < files.size(); ++number) {
            if (ends[number] != Status::fine) continue;
            const auto piece = piece_of(workshop, number);
            page.write(read_input(piece));
            std::filesystem::remove(piece);
        }
        page.write(gallery_end());
        page.finish();
    }

    void report(const std::vector<Status>& ends) const {
        if (output == "-") return;
        const auto drawn = static_cast<size_t>(std::ranges::count(ends, Status::fine));
        if (json) {
            Json themes = Json::array();
            for (size_t number = 0; number < files.size(); ++number)
                themes.push_back({{"file", files[number]}, {"drawn", ends[number] == Status::fine}});
            std::fputs(printed({{"page", output}, {"themes", themes}}).c_str(), stdout);
        } else {
            std::printf("%s shows %s\n", toned(Tone::strong, one_line(output, 4096)).c_str(),
                        counted(drawn, "theme").c_str());
        }
    }
};

}  // namespace

void add_gallery(CLI::App& command, Request& request) {
    auto options = std::make_shared<Gallery>();
    const Subcommand sub =
        add_subcommand(command, request, "gallery", "Write a page with the keyboard in each theme", options);
    sub.add_option("THEMES", options->files, "The themes").required().type_name("FILE");
    sub.add_option("-o,--output", options->output, "The page to write, as HTML; - is standard output")
        .required()
        .type_name("FILE");
    add_library(sub, options->library);
    add_force(sub, options->force);
    add_json(sub, options->json);
    sub.footer(
        "The page is one file, with the pictures and the smaller themes in it. To others, those with images, "
        "it\n"
        "links where they lie from where it lies: keep them together.\n\n"
        "Example:\n"
        "  huecraft gallery themes/*.plist -o gallery.html");
}

}  // namespace command
