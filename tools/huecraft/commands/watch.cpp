// The file is looked at ten times a second: that needs no folder that can be watched, and sees renamed,
// deleted and remote files alike. A page that is opened as a file may not fetch what lies beside it, but it
// may run a script from there, so the state is one: watched(7, "").
#include "commands/watch.h"

#include <sys/stat.h>

#include <csignal>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <optional>

#include "cli/files.h"
#include "cli/terminal.h"
#include "formats/value.h"

namespace command {
namespace {

namespace fs = std::filesystem;

/// The signals that end the watch. They are held back and asked for, so that none comes amiss while a picture
/// is drawn.
class EndingSignals {
  public:
    EndingSignals() {
        sigemptyset(&signals_);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals_, signal);
        sigprocmask(SIG_BLOCK, &signals_, &before_);
    }
    EndingSignals(const EndingSignals&) = delete;
    ~EndingSignals() {
        while (arrive_within(0)) {
        }
        sigprocmask(SIG_SETMASK, &before_, nullptr);
    }

    bool arrive_within(long milliseconds) const {
        const timespec time{0, milliseconds * 1000000};
        return sigtimedwait(&signals_, nullptr, &time) > 0;
    }

  private:
    sigset_t signals_{}, before_{};
};

/// What changes when a file is saved.
struct Stamp {
    ino_t file = 0;
    off_t size = -1;
    long long seconds = 0, nanoseconds = 0;

    bool operator==(const Stamp&) const = default;
};

Stamp stamp_of(const std::string& file) {
    struct stat status;
    if (stat(file.c_str(), &status) != 0) return {};
    return {status.st_ino, status.st_size, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

std::string beside(const std::string& picture, const char* end) {
    return fs::path(picture).replace_extension(end);
}

/// What will be wrong with the picture's place every time is said at once.
void require_own_place(const std::string& picture) {
    struct stat there;
    if (stat(picture.c_str(), &there) == 0 && !S_ISREG(there.st_mode))
        throw Unusable(picture, "it is no file; --watch writes a picture again and again");
    if (picture == beside(picture, ".html"))
        throw Unusable(picture, "its page would have the same name; expected another end, such as .png");
}

/// As a word of JavaScript, which is also safe within HTML.
std::string in_script(const std::string& text) {
    std::string safe;
    for (const char c : Json(text).dump(-1, ' ', true, Json::error_handler_t::replace))
        safe += c == '<' ? std::string("\\u003c") : std::string(1, c);
    return safe;
}

std::string page_of(const Watched& watched) {
    const std::string picture = in_script(fs::path(watched.picture).filename()),
                      state = in_script(fs::path(beside(watched.picture, ".state.js")).filename());
    return R"html(<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>Watched</title>
<style>
body { background: #8e8e93; font: 16px system-ui, sans-serif; margin: 1rem; text-align: center; }
img { max-height: calc(100vh - 5rem); max-width: 100%; }
p { background: #fff4e0; border-radius: .5rem; margin: 0 auto 1rem; padding: .5rem 1rem; width: fit-content; }
p:empty { display: none; }
</style>
<p role="status"></p>
<img alt="The theme as it was saved last">
<script>
const picture = )html" +
           picture + ", state = " + state + R"html(;
let shown;
const fresh = name => encodeURIComponent(name) + "?" + Date.now();
function watched(count, message) {
  document.querySelector("p").textContent = message;
  if (count === shown) return;
  shown = count;
  const next = new Image();
  next.onload = () => { document.querySelector("img").src = next.src; };
  next.src = fresh(picture);
}
setInterval(() => {
  const script = document.createElement("script");
  script.src = fresh(state);
  script.onload = script.onerror = () => script.remove();
  document.head.append(script);
}, 300);
</script>
</html>
)html";
}

/// The page's state, beside the picture. It counts from a time, so that a page that outlived another run is
/// not mistaken.
class Page {
  public:
    explicit Page(const Watched& watched)
        : page_(beside(watched.picture, ".html")),
          state_(beside(watched.picture, ".state.js")),
          pictures_(std::time(nullptr) * 1000LL) {
        if (!watched.force) {
            require_replaceable(page_, OutputKind::page, {watched.file});
            require_replaceable(state_, OutputKind::script, {watched.file});
        }
        write_output(page_, page_of(watched));
    }

    const std::string& file() const { return page_; }
    void show_new_picture() { say(++pictures_, ""); }
    void say(const std::string& message) { say(pictures_, message); }

  private:
    void say(long long pictures, const std::string& message) {
        write_output(state_, "watched(" + std::to_string(pictures) + ", " + in_script(message) + ");\n");
    }

    std::string page_, state_;
    long long pictures_;
};

}  // namespace

Status watch(const Watched& watched, const std::function<Status()>& draw) {
    for (const std::string& file : {watched.file, watched.picture})
        if (file == "-") throw Unusable("--watch", "found -, expected files: the theme and its picture");
    require_own_place(watched.picture);
    const EndingSignals signals;
    Page page(watched);
    std::printf("watching %s; %s shows it, ^C ends it\n", one_line(watched.file, 4096).c_str(),
                one_line(page.file(), 4096).c_str());
    std::fflush(stdout);
    std::optional<Stamp> drawn;
    for (Stamp before = stamp_of(watched.file);;) {
        const Stamp now = stamp_of(watched.file);
        if (now == before && now != drawn) {
            drawn = now;
            if (draw() == Status::fine) {
                page.show_new_picture();
                std::printf("drawn %s\n", one_line(watched.picture, 4096).c_str());
                std::fflush(stdout);
            } else {
                page.say("This is an older state: the file as it is cannot be drawn. The terminal says why.");
            }
        }
        before = now;
        if (signals.arrive_within(100)) break;
    }
    page.say("Nobody watches the file any more.");
    return Status::fine;
}

}  // namespace command
