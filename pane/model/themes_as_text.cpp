#include "pane/model/themes_as_text.h"

#include "pane/model/files.h"
#include "pane/texts.h"

namespace pane::themes {
namespace {

using objc::strong;

bool has_any_needed(NSDictionary* content) {
    return content->objectForKey("_TextColor"_ns) || content->objectForKey("_HighlightColor"_ns) ||
           content->objectForKey("_BackgroundType"_ns);
}

}  // namespace

NSString* text_of(HuecraftConfig* theme, NSError** error) {
    NSData* bytes = NSPropertyListSerialization::dataWithPropertyList(
        theme->asPlist(), NSPropertyListSerialization::xml_format, 0, error);
    if (!bytes) return nullptr;
    return NSString::alloc()
        ->send<"initWithData:encoding:", strong<NSString>>(bytes, NSString::utf8)
        .autoreleased();
}

Reading read_text(NSString* given) {
    Reading reading;
    if (given->length() > largest_file) {
        reading.fault = text<"The text is too large for a theme.">();
        return reading;
    }
    NSData* bytes = given->dataUsingEncoding(NSString::utf8);
    auto* content = bytes ? as<NSDictionary>(NSPropertyListSerialization::propertyListWithData(
                                bytes, NSPropertyListSerialization::immutable, nullptr, nullptr))
                          : nullptr;
    if (content && has_any_needed(content)) return read(content);
    reading.fault = text<"The text holds no theme.">();
    return reading;
}

NSString* keep_arrived(HuecraftConfig* theme, NSError** error) {
    NSString* name = theme->getConfigName();
    if (!name || name->length() == 0) theme->setConfigName(text<"Imported Theme">());
    return keep_as_new(theme, error);
}

}  // namespace pane::themes
