// huecraft-describe: tells what this phone's system has of what the library is about, for huecraft doctor.
//
// Nothing of the user's is in the report: no names, no files, nothing of the theme.
#include <string_view>

#include "describe/description.h"
#include "describe/hooks.h"
#include "describe/list.h"
#include "describe/system.h"
#include "objc/image.h"
#include "objc/strong.h"
#include "platform/foundation.h"
#include "platform/uikit.h"

OBJC_IMAGE_INFO

namespace {

using describe::Output;

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
    describe::List<char> written_;
};

/// As the processor says it, whatever this command was built for.
const char* processor() {
    constexpr int arm64 = 0x0100000c, arm64e = 2, x86_64 = 0x01000007;
    int type = 0, subtype = 0;
    size_t size = sizeof type;
    if (sysctlbyname("hw.cputype", &type, &size, nullptr, 0) != 0) return "unknown";
    size = sizeof subtype;
    if (sysctlbyname("hw.cpusubtype", &subtype, &size, nullptr, 0) != 0) return "unknown";
    if (type == x86_64) return "x86_64";
    if (type != arm64) return "unknown";
    return subtype == arm64e ? "arm64e" : "arm64";
}

bool is_there(const char* function) { return dlsym(describe::any_library, function) != nullptr; }

void write_description() {
    objc::AutoreleasePool pool;
    Page page;
    const Output out = page.output();
    out.line("# What this system has of what Huecraft is about. Made on it by huecraft-describe.");
    out.line("# processor: ", processor());
    out.line();
    if (NSString* version = UIDevice::currentDevice()->systemVersion())
        out.line("system ", version->UTF8String());
    out.line();
    describe::write_description(out, &is_there);
    out.line();
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
