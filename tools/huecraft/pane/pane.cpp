// huecraft pane: the settings pane in the simulated Settings app, touched by a script.
#include <cstdio>
#include <map>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"
#include "pane/pane_phone.h"
#include "pane/pane_session.h"
#include "support/phone.h"
#include "support/provenance.h"
#include "themes/keyboard_picture.h"

namespace command {
namespace {

namespace fs = std::filesystem;
using Kind = PaneEvent::Kind;

/// The screens of phones with iOS 12, by width, and an iPad's.
const std::map<std::string, tools::Screen> screens{
    {"320", {320, 568, 2}}, {"375", {375, 667, 2}}, {"414", {414, 736, 3}}, {"768", {768, 1024, 2}}};

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

struct Pane {
    std::string script, output, device, width = "375", language = "en", library, image;
    std::vector<std::string> packages, photos;
    double scale = 0;
    bool right_to_left = false, save = false, force = false, json = false;

    Status operator()() const {
        if (save && device.empty())
            throw Unusable("--save", "there is nothing to save to; it goes with --device");
        const PaneScript played = read_script();
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
    PaneScript read_script() const {
        if (!script.empty()) return parse_pane_script(script, read_input(script, "script", largest_text));
        // Nothing but the pane's first screen.
        return parse_pane_script("the script", output.empty() ? "wait 1" : "wait 1\npicture pane");
    }

    static const PaneInstruction& last_of(const PaneScript& played) {
        static const PaneInstruction nothing = say::Wait{0};
        return played.instructions.empty() ? nothing : played.instructions.back().what;
    }

    void boot(const Workshop& workshop, const char* executable) const {
        const tools::Screen screen = screens.at(width);
        const std::string root = workshop.device.string();
        sim_options options{};
        options.size = sizeof options;
        options.root = root.c_str();
        options.executable = executable;
        options.screen_width = screen.width;
        options.screen_height = screen.height;
        options.screen_scale = screen.scale;
        options.language = language.c_str();
        options.right_to_left = right_to_left;
        tools::require(sim_boot(&options), "switching the phone on");
    }

    Status show(const Workshop& workshop, const PaneScript& played, const fs::path& build,
                const tools::Provenance& provenance) const {
        boot(workshop, tools::settings);
        tools::load(build);
        const PaneSetup setup{.scale = scale, .pictures = workshop.device.parent_path() / "pictures"};
        fs::create_directories(setup.pictures);
        PaneRun run;
        on_the_phone(script.empty() ? "the settings pane" : script, [&] { run = play(played, setup); });
        if (!run.pictures.empty()) make_folder(output);
        for (const std::string& picture : run.pictures) protect(picture);
        for (const std::string& picture : run.pictures)
            write_output(fs::path(output) / picture,
                         tools::with_provenance(
                             read_input(setup.pictures / picture, "picture", largest_input), provenance));
        if (const auto* keyboard = std::get_if<say::Keyboard>(&last_of(played)); keyboard && !run.raised())
            run.pictures.push_back(keyboard->name + ".png");
        json ? print_json(workshop, played, run) : print(workshop, played, run);
        return run.raised() ? Status::finding : Status::fine;
    }

    /// The keyboard of Notes, which starts now, after Settings has ended.
    Status draw(const Workshop& workshop, const say::Keyboard& wanted, const fs::path& build,
                const tools::Provenance& provenance) const {
        boot(workshop, tools::notes);
        tools::load(build);
        sim_keyboard keyboard{};
        keyboard.size = sizeof keyboard;
        const std::string picture = wanted.name + ".png";
        protect(picture);
        make_folder(output);
        write_output(fs::path(output) / picture, keyboard_picture(workshop, keyboard, scale, provenance));
        return Status::fine;
    }

    void protect(const std::string& picture) const {
        std::vector<std::string> inputs{script, library, image};
        inputs.insert(inputs.end(), packages.begin(), packages.end());
        inputs.insert(inputs.end(), photos.begin(), photos.end());
        if (!force) require_replaceable(fs::path(output) / picture, OutputKind::picture, inputs);
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

    void print(const Workshop& workshop, const PaneScript& played, const PaneRun& run) const {
        for (const PaneEvent& event : run.events)
            std::printf("%s: %s\n",
                        one_line(event.line ? played.place(event.line) : "opening Settings", 4096).c_str(),
                        in_words(event).c_str());
        std::printf("preferences: %s\n", preferences_in_words(workshop).c_str());
        const auto themes = themes_of_user(workshop);
        std::printf("themes: %s\n", themes.empty() ? "none" : one_line(joined(themes), 4096).c_str());
        for (const std::string& picture : run.pictures)
            std::printf("picture: %s\n", one_line((fs::path(output) / picture).string(), 4096).c_str());
    }

    void print_json(const Workshop& workshop, const PaneScript& played, const PaneRun& run) const {
        Json events = Json::array(), pictures = Json::array();
        for (const PaneEvent& event : run.events)
            events.push_back({{"event", name_of(event.kind)},
                              {"line", event.line ? Json(event.line) : Json(nullptr)},
                              {"what", event.what}});
        for (const std::string& picture : run.pictures)
            pictures.push_back((fs::path(output) / picture).string());
        std::fputs(printed({{"script", played.file},
                            {"events", events},
                            {"preferences", preferences_in_words(workshop)},
                            {"themes", themes_of_user(workshop)},
                            {"pictures", pictures}})
                       .c_str(),
                   stdout);
    }
};

}  // namespace

void add_pane(CLI::App& command, Request& request) {
    auto options = std::make_shared<Pane>();
    CLI::App* sub =
        add_subcommand(command, request, "pane",
                       "Open the settings pane in the simulated Settings and play a script on it", options);
    sub->add_option("--script", options->script,
                    "What to do with it, one instruction a line; - is standard input")
        ->type_name("FILE");
    sub->add_option("-o,--output", options->output, "The folder for pictures; it is made if it is missing")
        ->type_name("DIR");
    taking_one_of(
        sub->add_option("--width", options->width, "The screen's width in points; 768 is an iPad's"),
        {"320", "375", "414", "768"});
    taking_one_of(sub->add_option("--language", options->language, "The phone's language"),
                  {"de", "en", "es", "fr", "ja", "zh-Hans"});
    sub->add_flag("--right-to-left", options->right_to_left, "Lay the screens out from right to left");
    sub->add_option(
           "--device", options->device,
           "A folder that plays a device's file system; themes, preferences and photos are copied from there")
        ->type_name("DIR");
    sub->add_option("--photo", options->photos, "A picture in the phone's photo library; may be repeated")
        ->type_name("FILE");
    sub->add_flag("--save", options->save, "Write themes and preferences back to --device");
    sub->add_option("--package", options->packages,
                    "A package that is installed on the phone; the command's own two without it")
        ->type_name("FILE");
    sub->add_option("--pane", options->image,
                    "The build of the pane that runs, ELF or Mach-O; the command's own without it")
        ->type_name("FILE");
    taking_number(sub->add_option("--scale", options->scale, "Pixels per point; the screen's without it"),
                  0.1, 8);
    add_library(sub, options->library);
    add_force(sub, options->force);
    add_json(sub, options->json);
    sub->footer(
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
