// huecraft picker: the library's colour picker on a simulated phone, touched by a script.
#include <cstdio>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/terminal.h"
#include "model/HCCITool.h"
#include "picker/picker_files.h"
#include "picker/picker_session.h"
#include "scripts/script_options.h"
#include "support/provenance.h"
#include "support/text.h"

namespace command {
namespace {

namespace fs = std::filesystem;
using Kind = PickerEvent::Kind;

const char* name_of(Kind kind) {
    switch (kind) {
        case Kind::notified: return "notified";
        case Kind::shook: return "shook";
        case Kind::closed: return "closed";
        case Kind::raised: return "raised";
        case Kind::stood_still: return "stoodStill";
    }
    __builtin_unreachable();
}

struct Picker : ScriptOptions {
    std::string palette = "light", colour, theme, key = "text";
    PickerFiles files;

    Status operator()() const {
        if (save && files.device.empty() && files.recent.empty() && theme.empty())
            throw Unusable("--save",
                           "there is nothing to save to; it goes with --device, --recent or --theme");
        const PickerScript played = parse_picker_script(file(), text("picker"));
        if (output.empty()) require_no_pictures(played);
        require_folder_or_nothing(output);
        return in_workshop([&](const Workshop& workshop) {
            const auto build = command::library(library);
            const tools::Provenance provenance{tools::sha256_of(read_input(build, "library", largest_input)),
                                               ""};
            workshop.install_settings_pictures();
            files.lend(workshop);
            if (palette == "eclipse") install_eclipse(workshop);
            tools::boot(workshop.device, tools::settings, screen());
            tools::load(build);
            Status status = Status::fine;
            on_the_phone(script.empty() ? "the picker" : script,
                         [&] { status = show(workshop, played, provenance); });
            return status;
        });
    }

  private:
    Status show(const Workshop& workshop, const PickerScript& played,
                const tools::Provenance& provenance) const {
        std::unique_ptr<EditedTheme> edited;
        if (!theme.empty()) edited = std::make_unique<EditedTheme>(workshop, theme, key);
        PickerSetup setup{.dark = palette == "dark",
                          .colour = edited ? edited->colour() : nullptr,
                          .scale = scale,
                          .pictures = workshop.device.parent_path() / "pictures",
                          .chosen = nullptr};
        if (!colour.empty()) setup.colour = HCCITool::colorFromHexString(tools::text(colour));
        if (edited) setup.chosen = [&](UIColor* chosen) { edited->set_colour(chosen); };
        fs::create_directories(setup.pictures);

        const PickerRun run = play(played, setup);
        const RecentColours recent = recent_colours(workshop, files.recent_file());
        // From here on the user's files are written, each of them whole.
        write(run.pictures, {script, theme, files.recent, library}, [&](const std::string& picture) {
            return tools::with_provenance(read_input(setup.pictures / picture, "picture"), provenance);
        });
        if (save) {
            if (!files.device.empty() || !files.recent.empty()) files.take_back(workshop);
            if (edited && edited->has_changed()) edited->save(workshop);
        }
        json ? report_in_json(played, run, recent, edited.get()) : report(played, run, recent, edited.get());
        return run.raised() ? Status::finding : Status::fine;
    }

    static Json pasteboard() { return json_of(UIPasteboard::generalPasteboard()->string()); }

    // ---- What is said of it

    static std::string place(const PickerScript& played, const PickerEvent& event) {
        return event.line ? played.place(event.line) : "opening the picker";
    }

    static std::string in_words(const PickerEvent& event) {
        switch (event.kind) {
            case Kind::notified:
                return "the delegate received " + toned(Tone::strong, event.first) + ", the text " +
                       in_quotes(event.second);
            case Kind::shook: return "the panel shook: the input was refused";
            case Kind::closed: return "the picker closed";
            case Kind::stood_still:
                return "the recording " + in_quotes(event.first) +
                       " has one frame: no time passed; wait lets it";
            case Kind::raised:
                return toned(Tone::bad, event.first) + " was raised: " + one_line(event.second, 500);
        }
        __builtin_unreachable();
    }

    void report(const PickerScript& played, const PickerRun& run, const RecentColours& recent,
                const EditedTheme* edited) const {
        for (const PickerEvent& event : run.events)
            std::printf("%s: at %.6g s %s\n", one_line(place(played, event), 4096).c_str(), event.time,
                        in_words(event).c_str());
        std::printf("recent colours: %s\n", recent.words.c_str());
        const Json copied = pasteboard();
        std::printf("pasteboard: %s\n",
                    copied.is_null() ? "empty" : in_quotes(copied.get<std::string>()).c_str());
        if (edited)
            std::printf("theme: %s is %s\n", edited->key().c_str(),
                        command::in_words(edited->stored()).c_str());
        print(run.pictures);
    }

    static Json in_json(const PickerEvent& event) {
        Json json{{"event", name_of(event.kind)},
                  {"line", event.line ? Json(event.line) : Json(nullptr)},
                  {"time", event.time}};
        if (event.kind == Kind::notified) json.update({{"color", event.first}, {"text", event.second}});
        if (event.kind == Kind::stood_still) json["picture"] = event.first + ".png";
        if (event.kind == Kind::raised) json.update({{"name", event.first}, {"reason", event.second}});
        return json;
    }

    void report_in_json(const PickerScript& played, const PickerRun& run, const RecentColours& recent,
                        const EditedTheme* edited) const {
        Json events = Json::array();
        for (const PickerEvent& event : run.events) events.push_back(in_json(event));
        Json all{{"script", played.file},
                 {"events", events},
                 {"recentColors", recent.json},
                 {"pasteboard", pasteboard()}};
        if (edited) all["theme"] = {{edited->key(), json_of(edited->stored())}};
        all["pictures"] = places_of(run.pictures);
        std::fputs(printed(all).c_str(), stdout);
    }
};

}  // namespace

void add_picker(CLI::App& command, Request& request) {
    auto options = std::make_shared<Picker>();
    const Subcommand sub =
        add_subcommand(command, request, "picker",
                       "Open the colour picker of the settings pane and play a script on it", options);
    add_first_script_options(sub, *options);
    sub.add_option("--width", options->width, "The screen's width in points")
        .takes_one_of({"320", "375", "414"});
    sub.add_option("--palette", options->palette, "How the panel is painted")
        .takes_one_of({"light", "dark", "eclipse"});
    sub.add_option("--color", options->colour, "The colour that is to be changed").takes_colour();
    sub.add_option("--device", options->files.device,
                   "A folder that plays a device's file system; what the picker reads is copied from there")
        .type_name("DIR");
    sub.add_option("--recent", options->files.recent, "The recent colours' file, in place of the device's")
        .type_name("FILE");
    const Option theme =
        sub.add_option("--theme", options->theme, "A theme of which a colour is changed").type_name("FILE");
    sub.add_option("--key", options->key, "Which colour of the theme")
        .takes_one_of({"text", "highlight"})
        .needs(theme);
    sub.add_flag("--save", options->save, "Write what has changed back to --recent, --device and --theme");
    add_last_script_options(sub, *options);
    sub.footer(
        "Instructions:\n"
        "  tap \"TEXT\"           what has the text on it: \"SELECT\", \"X\", \"Tap to Edit\"\n"
        "  tap field|copy|paste the hex field, the two buttons in it\n"
        "  tap 1…6              a recent colour, from the left\n"
        "  drag red|green|blue|alpha VALUE\n"
        "  type \"TEXT\"          keys, one after the other; return and delete [TIMES] are keys too\n"
        "  select all|PLACE LENGTH\n"
        "  pasteboard \"TEXT\"    what another application copied\n"
        "  wait SECONDS         time passes in no other way; the panel is in its place after 1 s\n"
        "  picture NAME         NAME.png\n"
        "  record NAME [FRAMES] NAME.png, animated, so many frames a second (30); until stop or the end\n"
        "  open                 another picker, when the one before is closed\n"
        "What follows a # is a comment. An exception of the library's ends the script; the exit status is "
        "1.\n"
        "The user's files stay as they are without --save, and when the exit status is 2.\n\n"
        "Examples:\n"
        "  huecraft picker -o pictures\n"
        "  huecraft picker --script choose.txt --color 3478F6 --width 320 -o pictures\n"
        "  echo 'tap 6' | huecraft picker --script - --recent com.quillmoth.hcrecentcolors.plist --json\n"
        "  huecraft picker --theme Midnight.plist --key highlight --script choose.txt --save");
}

}  // namespace command
