#include "support/configuration.h"

#include "support/themes.h"

namespace test {

Configuration Configuration::from_xml(const Phone& phone, std::string_view xml_of_dictionary) {
    phone.write(std::string(theme_folder) + "Made.plist",
                property_list("<dict>" + std::string(xml_of_dictionary) + "</dict>"));
    Configuration made = from_file("Made.plist");
    EXPECT_TRUE(made) << "the theme did not load";
    return made;
}

ErrorTexts texts_of(NSError* error) {
    if (!error) return {};
    auto* info = error->send<"userInfo", NSDictionary*>();
    auto entry = [info](NSString* key) { return utf8(info->objectForKey(key)); };
    return {utf8(error->send<"domain", NSString*>()), entry(NSLocalizedDescriptionKey),
            entry(NSLocalizedFailureReasonErrorKey),  entry(NSLocalizedRecoverySuggestionErrorKey),
            error->send<"code", NSInteger>(),         info->send<"count", NSUInteger>()};
}

}  // namespace test
