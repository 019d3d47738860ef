// Any bytes as a theme's file: loaded, read by every getter, drawn as a preview, saved and loaded again.
#include "harness/fuzz.h"
#include "support/configuration.h"

namespace {

using test::Configuration;
using test::text;

const std::string folder = test::theme_folder;

/// What the getters that answer no image say, in one text.
std::string read_by_getters(const Configuration& theme) {
    std::string said;
    auto colour = [&said](id each) {
        const test::Rgba is = test::rgba(each);
        for (double part : {is.red, is.green, is.blue, is.alpha}) {
            EXPECT_TRUE(part >= 0 && part <= 1) << part;
            said += std::to_string(part) + " ";
        }
    };
    for (UIColor* each : {theme.text_colour(), theme.highlight_colour()})
        each ? colour(each) : void(said += "none ");
    if (NSArray* colours = theme.colours()) {
        EXPECT_GT(colours->count(), 0u);
        for (NSUInteger i = 0; i < colours->count(); ++i) colour(colours->objectAtIndex(i));
    }
    said += std::to_string(theme.background_type()) + " " + std::to_string(theme.direction()) + " " +
            std::to_string(theme.image_alpha()) + " " + std::to_string(theme.caps_visible());
    return said;
}

void draw(const Configuration& theme) {
    theme.image();
    theme.image_cache();
    theme.image_cache();
    id preview = objc::send<"sharedInstance", id>(test::class_named("HCPreview"));
    EXPECT_NE((objc::send<"viewForConfig:", id>(preview, theme.object)), nullptr);
}

void save_and_load(const Configuration& theme) {
    const std::string before = read_by_getters(theme);
    theme.save();
    theme.set_name("Saved");
    NSError* error = nullptr;
    if (!theme.save(&error)) {
        EXPECT_NE(error, nullptr);
        return;
    }
    // What no property list can hold is not read again: characters of control in a text, say.
    if (const Configuration again = Configuration::from_file("Saved.plist"))
        EXPECT_EQ(read_by_getters(again), before);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::phone();
    const fuzz::Pool pool;
    fuzz::put(folder + "Fuzzed.plist", {reinterpret_cast<const char*>(data), size});
    NSError* error = nullptr;
    const Configuration theme{
        test::made<"initWithFilename:error:">("HuecraftConfig", text("Fuzzed.plist"), &error)};
    EXPECT_EQ(theme.object == nullptr, error != nullptr);
    if (theme) {
        theme.name();
        objc::send<"description", id>(theme.object);
        save_and_load(theme);
        draw(theme);
        fuzz::clear_folder(folder);
    }
    return 0;
}
