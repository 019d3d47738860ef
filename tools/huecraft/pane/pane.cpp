// huecraft pane: the settings pane in the simulated Settings app, touched by a script.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "pane/pane_phone.h"
#include "pane/pane_session.h"
#include "scripts/script_options.h"
#include "support/provenance.h"
#include "themes/keyboard_picture.h"

namespace command {
namespace {

namespace fs = std::filesystem;
using Kind = PaneEvent::Kind;

const char* name_of(Kind kind) {
    switch (kind) {
        case Kind::started: return "started";
        case Kind::opened: return "opened";
        case Kind::shared: return "shared";
        case Kind::raised: return "raised";
        case Kind::stood_still: return "stoodStill";
    }
    __builtin_unreachable();
}

struct Pane : ScriptOptions {
    std::string device, language = "en", image;
    std::vector<std::string> packages, photos;
    bool right_to_left = false;

    Status operator()() const {
        if (save && device.empty())
            throw Unusable("--save", "there is nothing to save to; it goes with --device");
        const PaneScript played = parse_pane_script(file(), text("pane"));
        if (output.empty()) {
            require_no_pictures(played);
            if (std::holds_alternative<say::Keyboard>(last_of(played)))
                throw Unusable(played.place(played.instructions.back().line),
                               "pictures need a folder to go to: say -o DIR");
        }
        require_folder_or_nothing(output);
        return in_workshop([&](const Workshop& workshop) {
            lay_out(workshop, packages, pane_image(image));
            if (!device.empty()) lend_device(workshop, device);
            for (const std::string& photo : photos) add_photo(workshop, photo);
            const auto build = command::library(library);
            const tools::Provenance provenance{tools::sha256_of(read_input(build, "library", largest_input)),
                                               ""};
            const Status status = in_child([&] { return show(workshop, played, build, provenance); });
            if (status == Status::unusable) return status;
            // What is still to be drawn comes from an application that starts afterwards.
            if (const auto* keyboard = std::get_if<say::Keyboard>(&last_of(played)))
                if (const Status drawn =
                        in_child([&] { return draw(workshop, *keyboard, build, provenance); });
                    drawn != Status::fine)
                    return drawn;
            if (save) take_back_device(workshop, device);
            return status;
        });
    }

  private:
    static const PaneInstruction& last_of(const PaneScript& played) {
        static const PaneInstruction nothing = say::Wait{0};
        return played.instructions.empty() ? nothing : played.instructions.back().what;
    }

    void boot(const Workshop& workshop, const char* executable) const {
        tools::boot(workshop.device, executable, screen(), {language.c_str(), right_to_left});
    }

    Status show(const Workshop& workshop, const PaneScript& played, const fs::path& build,
                const tools::Provenance& provenance) const {
        boot(workshop, tools::settings);
        tools::load(build);
        const PaneSetup setup{.scale = scale, .pictures = workshop.device.parent_path() / "pictures"};
        fs::create_directories(setup.pictures);
        PaneRun run;
        on_the_phone(script.empty() ? "the settings pane" : script, [&] { run = play(played, setup); });
        write(run.pictures, inputs(), [&](const std::string& picture) {
            return tools::with_provenance(read_input(setup.pictures / picture, "picture", largest_input),
                                          provenance);
        });
        if (const auto* keyboard = std::get_if<say::Keyboard>(&last_of(played)); keyboard && !run.raised())
            run.pictures.push_back(keyboard->name + ".png");
        json ? report_in_json(workshop, played, run) : report(workshop, played, run);
        return run.raised() ? Status::finding : Status::fine;
    }

    /// The keyboard of Notes, which starts now, after Settings has ended.
    Status draw(const Workshop& workshop, const say::Keyboard& wanted, const fs::path& build,
                const tools::Provenance& provenance) const {
        boot(workshop, tools::notes);
        tools::load(build);
        sim_keyboard keyboard{};
        keyboard.size = sizeof keyboard;
        write({wanted.name + ".png"}, inputs(),
              [&](const std::string&) { return keyboard_picture(workshop, keyboard, scale, provenance); });
        return Status::fine;
    }

    std::vector<std::string> inputs() const {
        std::vector<std::string> all{script, library, image};
        all.insert(all.end(), packages.begin(), packages.end());
        all.insert(all.end(), photos.begin(), photos.end());
        return all;
    }

    // ---- What is said of it

    static std::string in_words(const PaneEvent& event) {
        switch (event.kind) {
            case Kind::started: return "started " + one_line(event.what, 500);
            case Kind::opened: return "opened " + one_line(event.what, 500);
            case Kind::shared: return "shared " + one_line(event.what, 500);
            case Kind::stood_still:
                return "the recording " + in_quotes(event.what) +
                       " has one frame: no time passed; wait lets it";
            case Kind::raised: return toned(Tone::bad, "raised: ") + one_line(event.what, 500);
        }
        __builtin_unreachable();
    }

    void report(const Workshop& workshop, const PaneScript& played, const PaneRun& run) const {
        for (const PaneEvent& event : run.events)
            std::printf("%s: %s\n",
                        one_line(event.line ? played.place(event.line) : "opening Settings", 4096).c_str(),
                        in_words(event).c_str());
        std::printf("preferences: %s\n", preferences_in_words(workshop).c_str());
        const auto themes = themes_of_user(workshop);
        std::printf("themes: %s\n", themes.empty() ? "none" : one_line(joined(themes), 4096).c_str());
        print(run.pictures);
    }

    void report_in_json(const Workshop& workshop, const PaneScript& played, const PaneRun& run) const {
        Json events = Json::array();
        for (const PaneEvent& event : run.events)
            events.push_back({{"event", name_of(event.kind)},
                              {"line", event.line ? Json(event.line) : Json(nullptr)},
                              {"what", event.what}});
        std::fputs(printed({{"script", played.file},
                            {"events", events},
                            {"preferences", preferences_in_words(workshop)},
                            {"themes", themes_of_user(workshop)},
                            {"pictures", places_of(run.pictures)}})
                       .c_str(),
                   stdout);
    }
};

}  // namespace

void add_pane(CLI::App& command, Request& request) {
    auto options = std::make_shared<Pane>();
    const Subcommand sub =
        add_subcommand(command, request, "pane",
                       "Open the settings pane in the simulated Settings and play a script on it", options);
    add_first_script_options(sub, *options);
    sub.add_option("--width", options->width, "The screen's width in points; 768 is an iPad's")
        .takes_one_of({"320", "375", "414", "768"});
    sub.add_option("--language", options->language, "The phone's language")
        .takes_one_of({"de", "en", "es", "fr", "ja", "zh-Hans"});
    sub.add_flag("--right-to-left", options->right_to_left, "Lay the screens out from right to left");
    sub.add_option(
           "--device", options->device,
           "A folder that plays a device's file system; themes, preferences and photos are copied from there")
        .type_name("DIR");
    sub.add_option("--photo", options->photos, "A picture in the phone's photo library; may be repeated")
        .type_name("FILE");
    sub.add_flag("--save", options->save, "Write themes and preferences back to --device");
    sub.add_option("--package", options->packages,
                   "A package that is installed on the phone; the command's own two without it")
        .type_name("FILE");
    sub.add_option("--pane", options->image,
                   "The build of the pane that runs, ELF or Mach-O; the command's own without it")
        .type_name("FILE");
    add_last_script_options(sub, *options);
    sub.footer(
        "Instructions:\n"
        "  tap \"LABEL\"|X Y      what VoiceOver calls it: a row's name, a button's; or a point\n"
        "  drag X Y X Y [STEPS] a finger from one point to another\n"
        "  pinch X Y FROM TO    two fingers around a point, from one distance to another\n"
        "  type \"TEXT\"          keys, one after the other; return and delete [TIMES] are keys too\n"
        "  pasteboard \"TEXT\"    what another application copied\n"
        "  wait SECONDS         time passes in no other way; a screen is in its place after 1 s\n"
        "  warn-of-memory       the system runs out of it\n"
        "  picture NAME         NAME.png\n"
        "  record NAME [FRAMES] NAME.png, animated, so many frames a second (30); until stop or the end\n"
        "  keyboard NAME        the end: NAME.png is the keyboard of Notes, started after Settings\n"
        "What follows a # is a comment. An exception ends the script; the exit status is 1.\n"
        "The user's files stay as they are without --save, and when the exit status is 2.\n\n"
        "Examples:\n"
        "  huecraft pane -o pictures\n"
        "  huecraft pane --script choose.txt --device phone --save -o pictures\n"
        "  printf 'tap \"Peach\"\\nkeyboard peach\\n' | huecraft pane --script - -o pictures");
}

}  // namespace command
