// huecraft-describe: reports what this phone's system has of the library's subjects, for huecraft doctor.
//
// Nothing of the user's is in the report: no names, no files, nothing of the theme.
#include <string_view>

#include "compatibility/description.h"
#include "compatibility/list.h"
#include "describe/hooks.h"
#include "describe/system.h"
#include "objc/image.h"
#include "objc/strong.h"

OBJC_IMAGE_INFO

namespace {

using compatibility::Output;

constexpr const char* an_application = "/Applications/Huecraft.app/Huecraft";

void write_all(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const long written = write(descriptor, text.data(), text.size());
        if (written <= 0) return;
        text.remove_prefix(static_cast<size_t>(written));
    }
}

/// Collects what is written, so that a process that stops half-way has written nothing.
class Page {
  public:
    Output output() {
        return {this, [](void* page, std::string_view text) {
                    auto& written = static_cast<Page*>(page)->written_;
                    written.insert(written.end(), text.begin(), text.end());
                }};
    }
    ~Page() { write_all(describe::standard_output, {written_.data(), written_.size()}); }

  private:
    compatibility::List<char> written_;
};

void write_description() {
    objc::AutoreleasePool pool;
    Page page;
    const compatibility::SeenHooks none;  // the library is in no process of this path
    compatibility::write_report(page.output(), "huecraft-describe", none);
}

void write_hooks(const char* claimed) {
    Page page;
    describe::write_hooks_seen_here(page.output(), claimed);
}

int misuse(std::string_view found) {
    write_all(describe::standard_error, "huecraft-describe: found \"");
    write_all(describe::standard_error, found);
    write_all(describe::standard_error, "\"; expected nothing, or --as and the path of an application\n");
    return 2;
}

}  // namespace

int main(int count, char* arguments[], char* environment[]) {
    const auto argument = [&](int index) {
        return index < count ? std::string_view(arguments[index]) : std::string_view();
    };
    const char* claimed = an_application;
    if (count == 2 && argument(1) == "--hooks") {
        write_hooks(arguments[0]);
        return 0;
    }
    if (count == 3 && argument(1) == "--as")
        claimed = arguments[2];
    else if (count > 1)
        return misuse(argument(1));
    write_description();
    Page page;
    describe::write_hooks_seen_elsewhere(page.output(), claimed, environment);
    return 0;
}
