// The colours that were chosen last: see the header.
#include "settings/recent_colors.h"

#include "model/HCCITool.h"
#include "model/property_list_file.h"

namespace settings {
namespace {

using namespace objc::literals;

NSString* path() { return "/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist"_ns; }

}  // namespace

NSData* recent_colors_file() { return NSData::dataWithContentsOfFile(path()); }

NSMutableArray* default_recent_colors() {
    NSMutableArray* colors = NSMutableArray::arrayWithCapacity(recent_color_count);
    for (NSInteger i = 0; i < recent_color_count; ++i) colors->addObject("#00000000"_ns);
    return colors;
}

void record_color(NSString* text, NSMutableArray* colors, NSMutableDictionary* dictionary) {
    UIColor* newest = HCCITool::colorFromHexString(static_cast<NSString*>(colors->lastObject()));
    if (!HCCITool::hexStringFromColor(newest)->isEqualToString(text)) {
        colors->removeObjectAtIndex(0);
        colors->addObject(text);
    }
    dictionary->setObject(colors, "Colors"_ns);
    write_property_list(dictionary, path(), nullptr);
}

}  // namespace settings
