// Any bytes as the preference file: the store reads it and the theme that it names, and answers as the hooks
// ask.
#include "harness/fuzz.h"
#include "support/themes.h"

namespace {

using objc::send;

void ask(id store) {
    const bool is_on = send<"isEnabled", bool>(store);
    for (id each : {send<"getTextColor", id>(store), send<"getHighlightColor", id>(store)})
        if (each) test::rgba(each);
    const auto type = send<"getBackgroundType", NSUInteger>(store);
    send<"getGradientDirection", NSUInteger>(store);
    send<"getColors", id>(store);
    send<"getImage", id>(store);
    send<"getImage", id>(store);
    send<"getImageAlpha", double>(store);
    send<"isCapsEnabled", bool>(store);
    EXPECT_TRUE(!is_on || type != 0) << "theming is on without the theme";
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const bool is_arranged = [] {
        fuzz::phone();
        fuzz::put(std::string(test::theme_folder) + "Meadow.plist", test::theme());
        return true;
    }();
    (void)is_arranged;
    const fuzz::Pool pool;
    fuzz::put(test::preference_file, {reinterpret_cast<const char*>(data), size});
    ask(test::made("HCPreferences"));
    return 0;
}
