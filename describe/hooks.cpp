// Loading the library in another process, and saying what it did there.
#include "describe/hooks.h"

#include <string_view>

#include "compatibility/image_of.h"
#include "compatibility/seen_hooks.h"
#include "describe/system.h"
#include "hooks/decision.h"
#include "objc/strong.h"
#include "platform/foundation.h"

namespace describe {
namespace {

using compatibility::Output;

constexpr const char* library_path = "/Library/MobileSubstrate/DynamicLibraries/HuecraftiOS12.dylib";
constexpr const char* any_export_of_the_library = "kGradientLeft";
constexpr unsigned longest_wait = 60;  // seconds
constexpr unsigned longest_path = 1024;

/// A message of the system's in one line that holds no remark.
struct OneLine {
    char text[400];

    explicit OneLine(const char* message) {
        size_t end = 0;
        for (; message && *message && end + 1 < sizeof text; ++message) {
            const char c = *message;
            text[end++] = c < ' ' || c > '~' || c == '#' ? ' ' : c;
        }
        text[end] = 0;
    }
};

template <class... Reason>
void unseen(const Output& out, Reason... reason) {
    out.line("# hooks not seen: ", reason...);
}

}  // namespace

void write_hooks_seen_here(const Output& out, const char* claimed) {
    objc::AutoreleasePool pool;
    if (!hooks::accepts_process(claimed))
        return unseen(out, "the library does nothing in a process of this path");
    if (!NSFileManager::defaultManager()->fileExistsAtPath(NSString::stringWithUTF8String(library_path)))
        return unseen(out, "the library is not installed");
    alarm(longest_wait);  // whatever the library does here, the report comes to its end
    void* library = dlopen(library_path, now);
    if (!library) return unseen(out, "the library cannot be loaded: ", OneLine(dlerror()).text);
    const compatibility::SeenHooks seen;
    if (!compatibility::image_of(dlsym(library, any_export_of_the_library)) || !seen.library())
        return unseen(out, "what is installed is not the library");
    compatibility::write_hooks(out, seen);
    alarm(0);
}

void write_hooks_seen_elsewhere(const Output& out, const char* claimed, char* const environment[]) {
    char path[longest_path];
    unsigned size = sizeof path;
    if (_NSGetExecutablePath(path, &size) != 0) return unseen(out, "the path of this command is too long");
    char* const arguments[] = {const_cast<char*>(claimed), const_cast<char*>("--hooks"), nullptr};
    int process = 0, status = 0;
    if (posix_spawn(&process, path, nullptr, nullptr, arguments, environment) != 0)
        return unseen(out, "no process could be started");
    if (waitpid(process, &status, 0) != process || status != 0) {
        const int signal = status & 0x7f;
        const char digits[] = {static_cast<char>('0' + signal / 10), static_cast<char>('0' + signal % 10), 0};
        unseen(out, "the process that loads the library stopped, by signal ", digits);
    }
}

}  // namespace describe
