#include "pane/texts.h"

#include "platform/services.h"

namespace pane {

NSString* translated(const char* key) {
    NSString* english = NSString::stringWithUTF8String(key);
    NSBundle* bundle = NSBundle::bundleWithPath("/Library/PreferenceBundles/HuecraftSettings.bundle"_ns);
    NSString* found = bundle ? bundle->localizedString(english, english, nullptr) : nullptr;
    return found ? found : english;
}

NSString* with(NSString* text, NSString* first, NSString* second) {
    // The second first: what is put in may hold a "%2" itself.
    if (second) text = text->stringByReplacingOccurrencesOfString("%2"_ns, second);
    return first ? text->stringByReplacingOccurrencesOfString("%1"_ns, first) : text;
}

NSString* number_text(NSInteger number) { return NSNumber::numberWithInteger(number)->description(); }

NSError* make_error(NSString* description) {
    const id keys[] = {NSLocalizedDescriptionKey}, values[] = {description};
    return NSError::errorWithDomain("HuecraftSettings"_ns, 1,
                                    NSDictionary::dictionaryWithObjects(values, keys, 1));
}

}  // namespace pane
