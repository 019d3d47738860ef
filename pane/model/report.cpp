#include "pane/model/report.h"

#include <string>

#include "compatibility/description.h"
#include "pane/model/files.h"

namespace pane {

using namespace objc::literals;

objc::strong<NSString> report() {
    std::string text;
    const compatibility::Output out{&text, [](void* written, std::string_view more) {
                                        static_cast<std::string*>(written)->append(more);
                                    }};
    const compatibility::SeenHooks seen;
    compatibility::write_report(out, "Huecraft's settings pane", seen);
    compatibility::write_hooks(out, seen);
    return NSString::stringWithUTF8String(text.c_str());
}

NSString* write_report(NSString* report, NSError** error) {
    NSString* folder = "/var/mobile/Library/Caches/com.quillmoth.huecraftios12.settings"_ns;
    NSString* path = folder->stringByAppendingPathComponent("Huecraft Report.txt"_ns);
    const bool written = make_folder(folder, error) && report->writeToFile(path, true, NSString::utf8, error);
    return written ? path : nullptr;
}

}  // namespace pane
