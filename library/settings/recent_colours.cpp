#include "settings/recent_colours.h"

#include "model/HCCITool.h"
#include "model/property_list_file.h"

namespace settings {
namespace {

using namespace objc::literals;

NSString* path() { return "/var/mobile/Library/Preferences/com.quillmoth.hcrecentcolors.plist"_ns; }

}  // namespace

NSData* recent_colours_file() { return NSData::dataWithContentsOfFile(path()); }

NSMutableArray* default_recent_colours() {
    NSMutableArray* colours = NSMutableArray::arrayWithCapacity(recent_colour_count);
    for (NSInteger i = 0; i < recent_colour_count; ++i) colours->addObject("#00000000"_ns);
    return colours;
}

void record_colour(NSString* text, NSMutableArray* colours, NSMutableDictionary* dictionary) {
    UIColor* newest = HCCITool::colorFromHexString(static_cast<NSString*>(colours->lastObject()));
    if (!HCCITool::hexStringFromColor(newest)->isEqualToString(text)) {
        colours->removeObjectAtIndex(0);
        colours->addObject(text);
    }
    dictionary->setObject(colours, "Colors"_ns);
    write_property_list(dictionary, path(), nullptr);
}

}  // namespace settings
