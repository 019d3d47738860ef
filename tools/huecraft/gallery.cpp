// huecraft gallery: a page with the preview and the keyboard of many themes.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <thread>

#include "command_line.h"
#include "files.h"
#include "gallery_page.h"
#include "keyboard_picture.h"
#include "support/phone.h"
#include "support/text.h"
#include "terminal.h"
#include "theme.h"
#include "value.h"

namespace command {
namespace {

constexpr double picture_scale = 1;

/// Where the pictures of the theme of a number lie until they are on the page.
struct Drawn {
    std::filesystem::path preview, keyboard, name;

    Drawn(const Workshop& workshop, size_t number)
        : preview(workshop.scratch(std::to_string(number) + "-preview.png")),
          keyboard(workshop.scratch(std::to_string(number) + "-keyboard.png")),
          name(workshop.scratch(std::to_string(number) + "-name")) {}

    void remove() const {
        for (const auto& file : {preview, keyboard, name}) std::filesystem::remove(file);
    }
};

/// What a worker tells when a theme is done.
struct Message {
    size_t number;
    Status status;
};

struct Gallery {
    std::vector<std::string> files;
    std::string output;
    bool json = false;

    Status operator()() const {
        return in_workshop([this](const Workshop& workshop) {
            Output{output};  // before the work, which would be lost without a place for it
            std::vector<Status> ends(files.size(), Status::unusable);
            draw_all(workshop, ends);
            write(workshop, ends);
            Status all = Status::fine;
            for (Status one : ends) note(all, one);
            report(ends);
            return all;
        });
    }

  private:
    /// As many workers as processors, each with a phone of its own that is switched on once.
    void draw_all(const Workshop& workshop, std::vector<Status>& ends) const {
        int ends_of_pipe[2];
        if (pipe(ends_of_pipe) != 0) throw Unusable("a pipe", std::strerror(errno));
        const auto [reading, writing] = ends_of_pipe;
        const size_t workers =
            std::min<size_t>(files.size(), std::max(1u, std::thread::hardware_concurrency()));
        std::vector<pid_t> children;
        for (size_t worker = 0; worker < workers; ++worker)
            children.push_back(start_child([&, worker] {
                close(reading);
                work(workshop, worker, workers, writing);
                return Status::fine;
            }));
        close(writing);
        Progress progress("drawing", files.size());
        size_t done = 0;
        for (Message message; read(reading, &message, sizeof message) == sizeof message;) {
            ends.at(message.number) = message.status;
            progress.advance_to(++done);
        }
        close(reading);
        for (pid_t child : children) end_of_child(child);
    }

    /// Every theme in a process that begins with the phone switched on: the library reads its theme once,
    /// when it is loaded, and what a theme takes of memory goes with its process.
    void work(const Workshop& workshop, size_t first, size_t step, int writing) const {
        const Workshop own = workshop.another("device-" + std::to_string(first));
        own.install_settings_pictures();
        tools::boot(own.device, tools::notes);
        for (size_t number = first; number < files.size(); number += step) {
            const Status status = in_child([&] {
                draw(files[number], own, Drawn(workshop, number));
                return Status::fine;
            });
            const Message message{number, status};
            if (write_message(writing, message)) return;
        }
    }

    /// True when nobody listens any more.
    static bool write_message(int writing, const Message& message) {
        return ::write(writing, &message, sizeof message) != sizeof message;
    }

    static void draw(const std::string& file, const Workshop& own, const Drawn& drawn) {
        put_on_theme(own, file);
        write_output(drawn.preview, preview_picture(own, file, picture_scale));
        sim_keyboard keyboard{};
        keyboard.size = sizeof keyboard;
        write_output(drawn.keyboard, keyboard_picture(own, keyboard, picture_scale));
        objc::AutoreleasePool pool;
        write_output(drawn.name, tools::utf8(load_theme(own, file).config->getConfigName()));
    }

    void write(const Workshop& workshop, const std::vector<Status>& ends) const {
        Output page(output);
        page.write(gallery_head(static_cast<size_t>(std::ranges::count(ends, Status::fine))));
        for (size_t number = 0; number < files.size(); ++number) {
            if (ends[number] != Status::fine) continue;
            const Drawn drawn(workshop, number);
            page.write(gallery_piece({files[number], read_input(drawn.name), read_input(drawn.preview),
                                      read_input(drawn.keyboard)}));
            drawn.remove();
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
    CLI::App* sub = add_subcommand(command, request, "gallery",
                                   "Write a page with the preview and the keyboard of each theme", options);
    sub->add_option("files", options->files, "Themes")->required()->type_name("FILE");
    sub->add_option("-o,--output", options->output, "The page to write, as HTML; - is standard output")
        ->required()
        ->type_name("FILE");
    add_json(sub, options->json);
    sub->footer(
        "The page is one file, with the pictures in it.\n\n"
        "Example:\n"
        "  huecraft gallery themes/*.plist -o gallery.html");
}

}  // namespace command
