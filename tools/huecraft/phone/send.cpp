// huecraft send: brings themes to a phone over ssh, and chooses one of them there.
#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "cli/command_line.h"
#include "cli/files.h"
#include "cli/shell_words.h"
#include "cli/terminal.h"
#include "formats/property_list.h"
#include "formats/value.h"
#include "phone/remote.h"
#include "support/phone.h"
#include "support/text.h"
#include "themes/parcel.h"

namespace command {
namespace {

using tools::text;

// All below one folder, so that what has arrived is put in place by renaming.
constexpr const char* folder = "/var/mobile/Library/Preferences";
constexpr const char* themes_folder = "/var/mobile/Library/Preferences/HuecraftConfiguration";
constexpr const char* incoming = "/var/mobile/Library/Preferences/.huecraft-incoming";
const std::string preferences_name = "com.quillmoth.huecraftios12.plist";
// No theme's file is called so.
const std::string preferences_draft = "preferences";

/// mobile, the user whose files these are, and its group.
constexpr const char* owner = "501:501";

/// What ssh answers of its own, and not of the script.
constexpr int no_connection = 255;

/// What the last script answers when everything but the restart is done.
constexpr int only_the_restart_failed = 75;

struct Send {
    std::vector<std::string> words;  ///< the themes, and last the phone
    std::string choice;
    unsigned port = 0;
    bool restart = false, dry = false, json = false;

    Status operator()() const {
        if (words.size() < 2)
            throw Unusable(
                "send", "found " + in_quotes(words[0]) + " alone, expected themes and behind them USER@HOST");
        std::error_code not_a_path;
        if (std::filesystem::exists(words.back(), not_a_path))
            throw Unusable(words.back(), "it is a file, expected USER@HOST behind the themes");
        RemotePhone phone = remote_phone(words.back());
        phone.port = port;
        return in_workshop([&](const Workshop& workshop) {
            tools::boot(workshop.device, tools::settings);
            tools::load(library());
            const auto themes = parcel(workshop, {words.begin(), words.end() - 1});
            if (!themes) {
                complain(phone.name(), "nothing was sent");
                return Status::unusable;
            }
            send(workshop, phone, *themes);
            return Status::fine;
        });
    }

  private:
    void send(const Workshop& workshop, const RemotePhone& phone,
              const std::vector<ParcelledTheme>& themes) const {
        const ParcelledTheme* chosen = choice.empty() ? nullptr : &chosen_of(themes);
        const std::string preferences = workshop.scratch(preferences_draft);
        std::vector<std::string> files;
        for (const ParcelledTheme& theme : themes) files.push_back(theme.file);
        if (chosen) files.push_back(preferences);
        const auto preparing = phone.run(script_that_prepares()), copying = phone.copy(files, incoming),
                   placing = phone.run(script_that_places(themes));
        if (dry) return print({preparing, copying, placing}, chosen);

        std::string before;
        require(phone, run_program(preparing, &before), "preparing the folders");
        if (chosen) write_output(preferences, preferences_with(before, *chosen, phone));
        require(phone, run_program(copying), "copying the files");
        const int status = run_program(placing);
        if (status == only_the_restart_failed)
            throw Unusable(phone.name(), "the themes are there, but SpringBoard did not restart");
        if (status == no_connection)
            throw Unusable(phone.name(),
                           "the connection was lost while the files were put in place, each of which is "
                           "the old one or the new; send them again");
        require(phone, status, "putting the files in place");
        report(phone, themes, chosen);
    }

    /// By the name of its file, with or without its end, or by its own.
    const ParcelledTheme& chosen_of(const std::vector<ParcelledTheme>& themes) const {
        std::string names;
        for (const ParcelledTheme& theme : themes) {
            if (choice == theme.name || choice == theme.stem() || choice == theme.title) return theme;
            names += (names.empty() ? "" : ", ") + theme.stem();
        }
        throw Unusable("--choose", "found " + in_quotes(choice) +
                                       ", expected one of the themes sent: " + one_line(names, 1000));
    }

    /// What an interrupted run left goes first. With a choice it answers the preferences that are there.
    std::string script_that_prepares() const {
        std::string script =
            std::string("set -e; rm -rf ") + incoming + "; mkdir -p " + themes_folder + " " + incoming;
        if (!choice.empty()) {
            const std::string file = std::string(folder) + "/" + preferences_name;
            script += "; test ! -e " + file + " || cat " + file;
        }
        return script;
    }

    /// Everything that can fail comes before the first renaming, and the preferences, which name a theme,
    /// come last.
    std::string script_that_places(const std::vector<ParcelledTheme>& themes) const {
        std::string script = std::string("set -e; cd ") + incoming + "; trap 'rm -rf " + incoming + "' EXIT";
        std::string names;
        for (const ParcelledTheme& theme : themes) names += " " + shell_word("./" + theme.name);
        const std::string all = choice.empty() ? names : names + " ./" + preferences_draft;
        script += std::string("; chown ") + owner + " " + themes_folder + all + "; chmod 755 " +
                  themes_folder + "; chmod 644" + all;
        if (!choice.empty())
            script += "; test ! -e ../" + preferences_name + " || cp -p ../" + preferences_name + " ../" +
                      preferences_name + ".before";
        script += "; mv -f" + names + " " + themes_folder + "/";
        if (!choice.empty()) script += "; mv -f ./" + preferences_draft + " ../" + preferences_name;
        if (restart) script += "; killall SpringBoard || exit " + std::to_string(only_the_restart_failed);
        return script;
    }

    /// The preferences that the phone has, in the form that they have, with the theme chosen. Keys of others
    /// stay.
    static std::string preferences_with(const std::string& before, const ParcelledTheme& chosen,
                                        const RemotePhone& phone) {
        const std::string place = phone.name() + ":" + folder + "/" + preferences_name;
        std::string contents;
        on_the_phone(place, [&] {
            objc::strong<NSMutableDictionary> preferences = NSMutableDictionary::alloc()->initWithCapacity(2);
            Form form = Form::xml;
            if (!before.empty()) {
                const PropertyList list = parse_property_list(before, place);
                if (kind_of(list.root) != Kind::dictionary)
                    throw Unusable(place, "found " + name_of(kind_of(list.root)) +
                                              ", expected a dictionary of preferences; nothing was changed");
                preferences = static_cast<NSDictionary*>(list.root)->mutableCopy();
                if (list.form == Form::binary) form = Form::binary;  // the old form has no booleans
            }
            preferences->setObject(NSNumber::numberWithBool(true), text("_Enabled"));
            preferences->setObject(text(chosen.name), text("_Config"));
            Losses losses;
            contents = written_property_list(preferences, form, place, losses);
        });
        return contents;
    }

    static void require(const RemotePhone& phone, int status, const std::string& doing) {
        if (status == 0) return;
        const std::string unchanged = "; themes and preferences are as they were";
        if (status == no_connection)
            throw Unusable(phone.name(), doing + " failed: ssh has no connection" + unchanged);
        throw Unusable(phone.name(),
                       doing + " failed with exit status " + std::to_string(status) + unchanged);
    }

    static void print(const std::vector<std::vector<std::string>>& commands, const ParcelledTheme* chosen) {
        for (const auto& command : commands) std::printf("%s\n", shell_line(command).c_str());
        if (chosen)
            std::printf(
                "# The last file copied has the preferences that the first command prints, with _Enabled "
                "true and "
                "_Config %s.\n",
                in_quotes(chosen->name).c_str());
    }

    void report(const RemotePhone& phone, const std::vector<ParcelledTheme>& themes,
                const ParcelledTheme* chosen) const {
        if (json) {
            Json names = Json::array();
            for (const ParcelledTheme& theme : themes) names.push_back(theme.name);
            std::fputs(printed({{"phone", phone.name()},
                                {"sent", names},
                                {"chosen", chosen ? Json(chosen->name) : Json(nullptr)},
                                {"restarted", restart}})
                           .c_str(),
                       stdout);
            return;
        }
        std::printf("sent to %s:", toned(Tone::strong, phone.name()).c_str());
        for (const ParcelledTheme& theme : themes) std::printf(" %s", one_line(theme.name, 300).c_str());
        std::printf("\n");
        if (chosen) std::printf("  chosen: %s\n", one_line(chosen->title, 300).c_str());
        if (!restart && chosen)
            std::printf("  processes read their theme when they start: killall SpringBoard, or --restart\n");
    }
};

}  // namespace

void add_send(CLI::App& command, Request& request) {
    auto options = std::make_shared<Send>();
    const Subcommand sub = add_subcommand(command, request, "send",
                                          "Bring themes to a phone, over your own ssh and scp", options);
    sub.add_option("THEMES", options->words,
                   "The themes, and last the phone, as USER@HOST; an address with colons stands in brackets")
        .required()
        .type_name("FILE");
    sub.add_option("--choose", options->choice,
                   "The theme that the phone wears from now on, one of those sent")
        .type_name("NAME");
    sub.add_option("--port", options->port, "The port of ssh, where its configuration does not say")
        .takes_whole_number(1, 65535);
    sub.add_flag("--restart", options->restart, "Restart SpringBoard, so that the theme is read");
    sub.add_flag("--dry-run", options->dry, "Print the commands, and run none");
    add_json(sub, options->json);
    sub.footer(
        "Themes are checked first; where one has an error, nothing is sent. A theme of the same name is "
        "replaced.\n"
        "The phone's preferences keep the keys of others, and as they were they lie beside them, with "
        "\".before\" behind\n"
        "their name. Hosts, keys and passwords are ssh's affair; it is run twice, and scp once.\n\n"
        "Examples:\n"
        "  huecraft send Midnight.plist root@phone --choose Midnight --restart\n"
        "  huecraft send themes/*.plist root@localhost --port 2222 --dry-run");
}

}  // namespace command
